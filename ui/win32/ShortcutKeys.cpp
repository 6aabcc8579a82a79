#include "ui/win32/ShortcutKeys.h"

#include "ui/win32/DialogWindow.h"

namespace ui::win32 {
namespace {

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

// A key that is held down is pressed again and again: F1 would open page after page.
bool AsksForHelpAgain(const MSG& message) {
    constexpr LPARAM WasDown = LPARAM{1} << 30;
    return message.wParam == VK_F1 && (message.lParam & WasDown) != 0;
}

bool IsShortcut(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    if (AsksForHelpAgain(message)) return true;
    DialogWindow* const dialog = DialogWindow::Of(GetAncestor(message.hwnd, GA_ROOT));
    return dialog != nullptr && dialog->Press({.key = static_cast<int>(message.wParam),
                                               .control = IsHeld(VK_CONTROL),
                                               .alt = IsHeld(VK_MENU),
                                               .shift = IsHeld(VK_SHIFT)});
}

LRESULT CALLBACK Filter(int code, WPARAM wParam, LPARAM lParam) {
    if (code == MSGF_DIALOGBOX && IsShortcut(*reinterpret_cast<const MSG*>(lParam))) return TRUE;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

ShortcutKeys::ShortcutKeys()
    : hook_(SetWindowsHookExW(WH_MSGFILTER, Filter, nullptr, GetCurrentThreadId())) {}

ShortcutKeys::~ShortcutKeys() {
    if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
}

}  // namespace ui::win32
