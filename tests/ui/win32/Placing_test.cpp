// Where dialogs open of which nobody says where.
#include "ui/win32/Placing.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <type_traits>
#include <utility>

#include "tests/support/win32/WindowsHabits.h"

namespace tests {
namespace {

struct WindowEnder {
    void operator()(HWND window) const { DestroyWindow(window); }
};
using OwnWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowEnder>;

OwnWindow Make(DWORD style, const ui::Rect& place, HWND owner = nullptr) {
    return OwnWindow(CreateWindowExW(0, WC_STATICW, L"", style, place.x, place.y, place.width, place.height, owner,
                                     nullptr, nullptr, nullptr));
}

// Where the user looks, and never in part where he cannot look.
TEST(Placing, IsOverTheMiddleOfTheOwnerIfThatIsSeenElseOfTheScreen) {
    const auto middleAfter = [](HWND window, HWND owner, int showing, const ui::Rect& ownerPlace) {
        ShowWindow(owner, SW_RESTORE);
        SetWindowPos(owner, nullptr, ownerPlace.x, ownerPlace.y, ownerPlace.width, ownerPlace.height, SWP_NOZORDER);
        ShowWindow(owner, showing);
        ui::win32::CenterOnOwner(window);
        const auto [x, y, width, height] = ui::win32::NormalRectOf(window);
        EXPECT_EQ((ui::Size{width, height}), (ui::Size{100, 50}));
        return std::pair(x + 50, y + 25);
    };
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(nullptr, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& screen = monitor.rcWork;
    const std::pair middle(static_cast<int>(screen.left + screen.right) / 2,
                           static_cast<int>(screen.top + screen.bottom) / 2);

    const OwnWindow owner = Make(WS_OVERLAPPEDWINDOW, {0, 0, 200, 300});
    const OwnWindow window = Make(WS_POPUP, {7, 7, 100, 50}, owner.get());
    const ui::Rect place{120, 90, 200, 300};
    EXPECT_EQ(middleAfter(window.get(), owner.get(), SW_SHOWNA, place), std::pair(220, 240));
    EXPECT_EQ(middleAfter(window.get(), owner.get(), SW_HIDE, place), middle);
    EXPECT_EQ(middleAfter(window.get(), owner.get(), SW_MINIMIZE, place), middle);
    EXPECT_EQ(middleAfter(window.get(), owner.get(), SW_SHOWNA, {-180, -290, 200, 300}), std::pair(50, 25));
    EXPECT_EQ(middleAfter(window.get(), owner.get(), SW_SHOWNA, {screen.right - 20, screen.bottom - 10, 200, 300}),
              std::pair(static_cast<int>(screen.right) - 50, static_cast<int>(screen.bottom) - 25));

    const OwnWindow alone = Make(WS_POPUP, {7, 7, 100, 50});
    EXPECT_EQ(middleAfter(alone.get(), nullptr, SW_HIDE, place), middle);
    const WindowsHabits habits(192);  // with a second monitor
    constexpr int Second = WindowsHabits::SecondMonitor;
    EXPECT_EQ(middleAfter(window.get(), owner.get(), SW_HIDE, {Second, 0, 200, 300}), std::pair(Second + 1280, 1024));
    SetWindowPos(alone.get(), nullptr, Second, 0, 100, 50, SWP_NOZORDER);
    EXPECT_EQ(middleAfter(alone.get(), nullptr, SW_HIDE, place), std::pair(Second + 1280, 1024));
}

}  // namespace
}  // namespace tests
