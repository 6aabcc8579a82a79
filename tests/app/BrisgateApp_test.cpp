#include "app/BrisgateApp.h"

#include <gtest/gtest.h>

#include "app/AboutDlg.h"
#include "app/BrisgateDlg.h"
#include "editors/AddProfile.h"
#include "errors/MessageBoxes.h"
#include "platform/memory/MemoryMachine.h"
#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"
#include "tests/support/MachineWith.h"

namespace tests {
namespace {

using ui::box::ErrorIcon;
using ui::box::ExclamationIcon;
using ui::box::Ok;

constexpr char minimalLibrary[] =
    "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles\\1]\nProfileName = \"Office\"\nBasePath = "
    "\"C:\\Keys\"\n";

// The program as it starts, with an instance lock that tests can set.
class StartTest : public WorldTest {
  protected:
    void Start() {
        const platform::Machine machine = MachineWith(world_->Machine(), {.InstanceLock = &lock_});
        app::CBrisgateApp(machine, world_->Screen(), guide_).InitInstance();
    }

    platform::memory::MemoryInstanceLock lock_;
    platform::memory::MemoryGuide guide_;
};

TEST_F(StartTest, HoldsTheLockWhileTheMainDialogIsOpen) {
    Seed(minimalLibrary);
    user_.Expect<app::CBrisgateDlg>([this](app::CBrisgateDlg&) {
        EXPECT_EQ(lock_.Held(), errors::ProgramTitle);
        user_.PressCloseBox();
    });
    Start();
    EXPECT_FALSE(lock_.Held());
}

// The picker, say, of a system that lacks a part of itself: the command ends, the program goes on.
TEST_F(StartTest, ADialogOfTheSystemThatDoesNotComeUpIsReported) {
    Seed(minimalLibrary);
    user_.Expect<app::CBrisgateDlg>([this](app::CBrisgateDlg& dialog) {
        ExpectReport(L"Opening the folder dialog", 0x80040154);
        const ui::ScreenError error(0x80040154, L"Opening the folder dialog");
        EXPECT_TRUE(world_->Screen().ReportFailure(dialog, &error));
        EXPECT_FALSE(dialog.HasEnded());
        user_.PressCloseBox();
    });
    Start();
}

TEST_F(StartTest, F1ShowsThePageOfTheGuideThatExplainsTheForm) {
    Seed(minimalLibrary);
    user_.Expect<app::CBrisgateDlg>([this](app::CBrisgateDlg&) {
        user_.Press(Key::F1);
        EXPECT_EQ(guide_.Shown(), L"index");
        user_.Expect<editors::CAddProfile>([this](editors::CAddProfile&) {
            user_.Press(Key::F1);
            EXPECT_EQ(guide_.Shown(), L"profiles");
            user_.Press(Key::Escape);
        });
        user_.ChooseMenu(command::AddProfile);
        guide_.Fail(2);
        for (int time = 0; time < 2; ++time) {
            ExpectHint(L"The guide cannot be opened. It belongs into the folder \"guide\" beside the program.");
            user_.Press(Key::F1);
        }
        EXPECT_EQ(guide_.Shown(), L"profiles");
        user_.PressCloseBox();
    });
    Start();
}

TEST_F(StartTest, ASecondCopySaysSoAndTouchesNoRegistry) {
    Seed(minimalLibrary);
    world_->Registry().ForgetCalls();
    lock_.HoldByAnother(errors::ProgramTitle);
    ExpectHint(L"ZEMA AC QLD Service - configuration allready started");
    Start();
    EXPECT_TRUE(world_->Registry().Calls().empty());
    EXPECT_FALSE(lock_.Held());
}

TEST_F(StartTest, AFailingLockIsReportedAndEndsTheProgram) {
    Seed(minimalLibrary);
    world_->Registry().ForgetCalls();
    lock_.FailAcquire(5);
    ExpectReport(L"Create programm process mutex", 5);
    Start();
    EXPECT_TRUE(world_->Registry().Calls().empty());
}

TEST_F(StartTest, AFailedLoadIsReportedOnceAndReleasesTheLock) {
    ExpectReport(L"Create (open) register key HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles", 2);
    Start();
    EXPECT_FALSE(lock_.Held());
}

TEST_F(StartTest, AFirstRunWithoutACsProfileSaysWhatToDo) {
    Seed("[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles]\n");
    user_.ExpectBox(
        L"The program has to end.\r\n"
        L"There is no CS profile: set one up with the tools of the library and start the program anew.",
        Ok | ErrorIcon, ui::IdOk, boxes::Title);
    Start();
    EXPECT_FALSE(lock_.Held());
}

TEST_F(WorldTest, EnterClosesTheAboutBox) {
    user_.Expect<app::CAboutDlg>([this](app::CAboutDlg&) { user_.Press(Key::Enter); });
    EXPECT_EQ(app::CAboutDlg(world_->Screen(), nullptr).DoModal(), ui::IdOk);
}

}  // namespace
}  // namespace tests
