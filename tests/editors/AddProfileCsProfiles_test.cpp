// The CS profiles of a service profile: choosing whose settings are shown, and adding.
#include <gtest/gtest.h>

#include "tests/editors/ProfileEditor.h"

namespace tests {
namespace {

using namespace profileid;
using namespace profilesample;
using AddProfileCsProfiles = ProfileEditorTest;

TEST_F(AddProfileCsProfiles, ChoosingOneShowsItsSettings) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        user_.Choose(List, 1);
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: Bank");
        EXPECT_EQ(ShownSettings(), bankSettings);
        EXPECT_FALSE(user_.CanUse(Tsp));
        EXPECT_TRUE(user_.CanUse(NoTspIsError));
        EXPECT_EQ(memory_.ShownCsProfile, 1);
        user_.Choose(List, 0);
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: Office");
        EXPECT_EQ(ShownSettings(), officeSettings);
        EXPECT_TRUE(user_.CanUse(Tsp));
        EXPECT_FALSE(user_.CanUse(NoTspIsError));
        EXPECT_EQ(memory_.ShownCsProfile, 0);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(profile, Alpha());
}

TEST_F(AddProfileCsProfiles, ChoosingAnotherKeepsWhatWasChanged) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        for (const int box : {NotUseLdap, NotAddCert, NotCopyToLocal, NotLoadCrl, VerifyTsp, UseAia}) user_.Click(box);
        user_.Click(NoTspIsError);
        user_.Type(Period, L"7");
        user_.Type(Tsp, L"http://other");
        user_.Choose(List, 1);
        EXPECT_EQ(ShownSettings(), bankSettings);
        user_.Click(UseTsp);
        user_.Type(Tsp, L"http://new.bank");
        user_.Choose(List, 0);
        EXPECT_EQ(ShownSettings(), L"1055 1057 1058 1060 1061 7 h. http://other");
        user_.Click(ui::IdOk);
    });
    config::ServiceProfile expected = Alpha();
    expected.NotUseLDAP = {0, 0};
    expected.NotAddCert = {1, 1};
    expected.NotCopyToLocal = {0, 0};
    expected.NotLoadCrl = {1, 1};
    expected.AutoVerifyTSP = {1, 1};
    expected.NoTSPisError = {1, 1};
    expected.UseAIA = {0, 0};
    expected.CrlUpdatePeriod = {7, 8760};
    expected.AutoUseTSP = {1, 1};
    expected.ServerTSP = {L"http://other", L"http://new.bank"};
    EXPECT_EQ(profile, expected);
}

TEST_F(AddProfileCsProfiles, WithoutTheServerThatIsUsedAnotherCannotBeChosen) {
    for (const wchar_t* missing : {L"", L"0"}) {
        const auto profile = Edit(Alpha(), [&](ui::Dialog&) {
            user_.Choose(List, 1);
            user_.Click(UseTsp);
            user_.Type(Tsp, missing);
            user_.Type(Period, L"5");
            ExpectHint(L"Please, type TSP data.");
            user_.Choose(List, 0);
            EXPECT_EQ(SelectedCsProfile(), L"Bank");
            EXPECT_EQ(memory_.ShownCsProfile, 1);
            EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: Bank");
            EXPECT_EQ(user_.Text(Period), L"5");
            EXPECT_EQ(user_.Text(Tsp), missing);
            ExpectFocus(Tsp);
            ExpectHint(L"Please, type TSP data.");
            user_.Choose(List, 1);  // not even the same one
            ExpectHint(L"Please, type TSP data.");
            user_.Click(Add);
            EXPECT_EQ(CsProfiles(), (Texts{L"Office", L"Bank"}));
            user_.Click(UseTsp);
            user_.Choose(List, 0);
            EXPECT_EQ(SelectedCsProfile(), L"Office");
            user_.Click(ui::IdOk);
        });
        config::ServiceProfile expected = Alpha();
        expected.ServerTSP[1] = L"0";
        expected.CrlUpdatePeriod[1] = 5;
        EXPECT_EQ(profile, expected);
    }
}

TEST_F(AddProfileCsProfiles, AnEmptyServerThatIsNotUsedIsKeptAsNone) {
    config::ServiceProfile emptyServers = Alpha();
    emptyServers.AutoUseTSP = {0, 0};
    emptyServers.ServerTSP = {L"", L""};
    const auto profile = Edit(emptyServers, [this](ui::Dialog&) {
        user_.Choose(List, 0);  // the same one: nothing happens yet
        EXPECT_EQ(user_.Text(Tsp), L"");
        user_.Choose(List, 1);
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->ServerTSP, (Texts{L"0", L"0"}));
}

TEST_F(AddProfileCsProfiles, AddingAttachesOneWithTheDefaultsAndShowsIt) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        user_.Type(Period, L"7");
        AddFromChooser(taxChoice);
        EXPECT_EQ(CsProfiles(), (Texts{L"Office", L"Bank", L"Tax"}));
        EXPECT_EQ(SelectedCsProfile(), L"Tax");
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: Tax");
        EXPECT_EQ(ShownSettings(), newSettings);
        EXPECT_FALSE(user_.CanUse(Tsp));
        EXPECT_EQ(memory_.ShownCsProfile, 2);
        user_.Choose(List, 0);
        EXPECT_EQ(user_.Text(Period), L"7");
        user_.Choose(List, 1);
        EXPECT_EQ(ShownSettings(), bankSettings);
        user_.Click(ui::IdOk);
    });
    config::ServiceProfile expected = Alpha();
    expected.CrlUpdatePeriod[0] = 7;
    config::AttachCsProfile(expected, L"Tax");
    EXPECT_EQ(profile, expected);
    EXPECT_EQ(ListLengths(*profile), std::vector<size_t>(11, 3));
    EXPECT_EQ(removed_, Texts{});
}

TEST_F(AddProfileCsProfiles, KeysAddAndDeleteInTheList) {
    Edit(Alpha(), [this](ui::Dialog&) {
        user_.Choose(List, 0);
        user_.Expect<editors::CAddCSProfDlg>([this](editors::CAddCSProfDlg&) {
            user_.Choose(Choice, taxChoice);
            user_.Press(Key::Enter);
        });
        user_.Press(Key::Insert);
        EXPECT_EQ(CsProfiles(), (Texts{L"Office", L"Bank", L"Tax"}));
        user_.Click(List);
        user_.ExpectBoxBeginning(L"Delete CS profile", boxes::Question, ui::IdNo);
        user_.Press(Key::Delete);
        user_.Click(Period);
        user_.Press(Key::Insert);
        user_.Press(Key::Delete);
        user_.Click(ui::IdCancel);
    });
}

TEST_F(AddProfileCsProfiles, TheChooserOffersTheStoreProfilesOfTheLibrary) {
    Edit(Alpha(), [this](ui::Dialog& editor) {
        user_.Expect<editors::CAddCSProfDlg>([&](editors::CAddCSProfDlg& chooser) {
            EXPECT_EQ(chooser.Parent(), &editor);
            EXPECT_EQ(user_.Get<ui::ComboBox>(Choice).Items(), csProfileNames_);
            user_.Press(Key::Escape);
        });
        user_.Type(Period, L"7");
        user_.Click(Add);
        EXPECT_EQ(CsProfiles(), (Texts{L"Office", L"Bank"}));
        EXPECT_EQ(user_.Text(Period), L"7");
        Leave();
    });
}

TEST_F(AddProfileCsProfiles, WhatIsAttachedIsNotAddedAgain) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        user_.Choose(List, 1);
        AddFromChooser(bankChoice);
        AddFromChooser(upperOfficeChoice);  // "OFFICE"
        EXPECT_EQ(CsProfiles(), (Texts{L"Office", L"Bank"}));
        EXPECT_EQ(SelectedCsProfile(), L"Bank");
        EXPECT_EQ(ShownSettings(), bankSettings);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(profile, Alpha());
}

TEST_F(AddProfileCsProfiles, OnlyTheWholeNameCountsAsAttached) {
    csProfileNames_ = {L"Off", L"Office 2"};
    const auto profile = Edit(With({L"Office"}), [this](ui::Dialog&) {
        AddFromChooser(0);
        AddFromChooser(1);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(profile, With({L"Office", L"Off", L"Office 2"}));
}

TEST_F(AddProfileCsProfiles, TheFirstOneCanBeAddedToABareProfile) {
    const auto profile = Edit(With({}), [this](ui::Dialog&) {
        user_.Click(UseAia);  // of nobody
        AddFromChooser(bankChoice);
        EXPECT_EQ(ShownSettings(), newSettings);
        user_.Click(NotLoadCrl);
        user_.Click(ui::IdOk);
    });
    config::ServiceProfile expected = With({L"Bank"});
    expected.NotLoadCrl = {1};
    EXPECT_EQ(profile, expected);
}

// An account without CS profiles, or one of them without a name.
TEST_F(AddProfileCsProfiles, AChoiceWithoutANameAddsNothing) {
    for (const Texts& offered : {Texts{}, Texts{L""}}) {
        for (const config::ServiceProfile& given : {Alpha(), With({})}) {
            csProfileNames_ = offered;
            const auto profile = Edit(given, [&](ui::Dialog&) {
                user_.Type(Period, L"7");
                user_.Expect<editors::CAddCSProfDlg>([&](editors::CAddCSProfDlg&) {
                    EXPECT_EQ(user_.Get<ui::ComboBox>(Choice).Items(), offered);
                    user_.Click(ui::IdOk);
                });
                user_.Click(Add);
                EXPECT_EQ(CsProfiles(), given.ZCSProfile);
                EXPECT_EQ(user_.Text(Period), L"7");
                user_.Type(Period, given.ZCSProfile.empty() ? L"1" : L"24");
                user_.Click(ui::IdOk);
            });
            EXPECT_EQ(profile, given);
        }
    }
}

// Lists of unequal length come from a registry that somebody edited.
TEST_F(AddProfileCsProfiles, MissingEntriesShowTheirDefaultsAndStayMissing) {
    config::ServiceProfile uneven = With({});
    uneven.ZCSProfile = {L"Office", L"Bank", L"Tax"};
    uneven.ServerTSP = {L"http://tsp"};
    uneven.NotUseLDAP = {0};
    uneven.UseAIA = {0, 1, 0, 1, 1};
    uneven.CrlUpdatePeriod = {24, 48};
    const auto untouched = Edit(uneven, [this](ui::Dialog&) {
        EXPECT_EQ(ShownSettings(), L"24 h. http://tsp");
        user_.Choose(List, 1);
        EXPECT_EQ(ShownSettings(), L"1054 1062 48 h. 0");
        user_.Choose(List, 2);
        EXPECT_EQ(ShownSettings(), L"1054 1 h. 0");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(untouched, uneven);
    const auto touched = Edit(uneven, [this](ui::Dialog&) {
        user_.Choose(List, 2);
        user_.Click(NotUseLdap);
        user_.Click(UseTsp);
        user_.Type(Tsp, L"http://tax");
        user_.Click(ui::IdOk);
    });
    uneven.NotUseLDAP = {0, 1, 0};
    uneven.AutoUseTSP = {0, 0, 1};
    uneven.ServerTSP = {L"http://tsp", L"0", L"http://tax"};
    EXPECT_EQ(touched, uneven);
}

TEST_F(AddProfileCsProfiles, InListsOfUnequalLengthOnlyItsOwnEntriesGoWithADeletedOne) {
    config::ServiceProfile uneven = With({});
    uneven.ZCSProfile = {L"Office", L"Bank"};
    uneven.NotUseLDAP = {0};
    uneven.UseAIA = {0, 1, 0, 1};
    const auto profile = Edit(uneven, [this](ui::Dialog&) {
        user_.Choose(List, 1);
        DeleteSelected();
        AddFromChooser(taxChoice);
        EXPECT_EQ(ShownSettings(), newSettings);
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->ZCSProfile, (Texts{L"Office", L"Tax"}));
    EXPECT_EQ(profile->NotUseLDAP, (std::vector<config::Flag>{0, 1}));
    EXPECT_EQ(profile->UseAIA, (std::vector<config::Flag>{0, 0, 0, 1}));
}

}  // namespace
}  // namespace tests
