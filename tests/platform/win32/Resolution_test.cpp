// What depends on the resolution, on systems of today and on the first editions of Windows 10.
#include "platform/win32/Resolution.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "tests/support/win32/ImportHook.h"

namespace tests {
namespace {

using platform::win32::DpiOf;
using platform::win32::OuterRect;
using platform::win32::SystemMetric;

constexpr DWORD Style = WS_OVERLAPPEDWINDOW;

class ResolutionTest : public testing::Test {
  protected:
    struct Destroys {
        void operator()(HWND window) const { DestroyWindow(window); }
    };
    const std::unique_ptr<std::remove_pointer_t<HWND>, Destroys> window_{CreateWindowExW(
        0, L"STATIC", L"", Style, 0, 0, 300, 200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)};
    const uint32_t dpi_ = DpiOf(window_.get());
};

FARPROC WINAPI NoSuchFunction(HMODULE /*module*/, const char* /*name*/) {
    return nullptr;
}

TEST_F(ResolutionTest, PartsOfWindowsGrowWithIt) {
    EXPECT_EQ(GetDpiForWindow(window_.get()), dpi_);
    EXPECT_EQ(DpiOf(nullptr), dpi_);
    EXPECT_EQ(SystemMetric(SM_CXICON, dpi_), GetSystemMetrics(SM_CXICON));
    EXPECT_EQ(SystemMetric(SM_CXICON, 2 * dpi_), 2 * GetSystemMetrics(SM_CXICON));
    const RECT inner{0, 0, 100, 50};
    RECT due = inner;
    AdjustWindowRectExForDpi(&due, Style, FALSE, 0, 2 * dpi_);
    const RECT outer = OuterRect(window_.get(), inner, 2 * dpi_);
    EXPECT_TRUE(EqualRect(&outer, &due));
}

// There the whole system has one resolution.
TEST_F(ResolutionTest, OldSystemsAreAskedWhatTheyKnow) {
    const ImportHook lookUp("GetProcAddress", NoSuchFunction);
    EXPECT_EQ(DpiOf(window_.get()), dpi_);
    EXPECT_EQ(SystemMetric(SM_CXICON, dpi_), GetSystemMetrics(SM_CXICON));
    EXPECT_EQ(SystemMetric(SM_CYVSCROLL, 3 * dpi_), 3 * GetSystemMetrics(SM_CYVSCROLL));
    const RECT inner{0, 0, 100, 50};
    RECT due = inner;
    AdjustWindowRectEx(&due, Style, FALSE, 0);
    const RECT outer = OuterRect(window_.get(), inner, 2 * dpi_);
    EXPECT_TRUE(EqualRect(&outer, &due));
    platform::win32::KeepSystemFromRescaling(window_.get());
}

}  // namespace
}  // namespace tests
