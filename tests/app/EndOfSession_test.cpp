// What the main window says when the system asks whether the user's session may end.
#include <gtest/gtest.h>

#include <functional>

#include "app/AboutDlg.h"
#include "editors/MaskList.h"
#include "settings/ConfigPage.h"
#include "settings/ConflictDlg.h"
#include "tests/app/MainWindowProfiles.h"
#include "tests/app/MainWindowRules.h"

namespace tests {
namespace {

class EndOfSession : public MainWindowRulesTest {
  protected:
    // Works in the main window and leaves, whatever has changed.
    void Work(const std::function<void()>& script) {
        Run([&] {
            main_ = &user_.Top();
            script();
            if (MayEnd()) return LeaveUnchanged();
            LeaveChanged();
        });
    }
    bool MayEnd() const {
        const wchar_t* const reason = main_->ReasonToStay();
        if (reason == nullptr) return true;
        EXPECT_STREQ(reason, L"Some changes has not been saved.");
        return false;
    }
    // The gesture opens the form, and the user gives it up.
    template <class Form>
    void ExpectHeldUpWhileOpen(const std::function<void()>& open) {
        SCOPED_TRACE(typeid(Form).name());
        bool looked = false;
        user_.Expect<Form>([&](Form& form) {
            looked = true;
            EXPECT_FALSE(MayEnd());
            EXPECT_EQ(form.ReasonToStay(), nullptr) << "the main window speaks for all";
            user_.Click(ui::IdCancel);
        });
        EXPECT_TRUE(MayEnd());
        open();
        EXPECT_TRUE(looked);
        EXPECT_TRUE(MayEnd());
    }

    ui::Dialog* main_ = nullptr;
};

TEST_F(EndOfSession, IsHeldUpByChangesUntilTheyAreSaved) {
    Work([this] {
        EXPECT_TRUE(MayEnd());
        Select({0});
        user_.Click(id::MoveDown);
        EXPECT_FALSE(MayEnd());
        user_.Click(id::Save);
        EXPECT_TRUE(MayEnd());
    });
}

TEST_F(EndOfSession, IsHeldUpByChangesThatCouldNotBeSaved) {
    Work([this] {
        Select({0});
        user_.Click(id::MoveDown);
        world_->Registry().FailWhere(platform::memory::RegistryCall::Open, L"morcelservice", 5);
        user_.ExpectBoxBeginning(L"Create (open) register key ", ui::box::ErrorIcon, ui::IdOk);
        user_.Click(id::Save);
        world_->Registry().NoFaults();
        EXPECT_FALSE(MayEnd());
    });
}

TEST_F(EndOfSession, IsHeldUpByATickThatIsNotTakenOverYet) {
    Work([this] {
        user_.ClickCheckBox(id::Rules, 1);
        EXPECT_FALSE(MayEnd());
        user_.ClickCheckBox(id::Rules, 1);
        EXPECT_TRUE(MayEnd()) << "the box is as it was";
        user_.ClickCheckBox(id::Rules, 2);
        user_.ChooseMenu(command::Save);
        EXPECT_TRUE(MayEnd());
    });
}

// Rows and rules do not have the same numbers then.
TEST_F(EndOfSession, IsHeldUpByATickMadeWhileASearchHidesRules) {
    rules_.front().IsOn = 0;
    Store();
    Work([this] {
        user_.Type(id::Search, L"c");
        ASSERT_EQ(user_.RowCount(id::Rules), 1U);
        user_.ClickRow(id::Rules, 0);
        EXPECT_TRUE(MayEnd());
        user_.ClickCheckBox(id::Rules, 0);
        EXPECT_FALSE(MayEnd());
        user_.ClickCheckBox(id::Rules, 0);
        EXPECT_TRUE(MayEnd());
    });
}

TEST_F(EndOfSession, IsHeldUpByEveryFormWithEdits) {
    Work([this] {
        ExpectHeldUpWhileOpen<editors::CAddRule>([this] { user_.Click(id::AddRule); });
        ExpectHeldUpWhileOpen<editors::CAddRule>([this] { user_.DoubleClickRow(id::Rules, 0); });
        ExpectHeldUpWhileOpen<editors::CAddProfile>([this] { user_.Click(id::AddProfile); });
        ExpectHeldUpWhileOpen<editors::CAddProfile>([this] { user_.Click(id::EditProfile); });
        ExpectHeldUpWhileOpen<settings::CConflictDlg>([this] { user_.Click(id::LogPath); });
        ExpectHeldUpWhileOpen<settings::CConfigPage>([this] { user_.ChooseMenu(command::Configurations); });
    });
}

TEST_F(EndOfSession, IsHeldUpByAFormWhileAnotherIsAboveIt) {
    Work([this] {
        user_.Expect<editors::CAddRule>([this](editors::CAddRule&) {
            user_.Expect<editors::AddMask>([this](editors::AddMask&) {
                EXPECT_FALSE(MayEnd());
                user_.Click(ui::IdCancel);
            });
            user_.Click(ruleid::AddMask);
            EXPECT_FALSE(MayEnd());
            user_.Click(ui::IdCancel);
        });
        user_.DoubleClickRow(id::Rules, 0);
    });
}

TEST_F(EndOfSession, IsNotHeldUpByABoxWithoutEdits) {
    Work([this] {
        user_.Expect<app::CAboutDlg>([this](app::CAboutDlg&) {
            EXPECT_TRUE(MayEnd());
            user_.Click(ui::IdOk);
        });
        user_.ChooseSystemMenu(command::About);
    });
}

}  // namespace
}  // namespace tests
