#include "ui/win32/WheelGuard.h"

#include <windowsx.h>

#include <bit>

namespace ui::win32 {
namespace {

// The window's own procedure, and the combo that the window is or belongs to.
constexpr const wchar_t* ProcedureProperty = L"ui::win32::WheelGuard procedure";
constexpr const wchar_t* ComboProperty = L"ui::win32::WheelGuard combo";

bool Scrolls(HWND window) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    return (style & WS_VSCROLL) != 0 && GetPropW(window, ComboProperty) == nullptr;
}

// None: nothing there scrolls, or it is disabled. A wheel that turns says on the screen where the mouse is.
HWND ScrollingWindowAt(POINT place, HWND combo) {
    const HWND window = WindowFromPoint(place);
    const HWND dialog = GetAncestor(combo, GA_ROOT);
    return window != nullptr && IsChild(dialog, window) != FALSE && Scrolls(window) ? window : nullptr;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto own = std::bit_cast<WNDPROC>(GetPropW(window, ProcedureProperty));
    const auto combo = static_cast<HWND>(GetPropW(window, ComboProperty));
    if (message == WM_MOUSEWHEEL && SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) == FALSE) {
        const HWND target = ScrollingWindowAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, combo);
        return target == nullptr ? 0 : SendMessageW(target, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(own));
        RemovePropW(window, ProcedureProperty);
        RemovePropW(window, ComboProperty);
    }
    return CallWindowProcW(own, window, message, wParam, lParam);
}

void Guard(HWND window, HWND combo) {
    const LONG_PTR own = GetWindowLongPtrW(window, GWLP_WNDPROC);
    const bool noted = SetPropW(window, ProcedureProperty, std::bit_cast<HANDLE>(own)) != FALSE &&
                       SetPropW(window, ComboProperty, combo) != FALSE;
    if (noted) SetWindowLongPtrW(window, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(&Procedure));
}

}  // namespace

void KeepWheelFromChoosing(HWND combo) {
    Guard(combo, combo);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (GetComboBoxInfo(combo, &parts) == FALSE) return;
    const bool isEditable = parts.hwndItem != nullptr && parts.hwndItem != combo;
    if (isEditable) Guard(parts.hwndItem, combo);
}

}  // namespace ui::win32
