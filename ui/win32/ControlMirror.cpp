#include "ui/win32/ControlMirror.h"

namespace ui::win32 {

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(length));
    return text;
}

// Switching drawing back on would make a hidden window appear.
RedrawPause::RedrawPause(HWND window)
    : window_(window),
      paused_((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0) {
    if (paused_) SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
}

RedrawPause::~RedrawPause() {
    if (!paused_) return;
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, TRUE);
}

void ControlMirror::ShowText() {
    // Setting an equal text would still move the caret of an edit to its beginning.
    if (const std::wstring text = ShownText(); TextOf(window_) != text) SetWindowTextW(window_, text.c_str());
}

void ControlMirror::ShowFirst() {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE));
    if (control_.IsEnabled() != ((style & WS_DISABLED) == 0)) Show(Aspect::Enabled);
    if (control_.IsVisible() != ((style & WS_VISIBLE) != 0)) Show(Aspect::Visible);
    ShowAll();
    isShown_ = true;
}

void ControlMirror::Show(Aspect aspect) {
    switch (aspect) {
        case Aspect::Text:
            ShowText();
            break;
        case Aspect::Enabled:
            if (!control_.IsEnabled()) MoveFocusAway();
            EnableWindow(window_, control_.IsEnabled());
            break;
        case Aspect::Visible:
            if (!control_.IsVisible()) MoveFocusAway();
            ShowWindow(window_, control_.IsVisible() ? SW_SHOWNA : SW_HIDE);
            break;
        default:
            break;
    }
}

Rect ControlMirror::BoundsWithDrop() const {
    Rect bounds = control_.Bounds();
    bounds.height += DropHeight();
    return bounds;
}

// A control that cannot be used must not hold the keyboard: nothing that the user presses would arrive
// anywhere.
void ControlMirror::MoveFocusAway() const {
    const HWND focus = GetFocus();
    if (focus != window_ && !IsChild(window_, focus)) return;
    const HWND dialog = GetParent(window_);
    const HWND next = GetNextDlgTabItem(dialog, window_, FALSE);
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
}

}  // namespace ui::win32
