// Unusual profile names on their way from the editor through the registry and back into the list.
#include <gtest/gtest.h>

#include <map>

#include "editors/AddProfile.h"
#include "tests/app/MainWindow.h"

namespace tests {
namespace {

using app::CBrisgateDlg;
using Texts = std::vector<std::wstring>;

class ProfileNames : public MainWindowTest {
  protected:
    // Adds a profile in one run of the program and tells what the next one lists.
    Texts ListedAfterAdding(const std::wstring& name) {
        SeedSmallConfiguration();
        Run([&](CBrisgateDlg&) {
            user_.Expect<editors::CAddProfile>([&](editors::CAddProfile&) {
                user_.Paste(profileid::Name, name);
                user_.Click(profileid::VerifyFile);
                user_.Click(ui::IdOk);
            });
            user_.Click(id::AddProfile);
            EXPECT_EQ(user_.Row(id::Profiles, 2), Texts{name});
            user_.Click(ui::IdOk);
        });
        return Listed();
    }
    Texts Listed() {
        Texts names;
        Run([&](CBrisgateDlg&) {
            for (size_t row = 0; row < user_.RowCount(id::Profiles); ++row)
                names.push_back(user_.Row(id::Profiles, row).at(0));
            user_.PressCloseBox();
        });
        return names;
    }
    bool IsStored(const std::string& key) { return Dump().find("\\morcelservice\\" + key + "]") != std::string::npos; }
};

TEST_F(ProfileNames, BlanksAtTheEndsAreKept) {
    EXPECT_EQ(ListedAfterAdding(L" a "), (Texts{L" a ", L"Alpha", L"Beta"}));
    EXPECT_EQ(StoredInteger(L"SOFTWARE\\TALVERON\\morcelservice\\ a ", L"Verify File"), 1);
}

TEST_F(ProfileNames, CharactersBeyondTheCodePageAreKept) {
    const std::wstring name = L"\u0416\u4E2D\xD83D\xDE00";
    EXPECT_EQ(ListedAfterAdding(name), (Texts{L"Alpha", L"Beta", name}));
    EXPECT_EQ(StoredInteger(L"SOFTWARE\\TALVERON\\morcelservice\\" + name, L"Verify File"), 1);
}

TEST_F(ProfileNames, FifteenCharactersAreKept) {
    EXPECT_EQ(ListedAfterAdding(L"fifteen letters"), (Texts{L"Alpha", L"Beta", L"fifteen letters"}));
}

// The registry would take it for a key within a key, and nothing could be loaded any more.
TEST_F(ProfileNames, ABackslashNeverGetsIntoAName) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.Expect<editors::CAddProfile>([&](editors::CAddProfile&) {
            user_.Type(profileid::Name, L"A\\B");
            user_.Click(ui::IdOk);
        });
        user_.Click(id::AddProfile);
        EXPECT_EQ(user_.Row(id::Profiles, 2), Texts{L"AB"});
        user_.Click(id::Save);
        user_.PressCloseBox();
    });
    EXPECT_EQ(Listed(), (Texts{L"AB", L"Alpha", L"Beta"}));
}

TEST_F(ProfileNames, OneThatDiffersOnlyInCaseIsAskedAbout) {
    SeedSmallConfiguration();
    const std::string before = Dump();
    Run([&](CBrisgateDlg&) {
        user_.Expect<editors::CAddProfile>([&](editors::CAddProfile&) {
            user_.Type(profileid::Name, L"bETA");
            user_.Click(ui::IdOk);
        });
        user_.Click(id::AddProfile);
        user_.ExpectBox(
            L"Some texts cannot be read back once they are saved:\r\n"
            L"\r\nProfile 'bETA', Name: differs from another name at most in case"
            L"\r\n\r\nSave anyway?",
            boxes::Risk, ui::IdNo);
        user_.Click(id::Save);
        EXPECT_EQ(Dump(), before);
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
    EXPECT_EQ(Listed(), (Texts{L"Alpha", L"Beta"}));
}

TEST_F(ProfileNames, TooLongANameNeverReachesTheRegistry) {
    SeedSmallConfiguration();
    const std::string before = Dump();
    Run([&](CBrisgateDlg&) {
        user_.Expect<editors::CAddProfile>([&](editors::CAddProfile&) {
            user_.Paste(profileid::Name, std::wstring(260, L'x'));
            ExpectHint(L"Profile name cannot be longer than 15 symbols.");
            user_.Click(ui::IdOk);
            user_.Click(ui::IdCancel);
        });
        user_.Click(id::AddProfile);
        user_.PressCloseBox();
    });
    EXPECT_EQ(Dump(), before);
}

TEST_F(ProfileNames, ARenamedProfileTakesItsRulesAndSettingsAlong) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.Expect<editors::CAddProfile>([&](editors::CAddProfile&) {
            user_.Type(profileid::Name, L"Omega");
            user_.Click(profileid::RenameConfFiles);
            user_.Click(ui::IdOk);
        });
        user_.Click(id::EditProfile);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(Listed(), (Texts{L"Beta", L"Omega"}));
    EXPECT_FALSE(IsStored("Alpha"));
    EXPECT_TRUE(IsStored("Omega\\rules\\Rule 2"));
    EXPECT_EQ(StoredInteger(L"SOFTWARE\\TALVERON\\morcelservice\\Omega", L"Rename conf files"), 1);
}

// Lists of unequal length, as only a hand makes them, are stored again as they are.
TEST_F(ProfileNames, EditingKeepsListsOfUnequalLength) {
    SeedSmallConfiguration();
    Seed(R"([HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Beta]
ZCSProfile = { "Bank", "Office", "Tax" }
NotUseLDAP = { "0" }
UseAIA = { "1", "0", "1", "1", "0" }
ServerTSP = { "http://tsp", "0" }
)");
    Run([&](CBrisgateDlg&) { user_.Click(ui::IdOk); });
    const std::string before = Dump();
    Run([&](CBrisgateDlg&) {
        user_.Expect<editors::CAddProfile>([&](editors::CAddProfile&) {
            user_.Choose(profileid::CsProfiles, 2);
            user_.Choose(profileid::CsProfiles, 1);
            user_.Click(ui::IdOk);
        });
        user_.DoubleClickRow(id::Profiles, 1);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(Dump(), before);
}

}  // namespace
}  // namespace tests
