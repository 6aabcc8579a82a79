// The main window's saved rectangle where it lies on a monitor with another resolution.
#include <windows.h>

#include "settings/ConflictDlg.h"
#include "tests/app/MainWindow.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/support/win32/WindowsHabits.h"
#include "ui/win32/Placing.h"

namespace tests {
namespace {

class SavedPlace : public MainWindowTest {
  protected:
    using Told = WindowsHabits::Told;
    static constexpr ui::Rect saved{WindowsHabits::SecondMonitor + 20, 50, 1201, 703};

    SavedPlace() {
        SeedSmallConfiguration();
        Save(saved);
    }
    void Save(const ui::Rect& rect) {
        Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nWindow_left = " + std::to_string(rect.x) +
             "\nWindow_top = " + std::to_string(rect.y) + "\nWindow_right = " + std::to_string(rect.x + rect.width) +
             "\nWindow_bottom = " + std::to_string(rect.y + rect.height) + "\n");
    }
    ui::Rect Stored() {
        const int left = StoredInteger(ServiceRoot, L"Window_left");
        const int top = StoredInteger(ServiceRoot, L"Window_top");
        return {left, top, StoredInteger(ServiceRoot, L"Window_right") - left,
                StoredInteger(ServiceRoot, L"Window_bottom") - top};
    }
};

TEST_F(SavedPlace, OnAnotherMonitorIsTakenToThePixelStartAfterStart) {
    for (const Told told : {Told::AtOnce, Told::BeforeItIsShown})
        for (const uint32_t dpi : {72U, 120U}) {
            SCOPED_TRACE(testing::PrintToString(dpi) + (told == Told::AtOnce ? " at once" : " later"));
            const WindowsHabits habits(dpi, told);
            for (int start = 0; start < 3; ++start) {
                Run([&](app::CBrisgateDlg& dialog) {
                    EXPECT_EQ(dialog.Dpi(), dpi);
                    EXPECT_EQ(ui::win32::NormalRectOf(WindowOf(dialog)), saved);
                    user_.Click(ui::IdOk);
                });
                EXPECT_EQ(Stored(), saved);
            }
        }
}

// Smaller than the smallest window of the monitor that the program starts on.
TEST_F(SavedPlace, MayBeSmallerThanAWindowCanBeOnTheFirstMonitor) {
    const WindowsHabits habits(72);
    constexpr ui::Rect small{WindowsHabits::SecondMonitor + 20, 50, 700, 300};
    Save(small);
    Run([&](app::CBrisgateDlg& dialog) {
        const ui::Size limit = dialog.MinimumTrackSize();
        EXPECT_LE(limit.width, small.width);
        EXPECT_LE(limit.height, small.height);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(Stored(), small);
}

// Forms open on the first monitor and then come to the window that they belong to.
TEST_F(SavedPlace, FormsOpenOverTheMiddleOfAWindowOnAnotherMonitor) {
    const WindowsHabits habits(144);
    Save({WindowsHabits::SecondMonitor + 20, 100, 1210, 800});
    Run([&](app::CBrisgateDlg& dialog) {
        const RECT owner = [&] {
            RECT outer{};
            GetWindowRect(WindowOf(dialog), &outer);
            return outer;
        }();
        user_.Expect<settings::CConflictDlg>([&](settings::CConflictDlg& form) {
            EXPECT_EQ(form.Dpi(), 144U);
            RECT outer{};
            GetWindowRect(WindowOf(form), &outer);
            EXPECT_NEAR(outer.left + outer.right, owner.left + owner.right, 2);
            EXPECT_NEAR(outer.top + outer.bottom, owner.top + owner.bottom, 2);
            user_.PressCloseBox();
        });
        user_.Click(id::LogPath);
        user_.PressCloseBox();
    });
}

}  // namespace
}  // namespace tests
