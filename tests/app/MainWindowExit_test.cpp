// Leaving by the menu, which no button stands behind.
#include "tests/app/MainWindow.h"

namespace tests {
namespace {

TEST_F(MainWindowTest, ExitInTheMenuAsksBeforeItLeavesChangesBehind) {
    SeedSmallConfiguration();
    const std::string before = Dump();
    const int result = Run([&](app::CBrisgateDlg& dialog) {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Click(id::Search);
        ExpectLeaveQuestion(ui::IdNo);
        user_.ChooseMenu(command::Exit);
        ASSERT_FALSE(dialog.HasEnded());
        EXPECT_FALSE(user_.Get<ui::ListView>(id::Rules).IsChecked(0));
        ExpectLeaveQuestion(ui::IdYes);
        user_.ChooseMenu(command::Exit);
        EXPECT_TRUE(dialog.HasEnded());
    });
    EXPECT_EQ(result, ui::IdCancel);
    EXPECT_EQ(Dump(), before);
}

}  // namespace
}  // namespace tests
