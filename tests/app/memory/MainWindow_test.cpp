// What a real system shows of the main window and no test can see there: for how long its reason for holding
// up the end of the session, and whose a report is while it is opening.
#include "tests/app/MainWindow.h"

#include "ui/memory/MemoryScreen.h"

namespace tests {
namespace {

TEST_F(MainWindowTest, TheReasonToStayIsShownUntilTheNextSave) {
    constexpr wchar_t reason[] = L"Some changes has not been saved.";
    SeedSmallConfiguration();
    Run([&](app::CBrisgateDlg& dialog) {
        auto& window = *dynamic_cast<ui::memory::MemoryScreen&>(world_->Screen().Real()).WindowOf(dialog);
        EXPECT_TRUE(window.UserEndsSession());
        EXPECT_EQ(window.ShownReasonToStay(), L"");
        user_.ClickCheckBox(id::Rules, 0);
        EXPECT_FALSE(window.UserEndsSession());
        EXPECT_EQ(window.ShownReasonToStay(), reason);
        world_->Registry().FailWhere(platform::memory::RegistryCall::Open, L"morcelservice", 5);
        user_.ExpectBoxBeginning(L"Create (open) register key ", ui::box::ErrorIcon, ui::IdOk);
        user_.Click(id::Save);
        world_->Registry().NoFaults();
        EXPECT_EQ(window.ShownReasonToStay(), reason);
        user_.Click(id::Save);
        EXPECT_EQ(window.ShownReasonToStay(), L"");
        EXPECT_TRUE(window.UserEndsSession());
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowTest, AReportOfLoadingBelongsToIt) {
    app::CBrisgateDlg dialog(services_);
    user_.ExpectBoxBeginning(L"Create (open) register key ", ui::box::ErrorIcon, ui::IdOk);
    EXPECT_EQ(dialog.DoModal(), ui::IdCancel);
    EXPECT_EQ(dynamic_cast<ui::memory::MemoryScreen&>(world_->Screen().Real()).LastOwner(), &dialog);
}

}  // namespace
}  // namespace tests
