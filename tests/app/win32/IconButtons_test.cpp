// The icon buttons of the main window as they paint themselves, with and without an opened profile.
#include "tests/app/MainWindow.h"
#include "tests/support/win32/Pictures.h"
#include "tests/support/win32/TooltipWindow.h"
#include "tests/support/win32/Win32Robot.h"

namespace tests {
namespace {

using ui::Icon;

struct Look {
    int id;
    Icon icon;
    const wchar_t* tooltip;
    bool needsProfile = true;
};

constexpr Look Looks[]{{1021, Icon::Save, L"Save", false},
                       {1022, Icon::LogSettings, L"Log path", false},
                       {1023, Icon::RuleAdd, L"Add rule"},
                       {1037, Icon::RuleCopy, L"Copy rule"},
                       {1024, Icon::RuleEdit, L"Edit rule"},
                       {1025, Icon::RuleDelete, L"Delete rule"},
                       {1026, Icon::RuleFirst, L"Make first"},
                       {1027, Icon::RuleUp, L"Move up"},
                       {1028, Icon::RuleDown, L"Move down"},
                       {1029, Icon::RuleLast, L"Make last"},
                       {1031, Icon::ProfileAdd, L"Add profile", false},
                       {1032, Icon::ProfileEdit, L"Edit profile"},
                       {1033, Icon::ProfileDelete, L"Delete profile"},
                       {1034, Icon::RulesExport, L"Export profile rules"},
                       {1035, Icon::RulesImport, L"Import profile rules"}};

class IconButtonsOfTheMainWindow : public MainWindowTest {
  protected:
    void Check(app::CBrisgateDlg& dialog, bool profileIsOpen) {
        const HWND window = WindowOf(dialog);
        const TooltipWindow tooltips(window);
        for (const Look& look : Looks) {
            SCOPED_TRACE(look.id);
            const HWND button = GetDlgItem(window, look.id);
            const bool enabled = profileIsOpen || !look.needsProfile;
            EXPECT_EQ(IsWindowEnabled(button) != FALSE, enabled);
            EXPECT_EQ(tooltips.TextOver(button), look.tooltip);
            EXPECT_EQ(tooltips.TextAtPlaceOf(button), look.tooltip);
            auto& control = dynamic_cast<ui::IconButton&>(dialog.Find(look.id));
            EXPECT_TRUE(PaintsDrawing(button, control, look.icon)) << "picture";
        }
    }
};

TEST_F(IconButtonsOfTheMainWindow, ShowTheirPicturesAndTooltips) {
    SeedSmallConfiguration();
    Run([&](app::CBrisgateDlg& dialog) {
        constexpr int deleteProfile = 1033;
        Check(dialog, true);
        user_.ExpectBox(L"Delete profile 'Alpha'?", boxes::Question, ui::IdYes);
        user_.Click(deleteProfile);
        Check(dialog, false);
        user_.ClickRow(id::Profiles, 0);
        Check(dialog, true);
        user_.ExpectBox(boxes::LeaveText, boxes::Question, ui::IdYes);
        user_.PressCloseBox();
    });
}

}  // namespace
}  // namespace tests
