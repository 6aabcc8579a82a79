#include "certs/NameRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>

namespace {

using Keys = std::vector<std::wstring_view>;
using Order = std::vector<uint32_t>;

Order StableOrder(const Keys& keys, bool descending) {
    Order order(keys.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](uint32_t a, uint32_t b) { return descending ? keys[b] < keys[a] : keys[a] < keys[b]; });
    return order;
}

void CheckBothWays(const Keys& keys) {
    ASSERT_EQ(certs::SortedOrder(keys, false), StableOrder(keys, false));
    ASSERT_EQ(certs::SortedOrder(keys, true), StableOrder(keys, true));
}

TEST(KeySort, SortsWhateverTheLengths) {
    CheckBothWays({});
    CheckBothWays({L""});
    CheckBothWays({L"", L"", L""});
    CheckBothWays({L"b", L"", L"a", L"", L"ab"});
    CheckBothWays({L"abcd", L"abcde", L"abc", L"abcdefgh", L"abcdefghi", L"abcd"});
    CheckBothWays({L"same beginning 2", L"same beginning", L"", L"same beginning 10", L"same beginning"});
    CheckBothWays({L"\xFFFF", L"a", L"\x0416", L"Z", L"\x00E4"});
}

TEST(KeySort, ZerosAreCharactersToo) {
    using namespace std::string_view_literals;
    CheckBothWays({L"a\0\0"sv, L"a"sv, L"a\0"sv, L"a\0b"sv, L""sv, L"\0\0\0\0\0"sv, L"\0"sv, L"a\0\0\0\0\0c"sv});
}

TEST(KeySort, AgreesWithAStableSort) {
    std::mt19937 random(12);
    const std::wstring beginnings[] = {L"", L"O=", L"O=Office of inner matters ", L"aaaa", L"aaaaaaaa"};
    const std::wstring_view letters(L"ab\0\xFFFF", 4);
    for (int round = 0; round < 1000; ++round) {
        std::vector<std::wstring> texts(random() % 30);
        for (std::wstring& text : texts) {
            text = beginnings[random() % std::size(beginnings)];
            for (size_t i = random() % 12; i > 0; --i) text += letters[random() % letters.size()];
        }
        CheckBothWays({texts.begin(), texts.end()});
    }
}

// Each is the beginning of the next: as many steps as can be, without as many calls within each other.
TEST(KeySort, ALadderOfBeginningsIsNoTrap) {
    const std::wstring longest(1'500, L'a');
    Keys keys;
    for (size_t length = longest.size(); length > 0; --length)
        keys.push_back(std::wstring_view(longest).substr(0, length));
    const Order order = certs::SortedOrder(keys, false);
    ASSERT_EQ(order.size(), keys.size());
    for (size_t i = 0; i < order.size(); ++i) ASSERT_EQ(keys[order[i]].size(), i + 1);
}

}  // namespace
