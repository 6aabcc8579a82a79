#include "app/ProfileCommands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tests {
namespace {

config::ServiceProfile ProfileWithRules() {
    config::ServiceProfile profile;
    profile.ZCSProfile = {L"Tax", L"Office"};
    for (const wchar_t* name : {L"Bank", L"Office", L"", L"Bank", L"bank"})
        profile.Rules.emplace_back().ZCSProfile = name;
    profile.Rules[0].Certificates = {L"CN=Anna"};
    profile.Rules[1].ResignProfile = L"Bank";
    profile.Rules[3].ResignProfile = L"Office";
    return profile;
}

TEST(ProfileCommands, RulesOfRemovedStoreProfilesGoToTheFirst) {
    config::ServiceProfile profile = ProfileWithRules();
    config::ServiceProfile expected = profile;
    expected.Rules[0].ZCSProfile = L"Tax";
    expected.Rules[1].ResignProfile = L"Tax";
    expected.Rules[3].ZCSProfile = L"Tax";
    app::LeadRulesToFirstStoreProfile(profile, std::vector<std::wstring>{L"Other", L"Bank"});
    EXPECT_EQ(profile, expected);
}

TEST(ProfileCommands, OneThatWasAttachedAgainCountsAsRemoved) {
    config::ServiceProfile profile = ProfileWithRules();
    app::LeadRulesToFirstStoreProfile(profile, std::vector<std::wstring>{L"Office", L"Tax"});
    EXPECT_EQ(profile.Rules[1].ZCSProfile, L"Tax");
    EXPECT_EQ(profile.Rules[3].ResignProfile, L"Tax");
    EXPECT_EQ(profile.Rules[0].ZCSProfile, L"Bank");
}

TEST(ProfileCommands, NothingRemovedMeansNothingChanged) {
    config::ServiceProfile profile = ProfileWithRules();
    app::LeadRulesToFirstStoreProfile(profile, {});
    EXPECT_EQ(profile, ProfileWithRules());
}

TEST(ProfileCommands, AProfileWithoutAStoreProfileKeepsItsRules) {
    config::ServiceProfile profile = ProfileWithRules();
    profile.ZCSProfile.clear();
    const config::ServiceProfile before = profile;
    app::LeadRulesToFirstStoreProfile(profile, std::vector<std::wstring>{L"Bank"});
    EXPECT_EQ(profile, before);
}

}  // namespace
}  // namespace tests
