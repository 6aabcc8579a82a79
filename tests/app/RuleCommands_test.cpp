#include "app/RuleCommands.h"

#include <gtest/gtest.h>

namespace app {
namespace {

using Masks = std::vector<std::wstring>;

std::vector<config::Rule> RulesNamed(const Masks& names) {
    std::vector<config::Rule> rules;
    for (const std::wstring& name : names) rules.emplace_back().Descryption = name;
    return rules;
}

Masks NamesOf(const std::vector<config::Rule>& rules) {
    Masks names;
    for (const config::Rule& rule : rules) names.emplace_back(rule.Descryption);
    return names;
}

TEST(SuggestedMasks, BeginWithTheResultExtensions) {
    const Masks expected{L"*.p7s", L"*.p7d", L"*.p7e", L"*.b64", L"*.hsh", L"*.vrf"};
    EXPECT_EQ(SuggestedMasks({}, {}), expected);
}

TEST(SuggestedMasks, OfferTheProfilesMasksFirstAndEachTextOnce) {
    config::GlobalSettings settings;
    settings.DsigExt = L"p7s";
    settings.ExtExt = {L"xml", L"b64", L"edi"};
    std::vector<config::Rule> rules(3);
    rules[0].Masks = {L"a", L"b", L"*.xml"};
    rules[1].Masks = {L"", L"A"};
    rules[2].Masks = {L"a", L"c", L"c"};
    const Masks expected{L"b", L"A", L"a", L"c", L"*.p7s", L"*.p7e", L"*.b64", L"*.hsh", L"*.vrf", L"*.xml", L"*.edi"};
    EXPECT_EQ(SuggestedMasks(settings, rules), expected);
}

TEST(MoveRule, KeepsTheOrderOfTheRest) {
    struct Case {
        size_t from;
        size_t to;
        Masks order;
    };
    const Case cases[] = {{0, 0, {L"a", L"b", L"c", L"d"}}, {2, 0, {L"c", L"a", L"b", L"d"}},
                          {3, 2, {L"a", L"b", L"d", L"c"}}, {0, 1, {L"b", L"a", L"c", L"d"}},
                          {1, 3, {L"a", L"c", L"d", L"b"}}, {3, 3, {L"a", L"b", L"c", L"d"}}};
    for (const Case& c : cases) {
        auto rules = RulesNamed({L"a", L"b", L"c", L"d"});
        MoveRule(rules, c.from, c.to);
        EXPECT_EQ(NamesOf(rules), c.order) << c.from << " to " << c.to;
    }
}

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

TEST(MoveRulesToFirstCsProfile, RulesOfRemovedStoreProfilesGoToTheFirst) {
    config::ServiceProfile profile = ProfileWithRules();
    config::ServiceProfile expected = profile;
    expected.Rules[0].ZCSProfile = L"Tax";
    expected.Rules[1].ResignProfile = L"Tax";
    expected.Rules[3].ZCSProfile = L"Tax";
    MoveRulesToFirstCsProfile(profile, std::vector<std::wstring>{L"Other", L"Bank"});
    EXPECT_EQ(profile, expected);
}

TEST(MoveRulesToFirstCsProfile, OneThatWasAttachedAgainCountsAsRemoved) {
    config::ServiceProfile profile = ProfileWithRules();
    MoveRulesToFirstCsProfile(profile, std::vector<std::wstring>{L"Office", L"Tax"});
    EXPECT_EQ(profile.Rules[1].ZCSProfile, L"Tax");
    EXPECT_EQ(profile.Rules[3].ResignProfile, L"Tax");
    EXPECT_EQ(profile.Rules[0].ZCSProfile, L"Bank");
}

TEST(MoveRulesToFirstCsProfile, NothingRemovedMeansNothingChanged) {
    config::ServiceProfile profile = ProfileWithRules();
    MoveRulesToFirstCsProfile(profile, {});
    EXPECT_EQ(profile, ProfileWithRules());
}

TEST(MoveRulesToFirstCsProfile, AProfileWithoutAStoreProfileKeepsItsRules) {
    config::ServiceProfile profile = ProfileWithRules();
    profile.ZCSProfile.clear();
    const config::ServiceProfile before = profile;
    MoveRulesToFirstCsProfile(profile, std::vector<std::wstring>{L"Bank"});
    EXPECT_EQ(profile, before);
}

}  // namespace
}  // namespace app
