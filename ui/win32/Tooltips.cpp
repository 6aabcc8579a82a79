#include "ui/win32/Tooltips.h"

#include <commctrl.h>

#include <cstddef>

namespace ui::win32 {
namespace {

// The size that every release of the control understands.
constexpr UINT InfoSize = offsetof(TTTOOLINFOW, lpReserved);

// A control is known twice. While it is enabled, its own window hears of the mouse; while it is disabled, the
// dialog does, and the control's place in the dialog tells what the mouse is over.
TTTOOLINFOW OwnTool(HWND dialog, HWND control) {
    TTTOOLINFOW tool{};
    tool.cbSize = InfoSize;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

TTTOOLINFOW PlaceTool(HWND dialog, HWND control) {
    TTTOOLINFOW tool{};
    tool.cbSize = InfoSize;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = dialog;
    tool.uId = static_cast<UINT_PTR>(GetDlgCtrlID(control));
    // Whether the dialog itself is seen yet does not matter.
    const bool isShown = (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
    if (!isShown || IsWindowEnabled(control) != FALSE) return tool;
    GetWindowRect(control, &tool.rect);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&tool.rect), 2);
    return tool;
}

LPARAM Parameter(TTTOOLINFOW& tool) {
    return reinterpret_cast<LPARAM>(&tool);
}

}  // namespace

void Tooltips::Attach(HWND dialog) {
    dialog_ = dialog;
    constexpr DWORD Style = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX;
    window_ =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, Style, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(window_, TTM_ACTIVATE, TRUE, 0);
}

void Tooltips::SetText(HWND control, const std::wstring& text) const {
    std::wstring shown = text;
    for (TTTOOLINFOW tool : {OwnTool(dialog_, control), PlaceTool(dialog_, control)}) {
        SendMessageW(window_, TTM_DELTOOLW, 0, Parameter(tool));
        tool.lpszText = shown.data();
        if (!shown.empty()) SendMessageW(window_, TTM_ADDTOOLW, 0, Parameter(tool));
    }
}

void Tooltips::Follow(HWND control) const {
    TTTOOLINFOW tool = PlaceTool(dialog_, control);
    SendMessageW(window_, TTM_NEWTOOLRECTW, 0, Parameter(tool));
}

}  // namespace ui::win32
