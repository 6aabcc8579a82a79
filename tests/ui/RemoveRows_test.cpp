#include "ui/RemoveRows.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Texts = std::vector<std::wstring>;
using Rows = std::vector<size_t>;

TEST(RemoveRows, TakesOutExactlyThoseAndKeepsTheOrderOfTheRest) {
    struct Case {
        Rows rows;
        Texts left;
    };
    const Case cases[] = {{{}, {L"a", L"b", L"c", L"d", L"e"}},
                          {{0}, {L"b", L"c", L"d", L"e"}},
                          {{4}, {L"a", L"b", L"c", L"d"}},
                          {{0, 2, 4}, {L"b", L"d"}},
                          {{1, 2}, {L"a", L"d", L"e"}},
                          {{3, 9}, {L"a", L"b", L"c", L"e"}},
                          {{0, 1, 2, 3, 4}, {}}};
    for (const Case& c : cases) {
        Texts items{L"a", L"b", L"c", L"d", L"e"};
        ui::RemoveRows(items, c.rows);
        EXPECT_EQ(items, c.left) << testing::PrintToString(c.rows);
    }
}

}  // namespace
