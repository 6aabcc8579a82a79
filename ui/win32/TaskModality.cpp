#include "ui/win32/TaskModality.h"

#include <utility>

namespace ui::win32 {
namespace {

bool TakesInput(HWND window) {
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
}

BOOL CALLBACK Count(HWND window, LPARAM count) {
    if (TakesInput(window)) ++*reinterpret_cast<size_t*>(count);
    return TRUE;
}

// Never beyond what has been reserved: nothing may be thrown through the system's code.
BOOL CALLBACK Note(HWND window, LPARAM list) {
    auto& windows = *reinterpret_cast<std::vector<HWND>*>(list);
    if (TakesInput(window) && windows.size() < windows.capacity()) windows.push_back(window);
    return TRUE;
}

}  // namespace

TaskModality::TaskModality() : activeBefore_(GetActiveWindow()) {
    size_t count = 0;
    EnumThreadWindows(GetCurrentThreadId(), Count, reinterpret_cast<LPARAM>(&count));
    disabled_.reserve(count);
    EnumThreadWindows(GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(&disabled_));
    for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

TaskModality::~TaskModality() {
    Enable();
}

void TaskModality::EndBefore(HWND modal) {
    Enable();
    if (GetActiveWindow() == modal && TakesInput(activeBefore_)) SetActiveWindow(activeBefore_);
}

void TaskModality::Enable() {
    for (const HWND window : std::exchange(disabled_, {}))
        if (IsWindow(window) != FALSE) EnableWindow(window, TRUE);
}

}  // namespace ui::win32
