// How many registry calls a load and a save make: those that are required, and none twice.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/config/FaultTest.h"
#include "tests/config/TreeText.h"

namespace {

using config::Configuration;
using config::Rule;
using config::ServiceProfile;
using tests::RegistryCall;

// How much of everything there is.
struct Amounts {
    size_t csProfiles = 0;
    size_t derivedCsProfiles = 0;  // of these: those whose stores follow from their base path
    size_t profiles = 0;
    size_t rules = 0;
    size_t masks = 0;
    size_t certificates = 0;
    size_t signerLists = 0;
    size_t signers = 0;
    size_t storePairs = 0;  // locations written: one pair for each rule with a CS profile, another for RESG
};

Amounts AmountsOf(const Configuration& configuration) {
    Amounts amounts;
    amounts.csProfiles = configuration.CsProfiles.size();
    amounts.profiles = configuration.Profiles.size();
    for (const ServiceProfile& profile : configuration.Profiles) {
        amounts.rules += profile.Rules.size();
        for (const Rule& rule : profile.Rules) {
            amounts.masks += rule.Masks.size();
            amounts.certificates += rule.Certificates.size();
            amounts.signerLists += rule.SignerLists.size();
            for (const config::SignerListEntry& list : rule.SignerLists) amounts.signers += list.Signers.size();
            amounts.storePairs += rule.Operation == L"RESG" ? 2U : 1U;
        }
    }
    return amounts;
}

Rule SomeRule(size_t number) {
    Rule rule;
    rule.Operation = number % 3 == 0 ? L"RESG" : L"CHCK";
    rule.ZCSProfile = rule.ResignProfile = L"keys 1";
    rule.Masks.assign(1 + number % 3, L"*.xml");
    rule.Certificates.assign(number % 4, L"CN=x");
    for (size_t i = 0; i < number % 3; ++i)
        rule.SignerLists.push_back({L"List " + std::to_wstring(i), std::vector<std::wstring>(i + 1, L"CN=y")});
    return rule;
}

Configuration SomeConfiguration(size_t profiles, size_t rulesOfEach) {
    Configuration configuration;
    configuration.Settings.ExtExt = {L"xml"};
    configuration.CsProfiles = {{L"keys 1", L"a", L"b"},
                                {L"keys 2", L"pse://signed/C:\\local.pse", L"file://C:\\local.gdbm"}};
    for (size_t i = 0; i < profiles; ++i) {
        ServiceProfile& profile = configuration.Profiles.emplace_back();
        profile.Name = L"Profile " + std::to_wstring(i);
        profile.ServerTSP = profile.ZCSProfile = {L"keys 1"};
        for (auto* list : {&profile.NotUseLDAP, &profile.NotCopyToLocal, &profile.AutoUseTSP, &profile.AutoVerifyTSP,
                           &profile.NoTSPisError, &profile.UseAIA, &profile.NotAddCert, &profile.NotLoadCrl})
            *list = {1};
        profile.CrlUpdatePeriod = {24};
        for (size_t r = 0; r < rulesOfEach; ++r) profile.Rules.push_back(SomeRule(r));
    }
    return configuration;
}

class CallCounts : public tests::ConfigTest {
  protected:
    static std::string Library() {
        return tests::Key(tests::LibraryKey + "\\Profiles\\1") +
               "ProfileName = \"keys 1\"\nstore_0 = \"a\"\nstore_1 = \"b\"\n" +
               tests::Key(tests::LibraryKey + "\\Profiles\\2") + "ProfileName = \"keys 2\"\nBasePath = \"C:\"\n" +
               tests::Key(tests::LibraryKey + "\\store\\2") + "name = \"ldap\"\n";
    }
    size_t Count(RegistryCall call) { return Registry().CountOf(call); }
    // Keys that are made current are closed again, each once.
    void ExpectEachKeyClosedOnce() {
        EXPECT_EQ(Count(RegistryCall::Close),
                  Count(RegistryCall::Open) + Count(RegistryCall::OpenSubkey) + Count(RegistryCall::Create));
    }
    void CheckLoad(const Amounts& a);
    void CheckSave(const Amounts& a, size_t newProfiles, size_t formerKeysBelowProfiles);
    void ExpectNothingAskedTwice();
};

void CallCounts::CheckLoad(const Amounts& a) {
    constexpr size_t settings = 14 + 2;  // a list is asked for twice: size, then data
    constexpr size_t ofProfile = 2 * 11 + 6;
    constexpr size_t ofRule = 24;
    EXPECT_EQ(Count(RegistryCall::Open), 1 + a.csProfiles + 2 * a.profiles + a.rules + a.signerLists);
    EXPECT_EQ(Count(RegistryCall::Create), 1U);
    // Each search ends with one call that finds nothing more.
    EXPECT_EQ(Count(RegistryCall::EnumerateSubkey),
              (a.csProfiles + 1) + (a.profiles + 1) + (a.rules + a.profiles) + (a.signerLists + a.rules));
    EXPECT_EQ(Count(RegistryCall::Query), 3 * a.csProfiles + a.derivedCsProfiles + settings + ofProfile * a.profiles +
                                              ofRule * a.rules + a.masks + a.certificates + a.signerLists + a.signers);
    EXPECT_EQ(Count(RegistryCall::Set) + Count(RegistryCall::DeleteSubkey) + Count(RegistryCall::OpenSubkey), 0U);
    ExpectEachKeyClosedOnce();
}

void CallCounts::CheckSave(const Amounts& a, size_t newProfiles, size_t formerKeys) {
    constexpr size_t settings = 15 + 1;  // and LDAP
    constexpr size_t ofProfile = 11 + 6;
    constexpr size_t ofRule = 24;
    // Its key is created, written, flushed; then found below its parent, looked through and deleted.
    constexpr size_t record = 1;
    const size_t oldProfiles = a.profiles - newProfiles;
    EXPECT_EQ(Count(RegistryCall::Open), 2 + 2 * a.profiles + newProfiles + record);
    EXPECT_EQ(Count(RegistryCall::Create), newProfiles + a.profiles + a.rules + a.signerLists + record);
    // Former keys: once each to be found, once each to see that nothing is left below.
    EXPECT_EQ(Count(RegistryCall::EnumerateSubkey),
              (oldProfiles + 1) + (formerKeys - oldProfiles) + formerKeys + record);
    EXPECT_EQ(Count(RegistryCall::OpenSubkey), formerKeys + newProfiles + record) << "new profiles have no rules key";
    EXPECT_EQ(Count(RegistryCall::DeleteSubkey), formerKeys + record);
    EXPECT_EQ(Count(RegistryCall::Flush), record);
    EXPECT_EQ(Count(RegistryCall::Query), 1U);
    EXPECT_EQ(Count(RegistryCall::Set), settings + ofProfile * a.profiles + ofRule * a.rules + a.masks +
                                            a.certificates + 2 * a.storePairs + a.signerLists + a.signers + record);
    // Opening the rules key of a new profile fails.
    EXPECT_EQ(Count(RegistryCall::Close) + newProfiles,
              Count(RegistryCall::Open) + Count(RegistryCall::OpenSubkey) + Count(RegistryCall::Create));
}

void CallCounts::ExpectNothingAskedTwice() {
    std::map<std::wstring, size_t> queries;
    for (const auto& call : Registry().Calls())
        if (call.call == RegistryCall::Query || call.call == RegistryCall::Set) ++queries[call.target];
    for (const auto& call : Registry().Calls()) {
        if (call.call != RegistryCall::Query && call.call != RegistryCall::Set) continue;
        const bool sizeThenData = call.call == RegistryCall::Query && tests::KindOf(call) == L"multistring";
        EXPECT_EQ(queries[call.target], sizeThenData ? 2U : 1U) << testing::PrintToString(call.target);
    }
}

TEST_F(CallCounts, LoadAndSave) {
    const std::pair<size_t, size_t> sizes[] = {{1, 0}, {1, 1}, {1, 7}, {2, 12}, {5, 3}};
    for (const auto& [profiles, rules] : sizes) {
        SCOPED_TRACE(testing::PrintToString(profiles) + " profiles with " + testing::PrintToString(rules) + " rules");
        const Configuration configuration = SomeConfiguration(profiles, rules);
        Amounts amounts = AmountsOf(configuration);
        amounts.derivedCsProfiles = 1;
        SeedTrees(Library() + tests::Key(tests::ServiceKey));

        EXPECT_TRUE(Save(configuration));
        CheckSave(amounts, profiles, 0);
        ExpectNothingAskedTwice();

        Registry().ForgetCalls();
        EXPECT_EQ(Load(), configuration);
        CheckLoad(amounts);
        ExpectNothingAskedTwice();

        Registry().ForgetCalls();
        EXPECT_TRUE(Save(configuration));
        CheckSave(amounts, 0, amounts.profiles + amounts.rules + amounts.signerLists);
        ExpectNothingAskedTwice();
    }
}

TEST_F(CallCounts, MissingListsAreAskedForOnce) {
    SeedTrees(tests::Key(tests::LibraryKey + "\\Profiles") + tests::BelowService("P\\rules"));
    EXPECT_TRUE(Load());
    EXPECT_EQ(Count(RegistryCall::Query), 15U + 17U);
}

}  // namespace
