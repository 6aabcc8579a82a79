#include "ui/win32/MenusAndTooltips.h"

#include <commctrl.h>

#include <algorithm>
#include <cstddef>

#include "ui/win32/Placing.h"

namespace ui::win32 {
namespace {

UINT StateOf(const MenuItem& item) {
    return item.enabled ? MF_ENABLED : MF_GRAYED;
}

HMENU MakeMenu(const Menu& menu) {
    const HMENU popup = CreatePopupMenu();
    for (const MenuItem& item : menu.items)
        AppendMenuW(popup, MF_STRING | StateOf(item), static_cast<UINT_PTR>(item.command), item.text.c_str());
    return popup;
}

HMENU MakeBar(const std::vector<Menu>& menus) {
    if (menus.empty()) return nullptr;
    const HMENU bar = CreateMenu();
    for (const Menu& menu : menus)
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(MakeMenu(menu)), menu.title.c_str());
    return bar;
}

bool SameButForState(const Menu& a, const Menu& b) {
    return a.title == b.title && std::equal(a.items.begin(), a.items.end(), b.items.begin(), b.items.end(),
                                            [](const MenuItem& left, const MenuItem& right) {
                                                return left.command == right.command && left.text == right.text;
                                            });
}

}  // namespace

bool MenuBar::CanKeepItems(const std::vector<Menu>& menus) const {
    return std::equal(shown_.begin(), shown_.end(), menus.begin(), menus.end(), SameButForState);
}

bool MenuBar::Show(HWND window, const std::vector<Menu>& menus) {
    if (menus == shown_) return false;
    const bool hadBar = !shown_.empty();
    if (CanKeepItems(menus)) {
        const HMENU bar = GetMenu(window);
        for (const Menu& menu : menus)
            for (const MenuItem& item : menu.items)
                EnableMenuItem(bar, static_cast<UINT>(item.command), MF_BYCOMMAND | StateOf(item));
    } else {
        const HMENU old = GetMenu(window);
        SetMenu(window, MakeBar(menus));
        if (old != nullptr) DestroyMenu(old);
    }
    shown_ = menus;
    if (IsWindowVisible(window) != FALSE) DrawMenuBar(window);
    return hadBar == menus.empty();
}

void AppendToSystemMenu(HWND window, const MenuItem& entry) {
    const HMENU menu = GetSystemMenu(window, FALSE);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING | StateOf(entry), static_cast<UINT_PTR>(entry.command), entry.text.c_str());
}

namespace {

// The size that every release of the control understands.
constexpr UINT InfoSize = offsetof(TTTOOLINFOW, lpReserved);

// A control is known twice. While it is enabled, its own window hears of the mouse; while it is disabled, the
// dialog does, and the control's place in the dialog tells what the mouse is over. The dialog passes on what it
// hears: a tooltip window that listens by itself would slow down each of its messages.
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
    tool.hwnd = dialog;
    tool.uId = static_cast<UINT_PTR>(GetDlgCtrlID(control));
    // Whether the dialog itself is seen yet does not matter.
    const bool isShown = (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
    if (!isShown || IsWindowEnabled(control) != FALSE) return tool;
    const Rect bounds = BoundsIn(dialog, control);
    tool.rect = {bounds.x, bounds.y, bounds.x + bounds.width, bounds.y + bounds.height};
    return tool;
}

LPARAM Parameter(TTTOOLINFOW& tool) {
    return reinterpret_cast<LPARAM>(&tool);
}

}  // namespace

void Tooltips::Create(HWND dialog) {
    dialog_ = dialog;
    constexpr DWORD Style = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX;
    window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, Style, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void Tooltips::Add(HWND control, const std::wstring& text) {
    if (text.empty()) return;
    if (window_ == nullptr) Create(GetParent(control));
    std::wstring shown = text;
    for (TTTOOLINFOW tool : {OwnTool(dialog_, control), PlaceTool(dialog_, control)}) {
        tool.lpszText = shown.data();
        Send(TTM_ADDTOOLW, Parameter(tool));
    }
}

void Tooltips::SetText(HWND control, const std::wstring& text) {
    for (TTTOOLINFOW tool : {OwnTool(dialog_, control), PlaceTool(dialog_, control)})
        Send(TTM_DELTOOLW, Parameter(tool));
    Add(control, text);
}

void Tooltips::Hear(UINT message, WPARAM wParam, LPARAM lParam) const {
    if (message < WM_MOUSEFIRST || message > WM_MBUTTONDBLCLK) return;
    MSG heard{};
    heard.hwnd = dialog_;
    heard.message = message;
    heard.wParam = wParam;
    heard.lParam = lParam;
    Send(TTM_RELAYEVENT, reinterpret_cast<LPARAM>(&heard));
}

void Tooltips::TellOfColors() const {
    Send(WM_SYSCOLORCHANGE, {});
}

void Tooltips::Follow(HWND control) const {
    TTTOOLINFOW tool = PlaceTool(dialog_, control);
    Send(TTM_NEWTOOLRECTW, Parameter(tool));
}

void Tooltips::Send(UINT message, LPARAM parameter) const {
    constexpr WPARAM Unused{};
    if (window_ != nullptr) SendMessageW(window_, message, Unused, parameter);
}

}  // namespace ui::win32
