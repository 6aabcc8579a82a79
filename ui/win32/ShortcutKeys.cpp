#include "ui/win32/ShortcutKeys.h"

#include "ui/win32/DialogWindow.h"

namespace ui::win32 {
namespace {

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

bool IsShortcut(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
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
