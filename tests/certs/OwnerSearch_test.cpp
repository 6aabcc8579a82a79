#include "certs/OwnerSearch.h"

#include <gtest/gtest.h>

#include <random>

#include "certs/NameFields.h"
#include "tests/certs/SampleReference.h"

namespace {

using certs::OwnerSearch;
using certs::WildcardPattern;

constexpr size_t commonName = 0;
constexpr size_t organization = 7;

TEST(WildcardPattern, MatchesWhatItDescribes) {
    struct Case {
        std::wstring_view sample;
        std::vector<std::wstring_view> matching;
        std::vector<std::wstring_view> others;
    };
    const Case cases[] = {
        {L"IVAN", {L"IVAN"}, {L"", L"IVA", L"IVANOV", L"XIVAN", L"ivan"}},
        {L"*", {L"", L"A", L"ANYTHING, AT ALL"}, {}},
        {L"**", {L"", L"A"}, {}},
        {L"IV*", {L"IV", L"IVAN"}, {L"I", L"XIV"}},
        {L"*OV", {L"OV", L"IVANOV"}, {L"OVA", L"V"}},
        {L"*VAN*", {L"VAN", L"IVANOV"}, {L"VN", L"VA", L"V AN"}},
        {L"I*V", {L"IV", L"IVANOV"}, {L"I", L"V", L"IVA"}},
        {L"A*A", {L"AA", L"ABA"}, {L"A"}},          // the two pieces do not overlap
        {L"AB*BC", {L"ABBC", L"ABXBC"}, {L"ABC"}},  //
        {L"A*B*C", {L"ABC", L"AXBXC"}, {L"AC", L"ACB", L"ABCB"}},
        {L"*AB*AB*", {L"ABAB", L"XABXABX"}, {L"ABB", L"AB"}},
        {L"*AB*B", {L"ABB", L"ABXB"}, {L"AB"}},  // the middle piece is used up
        {L"A**B", {L"AB", L"AXB"}, {L"A", L"B"}},
        {L"*AAB*", {L"AAAB", L"XAABX"}, {L"AAA", L"ABAB"}},
        {L"", {L""}, {L"A"}},
    };
    for (const Case& c : cases) {
        const WildcardPattern sample(c.sample);
        for (const auto value : c.matching)
            EXPECT_TRUE(sample.Matches(value))
                << testing::PrintToString(c.sample) << " and " << testing::PrintToString(value);
        for (const auto value : c.others)
            EXPECT_FALSE(sample.Matches(value))
                << testing::PrintToString(c.sample) << " and " << testing::PrintToString(value);
    }
}

TEST(WildcardPattern, AgreesWithTryingEveryWay) {
    std::mt19937 random(6);
    const auto text = [&random](size_t longest, std::wstring_view letters) {
        std::wstring made(random() % (longest + 1), L' ');
        for (wchar_t& unit : made) unit = letters[random() % letters.size()];
        return made;
    };
    int matches = 0;
    for (int i = 0; i < 60'000; ++i) {
        const std::wstring sample = text(7, L"AB*");
        const std::wstring value = text(9, L"AB");
        const bool matching = tests::MatchesInSomeWay(sample, value);
        ASSERT_EQ(WildcardPattern(sample).Matches(value), matching)
            << testing::PrintToString(sample) << " and " << testing::PrintToString(value);
        matches += matching ? 1 : 0;
    }
    EXPECT_GT(matches, 6'000);
}

TEST(WildcardPattern, HasToSaySomething) {
    for (const std::wstring_view usable : {L"*", L"A", L" A ", L"*A", L"A*", L"\tA", L"=", L"* ."})
        EXPECT_TRUE(certs::IsUsablePattern(usable)) << testing::PrintToString(usable);
    for (const std::wstring_view useless : {L"", L" ", L"\t", L"**", L"* ", L" *", L" \t*", L"***"})
        EXPECT_FALSE(certs::IsUsablePattern(useless)) << testing::PrintToString(useless);
}

TEST(OwnerSearch, AsksForTheSampleAsItWasTyped) {
    EXPECT_EQ(OwnerSearch(commonName, L"Iv*").Pattern(), L"CN=Iv*");
    EXPECT_EQ(OwnerSearch(organization, L"*").Pattern(), L"O=*");
    EXPECT_EQ(OwnerSearch(std::nullopt, L"cn=Iv*").Pattern(), L"cn=Iv*");
    EXPECT_EQ(OwnerSearch(std::nullopt, L"*").Pattern(), L"*");
}

TEST(OwnerSearch, MeansNamesWhoseFieldMatchesInAnyCase) {
    struct Case {
        size_t field;
        std::wstring_view sample;
        std::wstring_view name;
        bool meant;
    };
    const Case cases[] = {
        {commonName, L"Iv*", L"CN=Ivanov,O=Bank", true},
        {commonName, L"iV*", L"cn=ivanov,o=bank", true},
        {commonName, L"Iv*", L"CN=Petrov,O=Ivan", false},
        {commonName, L"Ivanov", L"CN=Ivanov,O=Bank", true},
        {commonName, L"Ivan", L"CN=Ivanov,O=Bank", false},
        {organization, L"Bank", L"CN=Ivanov,O=Bank", true},
        {organization, L"Bank", L"CN=Ivanov,OU=Bank", false},
        {organization, L"Bank", L"O=Bank", true},
        {organization, L"Bank", L"CN=A,O=Shop,O=Bank", true},  // any of several
        {organization, L"Bank", L"CN=A, O=Bank", false},       // part of the common name
        {commonName, L"A, O=Bank", L"CN=A, O=Bank", true},     //
        {organization, L"Red, Blue", L"CN=A,O=Red, Blue,C=RU", true},
        {organization, L"Red", L"CN=A,O=Red,City", true},  // cut before a "C"
        {organization, L"*", L"CN=A,O=", true},
        {organization, L"*", L"CN=A", false},
        {commonName, L"\x0438*", L"CN=\x0418\x0432\x0430\x043D", true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(OwnerSearch(c.field, c.sample).IsMeant(c.name), c.meant)
            << testing::PrintToString(c.sample) << " in " << testing::PrintToString(c.name);
}

TEST(OwnerSearch, ByTheEntireNameMeansWhateverIsFound) {
    const OwnerSearch search(std::nullopt, L"CN=Iv*");
    EXPECT_TRUE(search.IsMeant(L"CN=Ivanov"));
    EXPECT_TRUE(search.IsMeant(L"something else"));
}

// Linear: this would take minutes if every place were tried with the whole piece.
TEST(OwnerSearch, LongNamesAreComparedInNoTime) {
    const std::wstring value(400'000, L'A');
    const std::wstring piece(100'000, L'A');
    EXPECT_FALSE(OwnerSearch(commonName, L"*" + piece + L"B*").IsMeant(L"CN=" + value));
    EXPECT_TRUE(OwnerSearch(commonName, L"*" + piece + L"*" + piece + L"*").IsMeant(L"CN=" + value));
}

}  // namespace
