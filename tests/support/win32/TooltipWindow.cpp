#include "tests/support/win32/TooltipWindow.h"

#include <commctrl.h>

#include <array>
#include <string_view>

namespace tests {
namespace {

TTTOOLINFOW Tool(HWND dialog, UINT_PTR id) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = dialog;
    tool.uId = id;
    return tool;
}

std::wstring TextIn(HWND tooltips, TTTOOLINFOW tool) {
    std::array<wchar_t, 256> text{};
    tool.lpszText = text.data();
    SendMessageW(tooltips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
    return text.data();
}

struct TooltipSearch {
    HWND dialog = nullptr;
    HWND found = nullptr;
};

// Lists have tooltip windows, too, with tools of their own.
BOOL CALLBACK FindTooltips(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<TooltipSearch*>(parameter);
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) != TOOLTIPS_CLASSW || GetWindow(window, GW_OWNER) != search.dialog) return TRUE;
    TTTOOLINFOW first = Tool(nullptr, 0);
    const LRESULT any = SendMessageW(window, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&first));
    if (any == FALSE || first.hwnd != search.dialog) return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

TooltipWindow::TooltipWindow(HWND dialog) : dialog_(dialog) {
    TooltipSearch search{dialog, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), FindTooltips, reinterpret_cast<LPARAM>(&search));
    window_ = search.found;
}

std::wstring TooltipWindow::TextOver(HWND control) const {
    return TextIn(window_, Tool(dialog_, reinterpret_cast<UINT_PTR>(control)));
}

std::wstring TooltipWindow::TextAtPlaceOf(HWND control) const {
    return TextIn(window_, Tool(dialog_, static_cast<UINT_PTR>(GetDlgCtrlID(control))));
}

std::optional<RECT> TooltipWindow::PlaceOf(HWND control) const {
    TTTOOLINFOW tool = Tool(dialog_, static_cast<UINT_PTR>(GetDlgCtrlID(control)));
    if (SendMessageW(window_, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)) == FALSE) return std::nullopt;
    return tool.rect;
}

}  // namespace tests
