#include "ui/win32/SystemFunctions.h"

#include <commctrl.h>

namespace ui::win32 {
namespace {

constexpr uint32_t UnscaledDpi = 96;

}  // namespace

void* FindSystemFunction(const wchar_t* dll, const char* name) {
    const HMODULE module = LoadLibraryExW(dll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return module == nullptr ? nullptr : reinterpret_cast<void*>(GetProcAddress(module, name));
}

void RegisterControlClasses() {
    const auto init =
        SystemFunction<BOOL WINAPI(const INITCOMMONCONTROLSEX*)>(L"comctl32.dll", "InitCommonControlsEx");
    constexpr INITCOMMONCONTROLSEX BasicClasses{sizeof(INITCOMMONCONTROLSEX), 0xFF};
    if (init != nullptr) init(&BasicClasses);
}

uint32_t DpiOf(HWND window) {
    static const auto getDpi = SystemFunction<UINT WINAPI(HWND)>(L"user32.dll", "GetDpiForWindow");
    const UINT dpi = getDpi == nullptr ? 0 : getDpi(window);
    if (dpi != 0) return dpi;
    const HDC screen = GetDC(nullptr);
    const int pixelsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return pixelsPerInch > 0 ? static_cast<uint32_t>(pixelsPerInch) : UnscaledDpi;
}

int SystemMetric(int index, uint32_t dpi) {
    static const auto forDpi = SystemFunction<int WINAPI(int, UINT)>(L"user32.dll", "GetSystemMetricsForDpi");
    return forDpi == nullptr ? GetSystemMetrics(index) : forDpi(index, dpi);
}

void KeepSystemFromRescaling(HWND dialog) {
    constexpr int DisableAll = 1;  // DDC_DISABLE_ALL
    using SetBehavior = BOOL WINAPI(HWND, int mask, int values);
    static const auto setBehavior = SystemFunction<SetBehavior>(L"user32.dll", "SetDialogDpiChangeBehavior");
    if (setBehavior != nullptr) setBehavior(dialog, DisableAll, DisableAll);
}

}  // namespace ui::win32
