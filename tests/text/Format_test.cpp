// Message patterns are filled as the user sees them; a pattern that does not fit its arguments is a bug and
// throws.
#include "text/Format.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using text::Format;

TEST(Format, PutsTextsInPlaceOfTheirConversions) {
    const std::wstring owned = L"C:\\keys";
    EXPECT_EQ(Format(L"pse://signed/%s\\local.pse", owned), L"pse://signed/C:\\keys\\local.pse");
    EXPECT_EQ(Format(L"%s;%s", L"a", std::wstring_view(L"b")), L"a;b");
    EXPECT_EQ(Format(L"[%s]", L""), L"[]");
}

TEST(Format, LeavesAPatternWithoutConversionsAsItIs) {
    EXPECT_EQ(Format(L""), L"");
    EXPECT_EQ(Format(L"No CS profiles found."), L"No CS profiles found.");
}

TEST(Format, WritesWholeNumbersInDecimal) {
    EXPECT_EQ(Format(L"Rule %d", 0), L"Rule 0");
    EXPECT_EQ(Format(L"Rule %d", -17), L"Rule -17");
    EXPECT_EQ(Format(L"Rule %d", size_t{12}), L"Rule 12");
    EXPECT_EQ(Format(L"%lld", std::numeric_limits<int64_t>::min()), L"-9223372036854775808");
    EXPECT_EQ(Format(L"%lld", std::numeric_limits<int64_t>::max()), L"9223372036854775807");
}

TEST(Format, WritesCodesInUpperCaseHexadecimalWithoutLeadingZeros) {
    EXPECT_EQ(Format(L"Error 0x%X", 0u), L"Error 0x0");
    EXPECT_EQ(Format(L"Error 0x%X", 0xEAu), L"Error 0xEA");
    EXPECT_EQ(Format(L"Error 0x%X", uint32_t{0xFFFFFFFF}), L"Error 0xFFFFFFFF");
}

TEST(Format, FillsConversionsInTurn) {
    EXPECT_EQ(Format(L"%s;;%lld", L"Bank keys", int64_t{1763712000}), L"Bank keys;;1763712000");
    EXPECT_EQ(Format(L"%d%s%X%d", 1, L"-", 255, 2), L"1-FF2");
}

TEST(Format, TwoPerCentSignsGiveOne) {
    EXPECT_EQ(Format(L"100%%"), L"100%");
    EXPECT_EQ(Format(L"%%%d%%s", 5), L"%5%s");
}

TEST(Format, TextsPutInAreNeverReadAsPatterns) {
    EXPECT_EQ(Format(L"%s and %s", L"%s %d %% %", L"50%"), L"%s %d %% % and 50%");
}

TEST(Format, RefusesMoreOrFewerArgumentsThanConversions) {
    EXPECT_THROW(Format(L"%s"), std::invalid_argument);
    EXPECT_THROW(Format(L"%s %d", L"a"), std::invalid_argument);
    EXPECT_THROW(Format(L"%s", L"a", L"b"), std::invalid_argument);
    EXPECT_THROW(Format(L"", 1), std::invalid_argument);
    EXPECT_THROW(Format(L"%%", 1), std::invalid_argument);
}

TEST(Format, RefusesAnArgumentOfTheOtherKind) {
    EXPECT_THROW(Format(L"%s", 1), std::invalid_argument);
    EXPECT_THROW(Format(L"%d", L"1"), std::invalid_argument);
    EXPECT_THROW(Format(L"%lld", L"1"), std::invalid_argument);
    EXPECT_THROW(Format(L"%X", L"1"), std::invalid_argument);
}

TEST(Format, RefusesUnknownConversions) {
    for (const wchar_t* pattern : {L"%", L"ends in %", L"%x", L"%5d", L"%ll", L"%u", L"% d"})
        EXPECT_THROW(Format(pattern, 1), std::invalid_argument) << std::wstring_view(pattern).size();
}

}  // namespace
