// Cutting the ends of texts and joining texts.
#include "text/Trim.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using text::JoinNonEmpty;
using text::Trim;
using text::TrimRight;

TEST(Trim, TrimRightCutsOnlyTheGivenCharactersAtTheEnd) {
    struct Case {
        std::wstring_view text;
        std::wstring_view trimmed;
    };
    const Case cases[] = {
        {L"", L""},
        {L".", L""},
        {L"...\r\n\r\n", L""},
        {L"Access is denied.\r\n", L"Access is denied"},
        {L"Access is denied", L"Access is denied"},
        {L"a.b\r\nc", L"a.b\r\nc"},
        {L".\r\na", L".\r\na"},
        {L"a.\n.\r", L"a"},
        {L"a. ", L"a. "},
    };
    for (const Case& c : cases) EXPECT_EQ(TrimRight(c.text, L".\r\n"), c.trimmed) << testing::PrintToString(c.text);
    EXPECT_EQ(TrimRight(L"abc", L""), L"abc");
}

TEST(Trim, CutsOnlyTheGivenCharactersAtBothEnds) {
    struct Case {
        std::wstring_view text;
        std::wstring_view trimmed;
    };
    const Case cases[] = {
        {L"", L""},      {L" ", L""},        {L" \t ", L""},    {L"a", L"a"},          {L"  a", L"a"},
        {L"a\t ", L"a"}, {L" a b ", L"a b"}, {L"\na ", L"\na"}, {L"\t a \n", L"a \n"},
    };
    for (const Case& c : cases) EXPECT_EQ(Trim(c.text, L" \t"), c.trimmed) << testing::PrintToString(c.text);
    EXPECT_EQ(Trim(L" abc ", L""), L" abc ");
    EXPECT_EQ(Trim(std::wstring_view(L" a\0b ", 5), L" "), std::wstring_view(L"a\0b", 3));
}

TEST(Trim, JoinNonEmptySkipsEmptyParts) {
    EXPECT_EQ(JoinNonEmpty({}, L";"), L"");
    EXPECT_EQ(JoinNonEmpty({L"", L""}, L";"), L"");
    EXPECT_EQ(JoinNonEmpty({L"a"}, L";"), L"a");
    EXPECT_EQ(JoinNonEmpty({L"", L"a", L"", L"b", L""}, L"; "), L"a; b");
    EXPECT_EQ(JoinNonEmpty({L"a", L"b", L"c"}, L""), L"abc");
}

}  // namespace
