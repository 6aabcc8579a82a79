#include "tests/support/win32/OpenedWindows.h"

#include <gtest/gtest.h>

#include <utility>

namespace tests {
namespace {

constexpr UINT DialogHasOpened = WM_APP;
constexpr const wchar_t* ReceiverClass = L"tests::OpenedWindows";

}  // namespace

OpenedWindows::OpenedWindows(std::function<void(HWND)> onOpened) : onOpened_(std::move(onOpened)) {
    WNDCLASSW receiver{};
    receiver.lpfnWndProc = Procedure;
    receiver.hInstance = GetModuleHandleW(nullptr);
    receiver.lpszClassName = ReceiverClass;
    RegisterClassW(&receiver);  // fails when an earlier test has done so
    receiver_ =
        CreateWindowExW(0, ReceiverClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, receiver.hInstance, nullptr);
    current_ = this;
    hook_ = SetWindowsHookExW(WH_CALLWNDPROCRET, Hook, nullptr, GetCurrentThreadId());
}

OpenedWindows::~OpenedWindows() {
    UnhookWindowsHookEx(hook_);
    DestroyWindow(receiver_);
    current_ = nullptr;
}

LRESULT CALLBACK OpenedWindows::Hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && current_ != nullptr) current_->Sent(*reinterpret_cast<const CWPRETSTRUCT*>(lParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void OpenedWindows::Sent(const CWPRETSTRUCT& message) {
    const HWND window = message.hwnd;
    if (message.message == WM_NCDESTROY) {
        std::erase(hidden_, window);
        std::erase(untold_, window);
    } else if (message.message == WM_INITDIALOG) {
        const bool isPart = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;  // of another dialog
        if (!isPart) hidden_.push_back(window);
    } else if (message.message == WM_SHOWWINDOW && message.wParam != FALSE && std::erase(hidden_, window) != 0) {
        untold_.push_back(window);
        PostMessageW(receiver_, DialogHasOpened, 0, reinterpret_cast<LPARAM>(window));
    }
}

LRESULT CALLBACK OpenedWindows::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != DialogHasOpened || current_ == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    current_->Tell(reinterpret_cast<HWND>(lParam));
    return 0;
}

void OpenedWindows::Tell(HWND opened) {
    if (std::erase(untold_, opened) == 0) return;  // it has gone already
    try {
        onOpened_(opened);
    } catch (const std::exception& e) {
        ADD_FAILURE() << "a script threw: " << e.what();
        PostMessageW(opened, WM_CLOSE, 0, 0);
    }
}

}  // namespace tests
