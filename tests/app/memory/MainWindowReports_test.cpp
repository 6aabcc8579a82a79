// While the main window is opening the user does not work with it yet, and is told all the same whose the
// report is.
#include "tests/app/MainWindow.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {
namespace {

TEST_F(MainWindowTest, AReportOfLoadingBelongsToIt) {
    app::CBrisgateDlg dialog(services_);
    user_.ExpectBoxBeginning(L"Create (open) register key ", ui::box::ErrorIcon, ui::IdOk);
    EXPECT_EQ(dialog.DoModal(), ui::IdCancel);
    EXPECT_EQ(dynamic_cast<ui::memory::MemoryScreen&>(world_->Screen()).LastOwner(), &dialog);
}

}  // namespace
}  // namespace tests
