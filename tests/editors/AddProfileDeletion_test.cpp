// Taking CS profiles out of a service profile.
#include <gtest/gtest.h>

#include "tests/editors/ProfileEditor.h"

namespace tests {
namespace {

using namespace profileid;
using namespace profilesample;
using AddProfileDeletion = ProfileEditorTest;

TEST_F(AddProfileDeletion, TheLastOneCannotBeDeleted) {
    const auto profile = Edit(With({L"Office"}), [this](ui::Dialog&) {
        ExpectHint(L"Last CS profile in list cannot be deleted.");
        user_.Click(Delete);
        EXPECT_EQ(CsProfiles(), Texts{L"Office"});
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(profile, With({L"Office"}));
    EXPECT_EQ(removed_, Texts{});
}

TEST_F(AddProfileDeletion, DeletingAsksAndTakesTheSettingsAlong) {
    config::ServiceProfile three = Alpha();
    config::AttachCsProfile(three, L"Tax");
    const auto profile = Edit(three, [this](ui::Dialog&) {
        user_.Choose(List, 1);
        ExpectQuestion(L"Delete CS profile 'Bank' from list?", ui::IdNo);
        user_.Click(Delete);
        EXPECT_EQ(CsProfiles().size(), 3U);
        EXPECT_EQ(SelectedCsProfile(), L"Bank");
        EXPECT_EQ(ShownSettings(), bankSettings);
        user_.Type(Period, L"3");
        DeleteSelected();
        EXPECT_EQ(CsProfiles(), (Texts{L"Office", L"Tax"}));
        EXPECT_EQ(SelectedCsProfile(), L"Office");
        EXPECT_EQ(ShownSettings(), officeSettings);
        EXPECT_EQ(memory_.ShownCsProfile, 0);
        user_.Choose(List, 1);
        EXPECT_EQ(ShownSettings(), newSettings);
        user_.Click(ui::IdOk);
    });
    config::DetachCsProfile(three, 1);
    EXPECT_EQ(profile, three);
    EXPECT_EQ(ListLengths(*profile), std::vector<size_t>(11, 2));
    EXPECT_EQ(removed_, Texts{L"Bank"});
}

TEST_F(AddProfileDeletion, DeletingTheFirstShowsTheNextOne) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        DeleteSelected();
        EXPECT_EQ(user_.Text(Settings), L"CS profile setting's: Bank");
        EXPECT_EQ(ShownSettings(), bankSettings);
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->ServerTSP, Texts{L"http://tsp.bank"});
    EXPECT_EQ(profile->Rules, Alpha().Rules);  // whoever asked for the removed ones changes them
}

TEST_F(AddProfileDeletion, OneDeletedAndAddedAgainWasRemovedOnce) {
    const auto profile = Edit(Alpha(), [this](ui::Dialog&) {
        for (int i = 0; i < 2; ++i) {
            user_.Choose(List, 1);
            DeleteSelected();
            AddFromChooser(bankChoice);
        }
        EXPECT_EQ(ShownSettings(), newSettings);
        AddFromChooser(taxChoice);
        DeleteSelected();
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->ZCSProfile, (Texts{L"Office", L"Bank"}));
    EXPECT_EQ(removed_, (Texts{L"Bank", L"Tax"}));
}

TEST_F(AddProfileDeletion, TheQuestionNamesTheRulesWithCertificates) {
    config::ServiceProfile ruled = Alpha();
    ruled.Rules.assign(7, {});
    for (const size_t used : {0U, 1U, 3U, 4U}) ruled.Rules[used].ZCSProfile = L"Bank";
    ruled.Rules[1].Certificates = {L"CN=Anna"};
    ruled.Rules[4].SignerLists = {{L"chiefs", {}}};
    ruled.Rules[2].Certificates = {L"CN=Anna"};  // of no store profile
    ruled.Rules[5].ZCSProfile = L"BANK";
    ruled.Rules[5].Certificates = {L"CN=Anna"};
    ruled.Rules[6].ResignProfile = L"Bank";
    ruled.Rules[6].Certificates = {L"CN=Anna"};
    const auto profile = Edit(ruled, [this](ui::Dialog&) {
        user_.Type(Name, L"Renamed");
        user_.Choose(List, 1);
        for (const int answer : {ui::IdNo, ui::IdYes}) {
            ExpectQuestion(
                L"Rule(s) '2,5' of profile 'Alpha' are using sertificates of CS profile 'Bank'.\r\n"
                L"Validation of these rules will be nessesary for proper work.\r\n"
                L"Delete CS profile 'Bank' from list?",
                answer);
            user_.Click(Delete);
        }
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->Rules, ruled.Rules);
}

TEST_F(AddProfileDeletion, NamesArePutIntoTheQuestionAsTheyAre) {
    config::ServiceProfile odd = With({L"%s %d \\ 'x'", L"Bank"});
    odd.Name = L"100%s";
    odd.Rules.emplace_back().ZCSProfile = odd.ZCSProfile[0];
    odd.Rules[0].Certificates = {L""};
    Edit(odd, [this](ui::Dialog&) {
        ExpectQuestion(
            L"Rule(s) '1' of profile '100%s' are using sertificates of CS profile '%s %d \\ 'x''.\r\n"
            L"Validation of these rules will be nessesary for proper work.\r\n"
            L"Delete CS profile '%s %d \\ 'x'' from list?",
            ui::IdNo);
        user_.Click(Delete);
        Leave();
    });
}

}  // namespace
}  // namespace tests
