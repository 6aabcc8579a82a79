#include "editors/ProfileChecks.h"

#include <gtest/gtest.h>

#include <vector>

namespace tests {
namespace {

using editors::CheckTimeStampServer;
using editors::ProfileField;
using editors::ProfileForm;
using editors::RulesWithCertificatesOf;
using editors::Validate;

// What is wrong with an otherwise good form; empty when it is accepted.
std::wstring Wrong(const ProfileForm& form, const std::wstring& nameBefore = {}) {
    const std::vector<std::wstring> names{L"Alpha", L"Beta"};
    const auto refusal = Validate(form, nameBefore, names);
    return refusal ? refusal->text : L"";
}
std::wstring WrongName(const std::wstring& name, const std::wstring& nameBefore = {}) {
    return Wrong({.Name = name, .HandlerTimeout = 1}, nameBefore);
}

TEST(ProfileChecks, NamesHaveUpToFifteenCharacters) {
    EXPECT_EQ(WrongName(std::wstring(1, L'x')), L"");
    EXPECT_EQ(WrongName(std::wstring(15, L'x')), L"");
    for (const size_t length : {16U, 17U, 260U, 100'000U})
        EXPECT_EQ(WrongName(std::wstring(length, L'x')), L"Profile name cannot be longer than 15 symbols.");
    EXPECT_EQ(WrongName(L""), L"Please, type a name for profile.");
}

TEST(ProfileChecks, NamesHoldMoreThanSpaces) {
    EXPECT_EQ(WrongName(L" "), L"Profile name cannot consist from spaces only.");
    EXPECT_EQ(WrongName(std::wstring(15, L' ')), L"Profile name cannot consist from spaces only.");
    EXPECT_EQ(WrongName(std::wstring(16, L' ')), L"Profile name cannot be longer than 15 symbols.");
    for (const wchar_t* name : {L" a ", L" .", L"\t", L"\x00A0", L"\\"}) EXPECT_EQ(WrongName(name), L"");
}

TEST(ProfileChecks, NamesAreComparedExactlyWithEveryOther) {
    EXPECT_EQ(WrongName(L"Alpha"), L"Profile 'Alpha' allready exists.");
    EXPECT_EQ(WrongName(L"Beta"), L"Profile 'Beta' allready exists.");
    EXPECT_EQ(WrongName(L"Beta", L"Alpha"), L"Profile 'Beta' allready exists.");
    for (const wchar_t* name : {L"alpha", L"Alph", L"Alpha ", L" Alpha"}) EXPECT_EQ(WrongName(name), L"");
    EXPECT_EQ(WrongName(L"Alpha", L"Alpha"), L"");
}

TEST(ProfileChecks, OnlyNoTimeoutIsRefused) {
    EXPECT_EQ(Wrong({.Name = L"x", .HandlerTimeout = 0}), L"Please, choose handler timeout.");
    for (const int32_t timeout : {1, -1, 2'147'483'647})
        EXPECT_EQ(Wrong({.Name = L"x", .HandlerTimeout = timeout}), L"");
}

TEST(ProfileChecks, AServerInUseHasAName) {
    for (const wchar_t* none : {L"", L"0"}) {
        const auto refusal = CheckTimeStampServer(true, none);
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->text, L"Please, type TSP data.");
        EXPECT_EQ(refusal->field, ProfileField::TimeStampServer);
        EXPECT_FALSE(CheckTimeStampServer(false, none));
        EXPECT_EQ(Wrong({.Name = L"x", .HandlerTimeout = 1, .UsesTimeStampServer = true, .TimeStampServer = none}),
                  L"Please, type TSP data.");
    }
    for (const wchar_t* server : {L"00", L" ", L"http://tsp"}) EXPECT_FALSE(CheckTimeStampServer(true, server));
}

TEST(ProfileChecks, TheFirstFaultIsTold) {
    ProfileForm form{.Name = L"", .HandlerTimeout = 0, .UsesTimeStampServer = true, .TimeStampServer = L""};
    EXPECT_EQ(Wrong(form), L"Please, type a name for profile.");
    form.Name = L"Beta";
    EXPECT_EQ(Wrong(form), L"Please, choose handler timeout.");
    form.HandlerTimeout = 1;
    EXPECT_EQ(Wrong(form), L"Profile 'Beta' allready exists.");
    form.Name = L"Gamma";
    EXPECT_EQ(Wrong(form), L"Please, type TSP data.");
}

TEST(ProfileChecks, EachRefusalNamesItsField) {
    const std::vector<std::wstring> names{L"Beta"};
    const auto field = [&names](const ProfileForm& form) { return Validate(form, L"", names)->field; };
    EXPECT_EQ(field({.Name = L""}), ProfileField::Name);
    EXPECT_EQ(field({.Name = L"x"}), ProfileField::HandlerTimeout);
    EXPECT_EQ(field({.Name = L"Beta", .HandlerTimeout = 1}), ProfileField::Name);
}

TEST(ProfileChecks, RulesWithCertificatesAreCountedFromOne) {
    std::vector<config::Rule> rules(12);
    EXPECT_EQ(RulesWithCertificatesOf(rules, L"Office"), L"");
    for (config::Rule& rule : rules) rule.ZCSProfile = L"Office";
    EXPECT_EQ(RulesWithCertificatesOf(rules, L"Office"), L"");
    rules[0].Certificates = {L"CN=Anna"};
    rules[11].SignerLists = {{L"chiefs", {L"CN=Boris"}}};
    rules[5].Certificates = {L"CN=Anna"};
    rules[5].ZCSProfile = L"office";
    EXPECT_EQ(RulesWithCertificatesOf(rules, L"Office"), L"1,12");
    EXPECT_EQ(RulesWithCertificatesOf(rules, L"office"), L"6");
    EXPECT_EQ(RulesWithCertificatesOf({}, L"Office"), L"");
}

}  // namespace
}  // namespace tests
