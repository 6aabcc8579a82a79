// Waits until a visible window with the given title answers messages: how scripts know that a program can be
// used.
#include <windows.h>

#include <cwchar>

namespace {

constexpr DWORD pause = 50;         // milliseconds between two looks
constexpr UINT answerTime = 5'000;  // milliseconds that a busy window may take to answer

bool IsReady(const wchar_t* title) {
    const HWND window = FindWindowW(nullptr, title);
    DWORD_PTR answer = 0;
    return window != nullptr && IsWindowVisible(window) &&
           SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, answerTime, &answer) != 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) return 2;
    const ULONGLONG end = GetTickCount64() + std::wcstoul(arguments[2], nullptr, 10) * 1000ULL;
    while (!IsReady(arguments[1])) {
        if (GetTickCount64() > end) return 1;
        Sleep(pause);
    }
    return 0;
}
