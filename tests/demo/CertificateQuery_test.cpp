#include "demo/CertificateQuery.h"

#include <gtest/gtest.h>

namespace {

using demo::MatchesQuery;
using demo::MatchesSample;

TEST(CertificateQueryTest, AsterisksStandForAnyRun) {
    struct Case {
        const char* text;
        const char* sample;
        bool matches;
    };
    const Case cases[] = {
        {"", "", true},         {"", "*", true},          {"a", "", false},        {"abc", "abc", true},
        {"abc", "ABC", true},   {"abc", "ab", false},     {"abc", "abcd", false},  {"abc", "a*", true},
        {"abc", "*c", true},    {"abc", "*b*", true},     {"abc", "a*c", true},    {"abc", "a*b", false},
        {"abc", "**", true},    {"aXbXc", "a*b*c", true}, {"aab", "*ab", true},    {"abab", "*ab", true},
        {"abac", "a*b", false}, {"abc", "abc**", true},   {"abc", "abc*d", false}, {"\xCA", "\xEA", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(MatchesSample(c.text, c.sample), c.matches) << c.text << " and " << c.sample;
}

TEST(CertificateQueryTest, AQueryMeansTheWholeNameOrItsAssertions) {
    const char* const name = "CN=Ivan Petrov, O=Bank,C=RU";
    for (const char* query : {"*=*", "*", "CN=Ivan Petrov, O=Bank,C=RU", "cn=iv*", "CN=Iv*,C=RU", "O=Bank",
                              "C=RU, CN=*", "*Petrov*"})
        EXPECT_TRUE(MatchesQuery(name, query)) << query;
    for (const char* query : {"", "CN=Iv", "CN=QQQ,C=RU", "CN=Iv*,C=DE", "Ivan Petrov", "U"})
        EXPECT_FALSE(MatchesQuery(name, query)) << query;
}

}  // namespace
