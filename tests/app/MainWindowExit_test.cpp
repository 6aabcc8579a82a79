// Leaving by the menu, which no button stands behind.
#include "tests/app/MainWindow.h"

namespace tests {
namespace {

TEST_F(MainWindowTest, ExitInTheMenuAsksBeforeItLeavesChangesBehind) {
    constexpr int exit = 32788;
    SeedSmallConfiguration();
    const std::string before = Dump();
    const int result = Run([&](app::CBrisgateDlg& dialog) {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Click(id::Search);
        user_.ExpectBox(boxes::LeaveText, boxes::Question, ui::IdNo, boxes::Title);
        user_.ChooseMenu(exit);
        ASSERT_FALSE(dialog.HasEnded());
        EXPECT_FALSE(user_.Get<ui::ListView>(id::Rules).IsChecked(0));
        user_.ExpectBox(boxes::LeaveText, boxes::Question, ui::IdYes, boxes::Title);
        user_.ChooseMenu(exit);
        EXPECT_TRUE(dialog.HasEnded());
    });
    EXPECT_EQ(result, ui::IdCancel);
    EXPECT_EQ(Dump(), before);
}

}  // namespace
}  // namespace tests
