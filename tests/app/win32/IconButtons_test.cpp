// The icon buttons of the main window as they paint themselves, with and without an opened profile.
#include <algorithm>

#include "tests/app/MainWindow.h"
#include "tests/support/win32/Pictures.h"
#include "tests/support/win32/TooltipWindow.h"
#include "tests/support/win32/Win32Robot.h"

namespace tests {
namespace {

class IconButtonsOfTheMainWindow : public MainWindowTest {
  protected:
    void Check(app::CBrisgateDlg& dialog, bool profileIsOpen) {
        const HWND window = WindowOf(dialog);
        const TooltipWindow tooltips(window);
        size_t seen = 0;
        for (ui::Control* control : dialog.Controls()) {
            auto* const button = dynamic_cast<ui::IconButton*>(control);
            if (button == nullptr) continue;
            SCOPED_TRACE(button->Id());
            ++seen;
            const HWND shown = GetDlgItem(window, button->Id());
            const bool needsProfile = std::ranges::find(id::NeedProfile, button->Id()) != id::NeedProfile.end();
            EXPECT_EQ(IsWindowEnabled(shown) != FALSE, profileIsOpen || !needsProfile);
            EXPECT_EQ(tooltips.TextOver(shown), button->Tooltip());
            EXPECT_EQ(tooltips.TextAtPlaceOf(shown), button->Tooltip());
            EXPECT_TRUE(PaintsDrawing(shown, *button, button->Icon())) << "picture";
        }
        EXPECT_EQ(seen, 15U);
    }
};

TEST_F(IconButtonsOfTheMainWindow, ShowTheirPicturesAndTooltips) {
    SeedSmallConfiguration();
    Run([&](app::CBrisgateDlg& dialog) {
        Check(dialog, true);
        ExpectQuestion(L"Delete profile 'Alpha'?", ui::IdYes);
        user_.Click(id::DeleteProfile);
        Check(dialog, false);
        user_.ClickRow(id::Profiles, 0);
        Check(dialog, true);
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

}  // namespace
}  // namespace tests
