// The order of rule keys, compared with the exchange sort that defines it.
#include "config/Load.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using config::OrderRuleKeys;
using config::RuleKeyNumber;
using Names = std::vector<std::wstring>;

// As it was always done: (count - 2) passes over all neighbours, and nothing for fewer than three names.
Names OrderedByExchanges(Names names) {
    if (names.size() < 3) return names;
    for (size_t pass = 0; pass < names.size() - 2; ++pass)
        for (size_t i = 0; i + 1 < names.size(); ++i)
            if (RuleKeyNumber(names[i]) > RuleKeyNumber(names[i + 1])) std::swap(names[i], names[i + 1]);
    return names;
}

Names Ordered(Names names) {
    OrderRuleKeys(names);
    return names;
}

TEST(RuleOrder, TheNumberStandsBehindTheLastBlank) {
    struct Case {
        std::wstring_view name;
        uint64_t number;
    };
    const Case cases[] = {
        {L"Rule 0", 0},
        {L"Rule 12", 12},
        {L"Rule 007", 7},
        {L"My Rule 3 5", 5},
        {L" 9", 9},
        {L"Rule 4x", 4},
        {L"Rule", 0},
        {L"Rule7", 0},
        {L"42", 0},
        {L"", 0},
        {L"Rule ", 0},
        {L"Rule 5 ", 0},
        {L"Rule x5", 0},
        {L"Rule -3", 0},
        {L"Rule\t8", 0},
        {L"5 Rule", 0},
        {L"Rule 2147483648", 2147483648U},
        {L"Rule 4294967296", 4294967296U},
        {L"Rule 99999999999999999999999999", std::numeric_limits<uint64_t>::max()},
    };
    for (const Case& c : cases) EXPECT_EQ(RuleKeyNumber(c.name), c.number) << testing::PrintToString(c.name);
}

TEST(RuleOrder, Examples) {
    struct Case {
        const char* what;
        Names names;
        Names ordered;
    };
    const Case cases[] = {
        {"none", {}, {}},
        {"one", {L"Rule 5"}, {L"Rule 5"}},
        {"two are never exchanged", {L"Rule 10", L"Rule 2"}, {L"Rule 10", L"Rule 2"}},
        {"by number, not by letters", {L"Rule 1", L"Rule 10", L"Rule 2"}, {L"Rule 1", L"Rule 2", L"Rule 10"}},
        {"gaps", {L"Rule 0", L"Rule 20", L"Rule 3", L"Rule 7"}, {L"Rule 0", L"Rule 3", L"Rule 7", L"Rule 20"}},
        {"three, the smallest last: one pass is too few",
         {L"Rule 2", L"Rule 3", L"Rule 1"},
         {L"Rule 2", L"Rule 1", L"Rule 3"}},
        {"four, the smallest last: two passes are too few",
         {L"Rule 2", L"Rule 4", L"Rule 3", L"Rule 1"},
         {L"Rule 2", L"Rule 1", L"Rule 3", L"Rule 4"}},
        {"the last as small as another one: enough", {L"Rule 3", L"b 1", L"a 1"}, {L"b 1", L"a 1", L"Rule 3"}},
        {"equal numbers keep their order", {L"c 1", L"b 1", L"a 1", L"z 0"}, {L"c 1", L"z 0", L"b 1", L"a 1"}},
        {"names without numbers count as 0",
         {L"Rule 1", L"Extra", L"Rule 0", L"Rule"},
         {L"Extra", L"Rule 0", L"Rule", L"Rule 1"}},
        {"numbers beyond 32 bits",
         {L"Rule 4294967297", L"Rule 2", L"Rule 1"},
         {L"Rule 2", L"Rule 1", L"Rule 4294967297"}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(OrderedByExchanges(c.names), c.ordered) << "the example itself: " << c.what;
        EXPECT_EQ(Ordered(c.names), c.ordered) << c.what;
    }
}

TEST(RuleOrder, EveryOrderOfUpToSevenNames) {
    for (size_t count = 0; count <= 7; ++count) {
        Names names;
        for (size_t i = 0; i < count; ++i) names.push_back(L"Rule " + std::to_wstring(i));
        do ASSERT_EQ(Ordered(names), OrderedByExchanges(names)) << testing::PrintToString(names);
        while (std::next_permutation(names.begin(), names.end()));
    }
}

TEST(RuleOrder, RandomNames) {
    const uint32_t seed = 777;
    std::mt19937 random(seed);
    for (size_t size = 0; size <= 60; ++size) {
        for (int round = 0; round < 60; ++round) {
            // A small range makes equal numbers frequent. The first part tells equal ones apart.
            const size_t range = 1 + random() % (2 * size + 1);
            Names names;
            for (size_t i = 0; i < size; ++i)
                names.push_back(std::to_wstring(i) + L" " + std::to_wstring(random() % range));
            ASSERT_EQ(Ordered(names), OrderedByExchanges(names))
                << "seed " << seed << ": " << testing::PrintToString(names);
        }
    }
}

TEST(RuleOrder, ManyNamesTakeNoLongerThanASort) {
    Names names;
    for (size_t i = 200'000; i > 0; --i) names.push_back(L"Rule " + std::to_wstring(i));
    OrderRuleKeys(names);
    EXPECT_EQ(names[0], L"Rule 2");
    EXPECT_EQ(names[1], L"Rule 1");
    EXPECT_EQ(names.back(), L"Rule 200000");
}

}  // namespace
