// Opening, adding and editing profiles, as the user does it in the main window.
#include <gtest/gtest.h>

#include "editors/AddProfile.h"
#include "tests/app/MainWindowProfiles.h"

namespace tests {
namespace {

using app::CBrisgateDlg;
using editors::CAddProfile;

// A profile that has been added stays closed, although its row may be selected by the program.
TEST_F(MainWindowProfilesTest, OpeningIsAlsoACommandAndAHiddenButton) {
    Run([&](CBrisgateDlg& dialog) {
        auto& profiles = user_.Get<ui::ListView>(id::Profiles);
        profiles.SelectOnly(1);
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Alpha");
        dialog.UserChoseMenu(command::OpenProfile);
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Beta");
        EXPECT_EQ(RuleColumn(1), Texts{L"Delete drafts"});
        profiles.SelectOnly(0);
        dynamic_cast<ui::Button&>(dialog.Find(id::OpenProfile)).UserClicked();
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Alpha");
        EXPECT_EQ(user_.Text(id::CsProfileLabel), L"CS profile's num: 2");
        LeaveUnchanged();
    });
}

TEST_F(MainWindowProfilesTest, AKeyThatSelectsAProfileOpensIt) {
    SeedProfiles({L"Gamma"});
    Run([&](CBrisgateDlg&) {
        const auto expectOpened = [this](const std::wstring& name) {
            EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: " + name);
        };
        user_.Press(Key::Down);
        expectOpened(L"Beta");
        EXPECT_EQ(RuleColumn(1), Texts{L"Delete drafts"});
        user_.Press(Key::End);
        expectOpened(L"Gamma");
        EXPECT_EQ(RuleColumn(1), Texts{L"of Gamma"});
        user_.Press(Key::Up);
        expectOpened(L"Beta");
        user_.Press(Key::Home);
        expectOpened(L"Alpha");
        ExpectDeleteQuestion(L"Alpha", ui::IdNo);
        user_.Click(id::DeleteProfile);
        LeaveUnchanged();
    });
}

// The same row again: whoever only presses a key at the end of the list keeps what he has selected in the
// rules.
TEST_F(MainWindowProfilesTest, AKeyThatSelectsNothingNewOpensNothing) {
    Run([&](CBrisgateDlg&) {
        user_.ClickRow(id::Rules, 1);
        user_.Click(id::Profiles);
        user_.Press(Key::Home);
        EXPECT_TRUE(user_.Get<ui::ListView>(id::Rules).IsSelected(1));
        LeaveUnchanged();
    });
}

TEST_F(MainWindowProfilesTest, AClickBesideTheProfilesKeepsTheRules) {
    Run([&](CBrisgateDlg&) {
        user_.ClickRow(id::Profiles, 1);
        user_.ClickBelowRows(id::Profiles);
        EXPECT_EQ(SelectedProfiles(), std::vector<size_t>{});
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Beta");
        EXPECT_EQ(RuleColumn(1), Texts{L"Delete drafts"});
        user_.Click(id::DeleteProfile);  // nothing to delete
        LeaveUnchanged();
    });
}

TEST_F(MainWindowProfilesTest, AddingAppendsTheProfileAndKeepsTheOpenedOne) {
    for (const bool byMenu : {false, true}) {
        Run([&](CBrisgateDlg& dialog) {
            user_.ClickRow(id::Profiles, 1);
            ExpectEditor([&](CAddProfile& editor) {
                EXPECT_EQ(editor.Caption(), L"Add profile");
                EXPECT_EQ(editor.Parent(), &dialog);
                EXPECT_EQ(user_.Get<ui::ListBox>(profileid::CsProfiles).Items(), Texts{L"Office"});
                user_.Type(profileid::Name, L"Aaa");
                user_.Click(ui::IdOk);
            });
            byMenu ? user_.ChooseMenu(command::AddProfile) : user_.Click(id::AddProfile);
            EXPECT_EQ(Profiles(), (Texts{L"Alpha", L"Beta", L"Aaa"}));
            EXPECT_EQ(SelectedProfiles(), std::vector<size_t>{1});
            EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Beta");
            EXPECT_EQ(RuleColumn(1), Texts{L"Delete drafts"});
            user_.ClickRow(id::Profiles, 2);
            EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Aaa");
            EXPECT_EQ(user_.Text(id::CsProfileLabel), L"CS profile's num: 1");
            EXPECT_EQ(user_.RowCount(id::Rules), 0U);
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowProfilesTest, AddingCanBeGivenUp) {
    Run([&](CBrisgateDlg&) {
        ExpectEditor([&](CAddProfile&) {
            user_.Type(profileid::Name, L"New");
            user_.Press(Key::Escape);
        });
        user_.Click(id::AddProfile);
        EXPECT_EQ(Profiles(), (Texts{L"Alpha", L"Beta"}));
        LeaveUnchanged();
    });
}

TEST_F(MainWindowProfilesTest, TheEditorKnowsTheNamesOfAllProfiles) {
    Run([&](CBrisgateDlg&) {
        ExpectNaming(L"New");
        user_.Click(id::AddProfile);
        ExpectEditor([&](CAddProfile&) {
            for (const wchar_t* taken : {L"Alpha", L"Beta", L"New"}) {
                user_.Type(profileid::Name, taken);
                ExpectHint(std::wstring(L"Profile '") + taken + L"' allready exists.");
                user_.Click(ui::IdOk);
            }
            user_.Press(Key::Escape);
        });
        user_.Click(id::AddProfile);
        LeaveChanged();
    });
}

TEST_F(MainWindowProfilesTest, AddedProfilesAreSavedWithTheirDefaults) {
    Run([&](CBrisgateDlg&) {
        ExpectNaming(L"New");
        user_.Click(id::AddProfile);
        user_.Click(id::Save);
        LeaveUnchanged();
    });
    const std::string dump = Dump();
    const size_t at = dump.find("morcelservice\\New]");
    ASSERT_NE(at, std::string::npos);
    const std::string key = dump.substr(at, dump.find("\n\n", at) - at);
    for (const char* value :
         {"ZCSProfile = { \"Office\" }", "ServerTSP = { \"0\" }", "NotUseLDAP = { \"1\" }", "NotAddCert = { \"0\" }",
          "CrlUpdatePeriod = { \"1\" }", "Handler timeout = 15", "Rename conf files = 0"})
        EXPECT_NE(key.find(value), std::string::npos) << value << " in " << key;
    EXPECT_NE(dump.find("morcelservice\\New\\rules]"), std::string::npos);
}

TEST_F(MainWindowProfilesTest, EditingOpensTheEditorOnTheOpenedProfile) {
    Run([&](CBrisgateDlg& dialog) {
        user_.ClickRow(id::Profiles, 1);
        const auto expectBeta = [&] {
            ExpectEditor([&](CAddProfile& editor) {
                EXPECT_EQ(editor.Caption(), L"Edit profile");
                EXPECT_EQ(editor.Parent(), &dialog);
                EXPECT_EQ(user_.Text(profileid::Name), L"Beta");
                EXPECT_EQ(user_.Get<ui::ListBox>(profileid::CsProfiles).Items(), Texts{L"Bank"});
                user_.Type(profileid::Name, L"Other");
                user_.Press(Key::Escape);
            });
        };
        expectBeta();
        user_.Click(id::EditProfile);
        expectBeta();
        user_.ChooseMenu(command::EditProfile);
        user_.ClickRow(id::Profiles, 0);
        expectBeta();
        user_.DoubleClickRow(id::Profiles, 1);  // the first click of the two opens it
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Beta");
        EXPECT_EQ(Profiles(), (Texts{L"Alpha", L"Beta"}));
        LeaveUnchanged();
    });
}

TEST_F(MainWindowProfilesTest, EditingWorksOnTheOpenedProfileWhateverIsSelected) {
    Run([&](CBrisgateDlg&) {
        user_.Get<ui::ListView>(id::Profiles).SelectOnly(1);
        ExpectNaming(L"First");
        user_.Click(id::EditProfile);
        EXPECT_EQ(Profiles(), (Texts{L"First", L"Beta"}));
        EXPECT_EQ(SelectedProfiles(), std::vector<size_t>{1});
        LeaveChanged();
    });
}

TEST_F(MainWindowProfilesTest, ARenamedProfileShowsItsNewNameAtOnce) {
    const std::string before = Dump();
    Run([&](CBrisgateDlg&) {
        user_.ClickRow(id::Profiles, 1);
        ExpectNaming(L"Gamma");
        user_.Click(id::EditProfile);
        EXPECT_EQ(Profiles(), (Texts{L"Alpha", L"Gamma"}));
        EXPECT_EQ(SelectedProfiles(), std::vector<size_t>{1});
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: Gamma");
        EXPECT_EQ(user_.Text(id::CsProfileLabel), L"CS profile's num: 1");
        EXPECT_EQ(RuleColumn(1), Texts{L"Delete drafts"});
        EXPECT_EQ(Dump(), before);
        ExpectNaming(L"Delta");  // it is still the opened one
        user_.Click(id::EditProfile);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(Dump().find("morcelservice\\Beta"), std::string::npos);
    EXPECT_EQ(Dump().find("morcelservice\\Gamma"), std::string::npos);
    EXPECT_NE(Dump().find("morcelservice\\Delta\\rules\\Rule 0]"), std::string::npos);
}

TEST_F(MainWindowProfilesTest, AcceptingIsAChangeEvenWhereNothingWasChanged) {
    Run([&](CBrisgateDlg&) {
        ExpectEditor([this](CAddProfile&) { user_.Click(ui::IdOk); });
        user_.ClickRow(id::Rules, 1);
        user_.Click(id::EditProfile);
        EXPECT_EQ(RuleColumn(0), (Texts{L"1", L"2", L"3"}));
        EXPECT_EQ(user_.Get<ui::ListView>(id::Rules).FirstSelected(), std::nullopt);  // filled anew
        LeaveChanged();
    });
}

TEST_F(MainWindowProfilesTest, TheSearchStaysInForceAfterEditing) {
    Run([&](CBrisgateDlg&) {
        user_.Type(id::Search, L"mail");
        ExpectEditor([this](CAddProfile&) { user_.Click(ui::IdOk); });
        user_.Click(id::EditProfile);
        EXPECT_EQ(RuleColumn(0), Texts{L"3"});
        LeaveChanged();
    });
}

TEST_F(MainWindowProfilesTest, RulesOfARemovedStoreProfileGoToTheFirst) {
    Seed(R"([HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules\Rule 2]
Operation = "RESG"
ZCSProfile = "Bank"
ResignProfile = "Office"
Ext num = 1
C0 = "CN=Boris"
)");
    Run([&](CBrisgateDlg&) {
        ExpectEditor([this](CAddProfile&) {
            DeleteOffice();
            user_.Click(ui::IdOk);
        });
        user_.Click(id::EditProfile);
        EXPECT_EQ(user_.Text(id::CsProfileLabel), L"CS profile's num: 1");
        EXPECT_EQ(RuleColumn(7), (Texts{L"Bank", L"", L"Bank"}));
        user_.Click(ui::IdOk);
    });
    const std::string dump = Dump();
    EXPECT_NE(dump.find("ResignProfile = \"Bank\""), std::string::npos);
    EXPECT_EQ(dump.find("\"Office\""), std::string::npos);
    EXPECT_NE(dump.find("C0 = \"CN=Anna\""), std::string::npos);  // for the user to look after
}

TEST_F(MainWindowProfilesTest, AStoreProfileTakenOutAndAddedAgainWasRemovedForTheRules) {
    Run([&](CBrisgateDlg&) {
        ExpectEditor([this](CAddProfile&) {
            DeleteOffice();
            user_.Expect<editors::CAddCSProfDlg>([this](editors::CAddCSProfDlg&) { user_.Click(ui::IdOk); });
            user_.Click(profileid::Add);
            EXPECT_EQ(user_.Get<ui::ListBox>(profileid::CsProfiles).Items(), (Texts{L"Bank", L"Office"}));
            user_.Click(ui::IdOk);
        });
        user_.Click(id::EditProfile);
        EXPECT_EQ(RuleColumn(7).at(0), L"Bank");
        LeaveChanged();
    });
}

TEST_F(MainWindowProfilesTest, EditingKeepsTheCheckBoxesThatWereJustClicked) {
    Run([&](CBrisgateDlg&) {
        user_.ClickCheckBox(id::Rules, 0);
        ExpectEditor([this](CAddProfile&) { user_.Click(ui::IdOk); });
        user_.ChooseMenu(command::EditProfile);  // from the menu, so that the list is not left before
        EXPECT_FALSE(user_.Get<ui::ListView>(id::Rules).IsChecked(0));
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(StoredInteger(L"SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule 0", L"Is on"), 0);
}

TEST_F(MainWindowTest, WithoutStoreProfilesNoProfileCanBeAdded) {
    Seed(R"([HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles]

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha]
ZCSProfile = { "Office" }

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules]
)");
    Run([&](CBrisgateDlg&) {
        for (const bool byMenu : {false, true}) {
            ExpectHint(L"No CS profiles found.");
            byMenu ? user_.ChooseMenu(command::AddProfile) : user_.Click(id::AddProfile);
        }
        EXPECT_EQ(user_.RowCount(id::Profiles), 1U);
        user_.PressCloseBox();
    });
}

}  // namespace
}  // namespace tests
