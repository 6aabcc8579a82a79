// What the profile editor shows when it opens, and how its fields depend on one another.
#include <gtest/gtest.h>

#include <map>

#include "tests/editors/ProfileEditor.h"

namespace tests {
namespace {

using namespace profileid;

using AddProfileOpening = ProfileEditorTest;

TEST_F(AddProfileOpening, ItsButtonsHaveIconsAndItsPeriodHasLimits) {
    Edit(Alpha(), [&](ui::Dialog& dialog) {
        EXPECT_EQ(user_.Get<ui::IconButton>(Add).Icon(), ui::Icon::ItemAdd);
        EXPECT_EQ(user_.Get<ui::IconButton>(Delete).Icon(), ui::Icon::ItemDelete);
        const auto& arrows = user_.Get<ui::UpDown>(PeriodArrows);
        EXPECT_EQ(&arrows.Buddy(), &dialog.Find(Period));
        EXPECT_EQ(arrows.Lowest(), 0);
        EXPECT_EQ(arrows.Highest(), 8760);
        Leave();
    });
}

TEST_F(AddProfileOpening, ANewProfileStartsWithTheFirstStoreProfileAndTheDefaults) {
    const auto profile = Edit({}, [this](ui::Dialog& dialog) {
        EXPECT_EQ(dialog.Caption(), L"Add profile");
        EXPECT_EQ(user_.Text(Name), L"");
        EXPECT_EQ(user_.Text(Timeout), L"15");
        EXPECT_EQ(CsProfiles(), Texts{L"Office"});
        EXPECT_EQ(SelectedCsProfile(), L"Office");
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: Office");
        EXPECT_EQ(ShownSettings(), L"1054 1 h. 0");
        EXPECT_FALSE(user_.CanUse(Tsp));
        EXPECT_FALSE(user_.CanUse(NoTspIsError));
        for (const int box : {VerifyFile, VerifyXFile, VerifyDetFile, VerifyResignFile, RenameConfFiles})
            EXPECT_FALSE(IsChecked(box)) << box;
        user_.Type(Name, L"New");
        user_.Click(ui::IdOk);
    });
    config::ServiceProfile expected;
    expected.Name = L"New";
    expected.ZCSProfile = {L"Office"};
    expected.ServerTSP = {L"0"};
    expected.NotUseLDAP = {1};
    for (auto* list : {&expected.NotCopyToLocal, &expected.AutoUseTSP, &expected.AutoVerifyTSP, &expected.NoTSPisError,
                       &expected.UseAIA, &expected.NotAddCert, &expected.NotLoadCrl})
        *list = {0};
    expected.CrlUpdatePeriod = {1};
    EXPECT_EQ(profile, expected);
}

TEST_F(AddProfileOpening, WithoutStoreProfilesANewProfileHasNone) {
    csProfileNames_.clear();
    const auto profile = Edit({}, [this](ui::Dialog&) {
        EXPECT_EQ(CsProfiles(), Texts{});
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: ");
        EXPECT_EQ(ShownSettings(), L"1054 1 h. 0");
        user_.Type(Name, L"New");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_TRUE(profile->ZCSProfile.empty());
}

TEST_F(AddProfileOpening, AnExistingProfileShowsItsFirstStoreProfile) {
    memory_.ShownCsProfile = 99;
    const auto profile = Edit(Alpha(), [this](ui::Dialog& dialog) {
        EXPECT_EQ(dialog.Caption(), L"Edit profile");
        EXPECT_EQ(user_.Text(Name), L"Alpha");
        EXPECT_EQ(user_.Text(Timeout), L"40");
        EXPECT_EQ(CsProfiles(), (Texts{L"Office", L"Bank"}));
        EXPECT_EQ(SelectedCsProfile(), L"Office");
        EXPECT_EQ(memory_.ShownCsProfile, 0);
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: Office");
        EXPECT_EQ(ShownSettings(), L"1054 1056 1058 1062 24 h. http://tsp.office");
        EXPECT_TRUE(user_.CanUse(Tsp));
        EXPECT_FALSE(user_.CanUse(NoTspIsError));
        EXPECT_FALSE(IsChecked(VerifyFile));
        EXPECT_TRUE(IsChecked(VerifyXFile));
        EXPECT_FALSE(IsChecked(VerifyDetFile));
        EXPECT_TRUE(IsChecked(VerifyResignFile));
        EXPECT_FALSE(IsChecked(RenameConfFiles));
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(profile, Alpha());
}

TEST_F(AddProfileOpening, AnEditorOpenedAgainForgetsWhatTheOneBeforeShowed) {
    Edit(Alpha(), [this](ui::Dialog&) {
        user_.Choose(profileid::CsProfiles, 1);
        EXPECT_EQ(memory_.ShownCsProfile, 1);
        Leave();
    });
    Edit(With({L"Tax"}), [this](ui::Dialog&) {
        EXPECT_EQ(memory_.ShownCsProfile, 0);
        Leave();
    });
}

TEST_F(AddProfileOpening, WithoutAnAttachedStoreProfileTheRestCanBeEdited) {
    config::ServiceProfile bare;
    bare.Name = L"Alpha";
    bare.AutoUseTSP = {0, 1};  // nobody's
    const auto profile = Edit(bare, [this](ui::Dialog&) {
        EXPECT_EQ(CsProfiles(), Texts{});
        EXPECT_EQ(memory_.ShownCsProfile, std::nullopt);
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: ");
        EXPECT_EQ(ShownSettings(), L"1054 1 h. 0");
        ExpectHint(L"Select list item to delete.");
        user_.Click(Delete);
        user_.Click(UseAia);
        user_.Type(Timeout, L"20");
        user_.Click(ui::IdOk);
    });
    bare.HandlerTimeout = 20;
    EXPECT_EQ(profile, bare);
}

TEST_F(AddProfileOpening, TheServerCanBeTypedWhileItIsUsed) {
    Edit(With({L"Office"}), [this](ui::Dialog&) {
        user_.Click(UseTsp);
        EXPECT_TRUE(user_.CanUse(Tsp));
        EXPECT_EQ(user_.Text(Tsp), L"0");
        user_.Type(Tsp, L"http://tsp");
        user_.Click(UseTsp);
        EXPECT_FALSE(user_.CanUse(Tsp));
        EXPECT_EQ(user_.Text(Tsp), L"0");
        Leave();
    });
}

TEST_F(AddProfileOpening, ALackingTimeStampCanBeAnErrorWhileTimeStampsAreVerified) {
    Edit(With({L"Office"}), [this](ui::Dialog&) {
        user_.Click(VerifyTsp);
        EXPECT_TRUE(user_.CanUse(NoTspIsError));
        user_.Click(NoTspIsError);
        EXPECT_TRUE(IsChecked(NoTspIsError));
        user_.Click(VerifyTsp);
        EXPECT_FALSE(user_.CanUse(NoTspIsError));
        EXPECT_FALSE(IsChecked(NoTspIsError));
        user_.Click(VerifyTsp);
        EXPECT_FALSE(IsChecked(NoTspIsError));
        Leave();
    });
}

TEST_F(AddProfileOpening, ThePeriodStaysWithinAYear) {
    Edit(Alpha(), [this](ui::Dialog&) {
        user_.Type(Period, L"9000");
        EXPECT_EQ(user_.Text(Period), L"8760");
        user_.Paste(Period, L"8761");
        EXPECT_EQ(user_.Text(Period), L"8760");
        user_.Paste(Period, L"8759");
        EXPECT_EQ(user_.Text(Period), L"8759");
        user_.Step(PeriodArrows, 3);
        EXPECT_EQ(user_.Text(Period), L"8760");
        user_.Type(Period, L"2");
        user_.Step(PeriodArrows, -3);
        EXPECT_EQ(user_.Text(Period), L"0");
        user_.Paste(Period, L"99999999999999999999");
        EXPECT_EQ(user_.Text(Period), L"8760");
        user_.Type(Period, L"");
        EXPECT_EQ(user_.Text(Period), L"0");
        Leave();
    });
}

TEST_F(AddProfileOpening, TheNumbersTakeNothingButDigits) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        for (const int number : {Period, Timeout}) {
            user_.Type(number, L"1a2-3 ");
            EXPECT_EQ(user_.Text(number), L"123");
        }
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->CrlUpdatePeriod[0], 123);
    EXPECT_EQ(profile->HandlerTimeout, 123);
}

// It is the name of a key, in which a backslash would make two. Its length is looked at by OK.
TEST_F(AddProfileOpening, TheNameTakesNoBackslash) {
    Edit(Alpha(), [this](ui::Dialog&) {
        user_.Type(Name, L"\\a\\b");
        EXPECT_EQ(user_.Text(Name), L"ab");
        user_.Paste(Name, L"a\\b");
        EXPECT_EQ(user_.Text(Name), L"ab");
        user_.Paste(Name, std::wstring(600, L'x'));
        EXPECT_EQ(user_.Text(Name).size(), 600U);
        Leave();
    });
}

// A list of the registry has no limit.
TEST_F(AddProfileOpening, TheServerMayBeLong) {
    Edit(Alpha(), [this](ui::Dialog&) {
        if (!user_.Get<ui::CheckBox>(UseTsp).IsChecked()) user_.Click(UseTsp);
        user_.Paste(Tsp, std::wstring(600, L'x'));
        EXPECT_EQ(user_.Text(Tsp).size(), 600U);
        Leave();
    });
}

// A field for digits refuses other characters from the keyboard; from elsewhere anything can get into it.
TEST_F(AddProfileOpening, PastedTextIsAsGoodAsItsNumber) {
    const std::pair<const wchar_t*, const wchar_t*> periods[] = {
        {L"ten", L"0"}, {L"-5", L"0"}, {L"12 h.", L"12"}, {L"9000", L"8760"}};
    const auto profile = Edit(Alpha(), [&](ui::Dialog&) {
        for (const auto& [pasted, number] : periods) {
            user_.SetFromOutside(Period, pasted);
            EXPECT_EQ(user_.Text(Period), number);
        }
        user_.Paste(Period, L"24");
        EXPECT_EQ(user_.Text(Period), L"24");
        user_.SetFromOutside(Timeout, L"ten");
        EXPECT_EQ(user_.Text(Timeout), L"ten");
        ExpectHint(L"Please, choose handler timeout.");
        user_.Click(ui::IdOk);
        ExpectFocus(Timeout);
        user_.SetFromOutside(Timeout, L"41 sec.");
        user_.Click(ui::IdOk);
    });
    config::ServiceProfile expected = Alpha();
    expected.HandlerTimeout = 41;
    EXPECT_EQ(profile, expected);
}

}  // namespace
}  // namespace tests
