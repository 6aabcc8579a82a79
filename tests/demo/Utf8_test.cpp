#include "demo/Utf8.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using demo::FromUtf8;
using demo::ToUtf8;

struct Pair {
    std::string utf8;
    std::wstring units;
};

TEST(Utf8Test, EveryLengthOfCharacterGoesBothWays) {
    const std::vector<Pair> pairs{
        {"", L""},
        {"a\\\"\x7F", L"a\\\"\x007F"},
        {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
        {"\xC2\x80", L"\x0080"},
        {"\xDF\xBF", L"\x07FF"},
        {"\xE0\xA0\x80", L"\x0800"},
        {"\xED\x9F\xBF", L"\xD7FF"},
        {"\xEE\x80\x80", L"\xE000"},
        {"\xEF\xBF\xBF", L"\xFFFF"},
        {"\xF0\x90\x80\x80", L"\xD800\xDC00"},
        {"\xF4\x8F\xBF\xBF", L"\xDBFF\xDFFF"},
        {"x\xF0\x9F\x98\x80y", L"x\xD83D\xDE00y"},
    };
    for (const Pair& pair : pairs) {
        EXPECT_EQ(FromUtf8(pair.utf8), pair.units) << pair.utf8;
        EXPECT_EQ(ToUtf8(pair.units), pair.utf8) << pair.utf8;
    }
}

TEST(Utf8Test, IllFormedBytesAreRefused) {
    const std::vector<std::string> wrong{
        "\x80",              // continuation without a beginning
        "a\xBF",             //
        "\xC2",              // continuation missing
        "\xC2"               //
        "a",                 //
        "\xE0\xA0",          //
        "\xF0\x90\x80",      //
        "\xF0\x90\x80\xC0",  //
        "\xC0\x80",          // longer than needed
        "\xC1\xBF",          //
        "\xE0\x9F\xBF",      //
        "\xF0\x8F\xBF\xBF",  //
        "\xED\xA0\x80",      // surrogates
        "\xED\xBF\xBF",      //
        "\xF4\x90\x80\x80",  // beyond Unicode
        "\xF7\xBF\xBF\xBF",  //
        "\xF8\x88\x80\x80\x80",
        "\xFE",
        "\xFF",
    };
    for (const std::string& bytes : wrong) EXPECT_EQ(FromUtf8(bytes), std::nullopt) << bytes;
}

TEST(Utf8Test, SurrogatesWithoutPartnerAreRefused) {
    const std::vector<std::wstring> wrong{
        L"\xD800",
        L"\xDFFF",
        L"\xDC00\xD800",
        L"\xD83D\xD83D\xDE00",
        L"a\xD83D",
        L"\xD83D"
        L"a",
        L"\xD83D\xE000",
    };
    for (const std::wstring& units : wrong) EXPECT_EQ(ToUtf8(units), std::nullopt);
}

TEST(Utf8Test, EveryCodeUnitOfTheBasicPlaneSurvives) {
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const std::wstring units(1, static_cast<wchar_t>(unit));
        const auto utf8 = ToUtf8(units);
        ASSERT_EQ(utf8.has_value(), unit < 0xD800 || unit > 0xDFFF) << unit;
        if (utf8) {
            ASSERT_EQ(FromUtf8(*utf8), units) << unit;
        }
    }
}

}  // namespace
