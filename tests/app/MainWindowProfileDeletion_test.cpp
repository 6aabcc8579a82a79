// Deleting profiles, as the user does it in the main window.
#include <gtest/gtest.h>

#include "tests/app/MainWindowProfiles.h"

namespace tests {
namespace {

using app::CBrisgateDlg;

using MainWindowProfileDeletion = MainWindowProfilesTest;

TEST_F(MainWindowProfileDeletion, DeletingCanBeRefused) {
    Run([&](CBrisgateDlg& dialog) {
        ExpectDeleteQuestion(L"Alpha", ui::IdNo);
        user_.Click(id::DeleteProfile);
        EXPECT_EQ(Profiles(), (Texts{L"Alpha", L"Beta"}));
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Alpha");
        ExpectProfileCommands(dialog, true);
        LeaveUnchanged();
    });
}

TEST_F(MainWindowProfileDeletion, AfterDeletingNoProfileIsOpen) {
    for (const bool byMenu : {false, true}) {
        Run([&](CBrisgateDlg& dialog) {
            user_.ClickRow(id::Profiles, 1);
            ExpectDeleteQuestion(L"Beta", ui::IdYes);
            byMenu ? user_.ChooseMenu(command::DeleteProfile) : user_.Click(id::DeleteProfile);
            EXPECT_EQ(Profiles(), Texts{L"Alpha"});
            EXPECT_EQ(SelectedProfiles(), std::vector<size_t>{});
            EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: ");
            EXPECT_EQ(user_.Text(id::CsProfileLabel), L"CS profile's num: 0");
            EXPECT_EQ(user_.RowCount(id::Rules), 0U);
            ExpectProfileCommands(dialog, false);
            user_.Type(id::Search, L"e");
            EXPECT_EQ(user_.RowCount(id::Rules), 0U);  // the last row is gone: none was opened behind it
            user_.Type(id::Search, L"");
            user_.ClickRow(id::Profiles, 0);
            EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Alpha");
            EXPECT_EQ(RuleColumn(0), (Texts{L"1", L"2", L"3"}));
            ExpectProfileCommands(dialog, true);
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowProfileDeletion, DeletingTheOnlyProfileAsksAndThenRefuses) {
    Run([&](CBrisgateDlg& dialog) {
        user_.ClickRow(id::Profiles, 0);
        Delete(L"Alpha");
        user_.ClickRow(id::Profiles, 0);
        ExpectDeleteQuestion(L"Beta", ui::IdNo);
        user_.Click(id::DeleteProfile);
        ExpectDeleteQuestion(L"Beta", ui::IdYes);
        ExpectHint(L"Last profile cannot be deleted.");
        user_.Click(id::DeleteProfile);
        EXPECT_EQ(Profiles(), Texts{L"Beta"});
        EXPECT_EQ(RuleColumn(1), Texts{L"Delete drafts"});
        ExpectProfileCommands(dialog, true);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(Dump().find("morcelservice\\Alpha"), std::string::npos);
    EXPECT_NE(Dump().find("morcelservice\\Beta\\rules\\Rule 0]"), std::string::npos);
    Run([&](CBrisgateDlg&) {
        ExpectDeleteQuestion(L"Beta", ui::IdYes);
        ExpectHint(L"Last profile cannot be deleted.");
        user_.Click(id::DeleteProfile);  // no change
        LeaveUnchanged();
    });
}

// The rows are visited one after the other; the last one visited stays the opened profile, which the search
// shows.
TEST_F(MainWindowProfileDeletion, DeletingAnyButTheLastLeavesTheLastNameOpened) {
    SeedProfiles({L"Gamma", L"Zeta"});
    for (const size_t row : {0U, 2U}) {
        Run([&](CBrisgateDlg& dialog) {
            user_.ClickRow(id::Profiles, row);
            Delete(row == 0 ? L"Alpha" : L"Gamma");
            EXPECT_EQ(user_.RowCount(id::Rules), 0U);
            EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: ");
            user_.Type(id::Search, L"of");
            EXPECT_EQ(RuleColumn(1), Texts{L"of Zeta"});
            ExpectProfileCommands(dialog, false);
            user_.ClickRow(id::Profiles, 0);
            EXPECT_EQ(RuleColumn(1), Texts{});
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowProfileDeletion, ADoubleClickBesideTheRowsEditsTheNameThatStayedOpened) {
    SeedProfiles({L"Zeta"});
    Run([&](CBrisgateDlg& dialog) {
        Delete(L"Alpha");
        ExpectNaming(L"Omega");
        dialog.Find(id::Profiles).SetFocus();
        dynamic_cast<ui::ListView&>(dialog.Find(id::Profiles)).UserDoubleClicked({});
        EXPECT_EQ(Profiles(), (Texts{L"Beta", L"Omega"}));
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Omega");
        LeaveChanged();
    });
}

TEST_F(MainWindowProfileDeletion, WithoutAnOpenedNameADoubleClickBesideTheRowsDoesNothing) {
    Run([&](CBrisgateDlg& dialog) {
        user_.ClickRow(id::Profiles, 1);
        Delete(L"Beta");
        user_.Click(id::Save);
        dynamic_cast<ui::ListView&>(dialog.Find(id::Profiles)).UserDoubleClicked({});
        LeaveUnchanged();
    });
}

// The menu greys them, but a command can also be sent to the window.
TEST_F(MainWindowProfileDeletion, WithoutAnOpenedNameTheCommandsThatNeedOneDoNothing) {
    Run([&](CBrisgateDlg& dialog) {
        user_.ClickRow(id::Profiles, 1);
        Delete(L"Beta");
        user_.Click(id::Save);
        for (const wchar_t* search : {L"", L"e"}) {
            user_.Type(id::Search, search);
            for (const ui::Menu& menu : dialog.MenuBar())
                for (const ui::MenuItem& item : menu.items)
                    if (!item.enabled) dialog.UserChoseMenu(item.command);
        }
        EXPECT_EQ(Profiles(), Texts{L"Alpha"});
        LeaveUnchanged();
    });
}

TEST_F(MainWindowProfileDeletion, TheQuestionNamesTheOpenedProfileAndTheSelectedOneGoes) {
    Run([&](CBrisgateDlg&) {
        user_.Get<ui::ListView>(id::Profiles).SelectOnly(1);
        Delete(L"Alpha");
        EXPECT_EQ(Profiles(), Texts{L"Alpha"});
        LeaveChanged();
    });
}

TEST_F(MainWindowProfileDeletion, DeletingBringsTheUserToTheProfiles) {
    for (const bool fromTheRules : {true, false}) {
        Run([&](CBrisgateDlg&) {
            user_.Click(fromTheRules ? id::Rules : id::Search);
            ExpectDeleteQuestion(L"Alpha", ui::IdYes);
            user_.ChooseMenu(command::DeleteProfile);
            EXPECT_TRUE(user_.Get<ui::ListView>(id::Profiles).HasFocus());
            EXPECT_EQ(SelectedProfiles(), std::vector<size_t>{});
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowProfileDeletion, DeletingWhileARuleHasTheFocusChangesNoOtherRule) {
    SeedProfiles({L"Zeta"});
    Run([&](CBrisgateDlg&) {
        user_.ClickCheckBox(id::Rules, 0);
        ExpectDeleteQuestion(L"Alpha", ui::IdYes);
        user_.ChooseMenu(command::DeleteProfile);
        user_.Click(id::Search);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(StoredInteger(L"SOFTWARE\\TALVERON\\morcelservice\\Zeta\\rules\\Rule 0", L"Is on"), 0);
}

TEST_F(MainWindowProfileDeletion, AManyProfiledListStaysWhereTheUserWorks) {
    Texts names;
    for (int i = 10; i < 60; ++i) names.push_back(L"P" + std::to_wstring(i));
    SeedProfiles(names);
    Run([&](CBrisgateDlg&) {
        ExpectNaming(L"New");
        user_.Click(id::AddProfile);
        EXPECT_EQ(user_.Get<ui::ListView>(id::Profiles).ScrollTarget(), 52U);
        user_.ClickRow(id::Profiles, 40);
        Delete(L"P48");
        EXPECT_EQ(user_.Get<ui::ListView>(id::Profiles).ScrollTarget(), 40U);
        user_.ClickRow(id::Profiles, 51);
        Delete(L"New");
        EXPECT_EQ(user_.Get<ui::ListView>(id::Profiles).ScrollTarget(), 50U);
        LeaveChanged();
    });
}

}  // namespace
}  // namespace tests
