#include "app/BrisgateApp.h"

#include <gtest/gtest.h>

#include "app/AboutDlg.h"
#include "app/BrisgateDlg.h"
#include "editors/AddProfile.h"
#include "errors/MessageBoxes.h"
#include "platform/memory/MemoryMachine.h"
#include "tests/support/Fixture.h"

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
        platform::Machine& real = world_->Machine();
        const platform::Machine machine{real.Registry,       real.Files,  real.CodePage,
                                        real.SystemMessages, real.Clock,  lock_,
                                        real.ScreenMetrics,  real.Memory, real.CryptoLibrary};
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
        user_.ExpectBoxBeginning(L"Opening the folder dialog.\r\nError 0x80040154 - ", Ok | ErrorIcon,
                                 ui::IdOk);
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
        user_.ChooseMenu(32808);
        guide_.Fail(2);
        for (int time = 0; time < 2; ++time) {
            user_.ExpectBox(
                L"The guide cannot be opened. It belongs into the folder \"guide\" beside the program.",
                Ok | ExclamationIcon, ui::IdOk);
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
    user_.ExpectBox(L"ZEMA AC QLD Service - configuration allready started", Ok | ExclamationIcon, ui::IdOk);
    Start();
    EXPECT_TRUE(world_->Registry().Calls().empty());
    EXPECT_FALSE(lock_.Held());
}

TEST_F(StartTest, AFailingLockIsReportedAndEndsTheProgram) {
    Seed(minimalLibrary);
    world_->Registry().ForgetCalls();
    lock_.FailAcquire(5);
    user_.ExpectBoxBeginning(L"Create programm process mutex.\r\nError 0x5 - ", Ok | ErrorIcon, ui::IdOk);
    Start();
    EXPECT_TRUE(world_->Registry().Calls().empty());
}

TEST_F(StartTest, AFailedLoadIsReportedOnceAndReleasesTheLock) {
    user_.ExpectBoxBeginning(
        L"Create (open) register key HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles.\r\nError 0x2 "
        L"- ",
        Ok | ErrorIcon, ui::IdOk);
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

TEST_F(WorldTest, TheAboutBoxTellsCompanyProductAndVersion) {
    user_.Expect<app::CAboutDlg>([this](app::CAboutDlg& about) {
        EXPECT_EQ(about.Caption(), L"About programm...");
        EXPECT_EQ(user_.Text(1201), L"Talveron LLC");
        EXPECT_EQ(user_.Text(1202), L"Client QLD");
        EXPECT_EQ(user_.Text(1203), L"ZEMA AC QLD Service - configuration (x64) Version 1.0.0453.0");
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(app::CAboutDlg(world_->Screen(), nullptr).DoModal(), ui::IdOk);
}

}  // namespace
}  // namespace tests
