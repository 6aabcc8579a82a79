#include "tests/support/win32/WindowsHabits.h"

#include <bit>

#include "platform/win32/Resolution.h"
#include "ui/win32/ControlMirror.h"
#include "ui/win32/DialogWindow.h"

#include <commctrl.h>

namespace tests {
namespace {

// Handles are numbers to whoever gets them.
const HMONITOR second = std::bit_cast<HMONITOR>(uintptr_t{0x5EC0});

bool Is(HWND window, const wchar_t* className) {
    wchar_t found[64] = L"";
    GetClassNameW(window, found, 64);
    return lstrcmpiW(found, className) == 0;
}

bool IsEditableCombo(HWND window) {
    return Is(window, WC_COMBOBOXW) && (GetWindowLongPtrW(window, GWL_STYLE) & 3) == CBS_DROPDOWN;
}

void MarkFirstRow(HWND list) {
    const bool isMarked = SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED) >= 0;
    if (isMarked || SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) == 0) return;
    LVITEMW item{};
    item.state = item.stateMask = LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
}

}  // namespace

WindowsHabits::WindowsHabits(uint32_t dpi, Told told) : dpi_(dpi), told_(told) {
    current_ = this;
    hook_ = SetWindowsHookExW(WH_CALLWNDPROCRET, Hook, nullptr, GetCurrentThreadId());
}

WindowsHabits::~WindowsHabits() {
    UnhookWindowsHookEx(hook_);
    current_ = nullptr;
}

LRESULT CALLBACK WindowsHabits::Hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && current_ != nullptr) current_->Sent(*reinterpret_cast<const CWPRETSTRUCT*>(lParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void WindowsHabits::Sent(const CWPRETSTRUCT& message) {
    const HWND window = message.hwnd;
    const bool isOurs = ui::win32::DialogWindow::Of(window) != nullptr;
    switch (message.message) {
        case WM_NCDESTROY:
            shownAt_.erase(window);
            break;
        case WM_WINDOWPOSCHANGED:
            if (isOurs && (told_ == Told::AtOnce || IsWindowVisible(window) != FALSE)) TellOfMonitor(window);
            break;
        case WM_INITDIALOG:
            if (isOurs) TellOfMonitor(window);
            break;
        case WM_SIZE:
            if (IsEditableCombo(window)) CompleteText(window);
            break;
        case WM_COMMAND:
            if (HIWORD(message.wParam) == CBN_DROPDOWN && IsEditableCombo(reinterpret_cast<HWND>(message.lParam)))
                CompleteText(reinterpret_cast<HWND>(message.lParam));
            break;
        case WM_SETFOCUS:
            if (Is(window, WC_LISTVIEWW)) MarkFirstRow(window);
            break;
        default:
            break;
    }
}

bool WindowsHabits::IsOnSecond(HWND window) const {
    RECT outer{};
    GetWindowRect(window, &outer);
    return outer.left + outer.right > 2 * SecondMonitor;
}

std::optional<SIZE> WindowsHabits::SizeAt(HWND dialog, uint32_t dpi) {
    SIZE size{};
    const LRESULT answered = SendMessageW(dialog, WM_GETDPISCALEDSIZE, dpi, reinterpret_cast<LPARAM>(&size));
    return answered == FALSE ? std::nullopt : std::optional(size);
}

// Without an answer the whole window grows evenly.
void WindowsHabits::TellOfMonitor(HWND dialog) {
    if (IsIconic(dialog) != FALSE) return;
    const uint32_t ownDpi = platform::win32::DpiOf(dialog);
    const auto [shown, isNew] = shownAt_.try_emplace(dialog, ownDpi);
    const uint32_t before = shown->second;
    const uint32_t now = IsOnSecond(dialog) ? dpi_ : ownDpi;
    if (now == before) return;
    shown->second = now;
    RECT outer{};
    GetWindowRect(dialog, &outer);
    const auto scaled = [&](LONG pixels) { return MulDiv(pixels, static_cast<int>(now), static_cast<int>(before)); };
    const SIZE even{scaled(outer.right - outer.left), scaled(outer.bottom - outer.top)};
    const SIZE size = SizeAt(dialog, now).value_or(even);
    const RECT suggested{outer.left, outer.top, outer.left + size.cx, outer.top + size.cy};
    SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(now, now), reinterpret_cast<LPARAM>(&suggested));
}

void WindowsHabits::CompleteText(HWND combo) {
    const std::wstring text = ui::win32::TextOf(combo);
    if (text.empty()) return;
    const LRESULT found =
        SendMessageW(combo, CB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
    if (found >= 0) SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(found), 0);
}

HMONITOR WINAPI WindowsHabits::MonitorOf(HWND window, DWORD flags) {
    if (current_->IsOnSecond(window)) return second;
    return current_->monitorOf_.Real<decltype(MonitorFromWindow)>()(window, flags);
}

// As large as two of the first beside and below each other.
BOOL WINAPI WindowsHabits::InfoOf(HMONITOR monitor, MONITORINFO* info) {
    if (monitor != second) return current_->infoOf_.Real<decltype(GetMonitorInfoW)>()(monitor, info);
    info->rcMonitor = info->rcWork = {SecondMonitor, 0, SecondMonitor + 2560, 2048};
    return TRUE;
}

}  // namespace tests
