#include "platform/win32/Resolution.h"

#include <algorithm>

#include "platform/win32/Module.h"

namespace platform::win32 {
namespace {

// Of the DLL that every program with a window has loaded. Null: the system is older than the function.
template <class Function>
Function* Newer(const char* name) {
    return FindExport<Function>(GetModuleHandleW(L"user32.dll"), name);
}

// The resolution at which the system gives what it measures without being asked for one.
uint32_t SystemDpi() {
    constexpr int Unscaled = 96;
    return static_cast<uint32_t>(std::max(Unscaled, GetDeviceCaps(ScreenCanvas().Handle(), LOGPIXELSX)));
}

}  // namespace

uint32_t DpiOf(HWND window) {
    auto* const ofWindow = Newer<UINT WINAPI(HWND)>("GetDpiForWindow");
    const UINT dpi = ofWindow == nullptr ? 0 : ofWindow(window);
    return dpi == 0 ? SystemDpi() : dpi;
}

int SystemMetric(int index, uint32_t dpi) {
    auto* const atDpi = Newer<int WINAPI(int, UINT)>("GetSystemMetricsForDpi");
    const int pixels = atDpi == nullptr ? 0 : atDpi(index, dpi);
    if (pixels != 0) return pixels;
    return MulDiv(GetSystemMetrics(index), static_cast<int>(dpi), static_cast<int>(SystemDpi()));
}

RECT OuterRect(HWND window, RECT inner, uint32_t dpi) {
    using Adjust = BOOL WINAPI(RECT*, DWORD style, BOOL menu, DWORD extendedStyle, UINT dpi);
    auto* const atDpi = Newer<Adjust>("AdjustWindowRectExForDpi");
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    const auto extendedStyle = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
    const BOOL hasMenu = GetMenu(window) != nullptr;
    if (atDpi == nullptr || atDpi(&inner, style, hasMenu, extendedStyle, dpi) == FALSE)
        AdjustWindowRectEx(&inner, style, hasMenu, extendedStyle);
    return inner;
}

void KeepSystemFromRescaling(HWND dialog) {
    constexpr int DisableAll = 1;  // DDC_DISABLE_ALL
    using SetBehavior = BOOL WINAPI(HWND, int mask, int values);
    auto* const setBehavior = Newer<SetBehavior>("SetDialogDpiChangeBehavior");
    if (setBehavior != nullptr) setBehavior(dialog, DisableAll, DisableAll);
}

}  // namespace platform::win32
