#include "editors/RulesWithCertificates.h"

#include <gtest/gtest.h>

#include <vector>

namespace tests {
namespace {

TEST(RulesWithCertificates, TheyAreCountedFromOne) {
    std::vector<config::Rule> rules(12);
    EXPECT_EQ(editors::RulesWithCertificatesOf(rules, L"Office"), L"");
    for (config::Rule& rule : rules) rule.ZCSProfile = L"Office";
    EXPECT_EQ(editors::RulesWithCertificatesOf(rules, L"Office"), L"");
    rules[0].Certificates = {L"CN=Anna"};
    rules[11].SignerLists = {{L"chiefs", {L"CN=Boris"}}};
    rules[5].Certificates = {L"CN=Anna"};
    rules[5].ZCSProfile = L"office";
    EXPECT_EQ(editors::RulesWithCertificatesOf(rules, L"Office"), L"1,12");
    EXPECT_EQ(editors::RulesWithCertificatesOf(rules, L"office"), L"6");
    EXPECT_EQ(editors::RulesWithCertificatesOf({}, L"Office"), L"");
}

}  // namespace
}  // namespace tests
