#include "platform/win32/Win32Parts.h"

#include <windows.h>

#include <shellapi.h>

#include <chrono>
#include <new>

#include "platform/win32/Module.h"

namespace platform::win32 {
namespace {

constexpr int unscaledDpi = 96;

// The resolution at which the system's own metrics are given.
int SystemDpi() {
    const HDC screen = GetDC(nullptr);
    if (screen == nullptr) return unscaledDpi;
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : unscaledDpi;
}

int Metric(int index, uint32_t dpi) {
    // Not in the first editions of Windows 10, so not to be imported.
    using MetricsForDpi = int WINAPI(int index, UINT dpi);
    auto* const metricsForDpi =
        FindExport<MetricsForDpi>(GetModuleHandleW(L"user32.dll"), "GetSystemMetricsForDpi");
    const int scaled = metricsForDpi == nullptr ? 0 : metricsForDpi(index, dpi);
    if (scaled != 0) return scaled;
    return MulDiv(GetSystemMetrics(index), static_cast<int>(dpi), SystemDpi());
}

}  // namespace

int64_t Win32Clock::SecondsSince1970() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count();
}

int Win32ScreenMetrics::VerticalScrollBarWidth(uint32_t dpi) const {
    return Metric(SM_CXVSCROLL, dpi);
}

int Win32ScreenMetrics::VerticalScrollArrowHeight(uint32_t dpi) const {
    return Metric(SM_CYVSCROLL, dpi);
}

std::unique_ptr<std::byte[]> Win32Memory::Allocate(size_t bytes, Win32Code& error) {
    try {
        auto block = std::make_unique_for_overwrite<std::byte[]>(bytes);
        error = code::Success;
        return block;
    } catch (const std::bad_alloc&) {
        // What the heap leaves as the last error. By now it is lost: handling an exception resets it.
        error = code::NotEnoughMemory;
        return nullptr;
    }
}

// The browser must not get the rights of an administrator, which this program has: the desktop, which was
// started without them, opens the page when a second copy of its program asks it to.
Win32Code Win32Guide::Show(const std::wstring& page) {
    const std::wstring path = ProgramFolder() + L"\\guide\\" + page + L".html";
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return code::FileNotFound;
    std::wstring desktop(MAX_PATH, L'\0');
    desktop.resize(GetWindowsDirectoryW(desktop.data(), MAX_PATH));
    desktop += L"\\explorer.exe";
    const std::wstring quoted = L'"' + path + L'"';
    const HINSTANCE opened =
        ShellExecuteW(nullptr, nullptr, desktop.c_str(), quoted.c_str(), nullptr, SW_SHOWNORMAL);
    constexpr INT_PTR LastError = 32;
    return reinterpret_cast<INT_PTR>(opened) > LastError ? code::Success : GetLastError();
}

}  // namespace platform::win32
