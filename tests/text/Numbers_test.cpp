// Numbers as text and back, up to the limits of their types.
#include "text/Numbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace {

using text::Decimal;
using text::Hexadecimal;
using text::LeadingDigits;
using text::LeadingNumber;

constexpr int32_t smallest = std::numeric_limits<int32_t>::min();
constexpr int32_t largest = std::numeric_limits<int32_t>::max();
constexpr uint64_t largestDigits = std::numeric_limits<uint64_t>::max();

TEST(Numbers, Decimal) {
    EXPECT_EQ(Decimal(0), L"0");
    EXPECT_EQ(Decimal(7), L"7");
    EXPECT_EQ(Decimal(10), L"10");
    EXPECT_EQ(Decimal(-1), L"-1");
    EXPECT_EQ(Decimal(smallest), L"-2147483648");
    EXPECT_EQ(Decimal(std::numeric_limits<int64_t>::max()), L"9223372036854775807");
    EXPECT_EQ(Decimal(std::numeric_limits<int64_t>::min()), L"-9223372036854775808");
}

TEST(Numbers, Hexadecimal) {
    EXPECT_EQ(Hexadecimal(0), L"0");
    EXPECT_EQ(Hexadecimal(15), L"F");
    EXPECT_EQ(Hexadecimal(16), L"10");
    EXPECT_EQ(Hexadecimal(0x20000005), L"20000005");
    EXPECT_EQ(Hexadecimal(0xABCDEF), L"ABCDEF");
    EXPECT_EQ(Hexadecimal(largestDigits), L"FFFFFFFFFFFFFFFF");
}

TEST(Numbers, LeadingDigitsEndAtTheFirstOtherCharacter) {
    struct Case {
        std::wstring_view text;
        uint64_t value;
    };
    const Case cases[] = {
        {L"", 0},
        {L"0", 0},
        {L"10", 10},
        {L"0010", 10},
        {L"12abc", 12},
        {L"abc12", 0},
        {L" 12", 0},
        {L"-12", 0},
        {L"+12", 0},
        {L"1 2", 1},
        {L"1.5", 1},
        {L"0x1F", 0},
        {L"9/", 9},
        {L"9:", 9},
        {std::wstring_view(L"3\0004", 3), 3},
        {L"\x0661", 0} /* an Arabic digit */,
        {L"\xFF11", 0} /* a wide digit */,
    };
    for (const Case& c : cases) EXPECT_EQ(LeadingDigits(c.text), c.value) << testing::PrintToString(c.text);
}

TEST(Numbers, LeadingDigitsStopGrowingAtTheLargestNumber) {
    EXPECT_EQ(LeadingDigits(L"18446744073709551614"), largestDigits - 1);
    EXPECT_EQ(LeadingDigits(L"18446744073709551615"), largestDigits);
    EXPECT_EQ(LeadingDigits(L"18446744073709551616"), largestDigits);
    EXPECT_EQ(LeadingDigits(L"18446744073709551620"), largestDigits);
    EXPECT_EQ(LeadingDigits(std::wstring(10'000, L'9')), largestDigits);
}

TEST(Numbers, LeadingNumberTakesBlanksAndASignAndStaysWithin32Bits) {
    struct Case {
        std::wstring_view text;
        int32_t value;
    };
    const Case cases[] = {
        {L"", 0},
        {L"-", 0},
        {L"yes", 0},
        {L"-yes", 0},
        {L"--5", 0},
        {L"- 5", 0},
        {L"-+5", 0},
        {L"+", 0},
        {L" ", 0},
        {L"+5", 5},
        {L"  5", 5},
        {L" -5 6", -5},
        {L"0", 0},
        {L"-0", 0},
        {L"5", 5},
        {L"-5", -5},
        {L"24h", 24},
        {L"-24h", -24},
        {L"2147483646", largest - 1},
        {L"2147483647", largest},
        {L"2147483648", largest},
        {L"99999999999999999999999", largest},
        {L"-2147483647", smallest + 1},
        {L"-2147483648", smallest},
        {L"-2147483649", smallest},
        {L"-99999999999999999999999", smallest},
    };
    for (const Case& c : cases) EXPECT_EQ(LeadingNumber(c.text), c.value) << testing::PrintToString(c.text);
}

TEST(Numbers, DecimalAndLeadingNumberAreInverse) {
    const uint32_t seed = 20240117;
    std::mt19937 random(seed);
    for (int i = 0; i < 10'000; ++i) {
        const auto number = static_cast<int32_t>(static_cast<uint32_t>(random()) >> (random() % 32));
        ASSERT_EQ(LeadingNumber(Decimal(number)), number) << "seed " << seed;
        ASSERT_EQ(LeadingNumber(Decimal(-int64_t{number})), number == smallest ? largest : -number);
    }
}

}  // namespace
