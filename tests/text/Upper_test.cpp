// Upper case is the same on every system: Unicode's, as far as one code unit stands for one letter.
#include "text/Case.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#ifndef _WIN32
#include <clocale>
#include <cwctype>
#endif

namespace {

using text::Upper;

TEST(Upper, Scripts) {
    struct Case {
        const char* script;
        std::wstring_view lower;
        std::wstring_view upper;
    };
    const Case cases[] = {
        {"ASCII", L"abc xyz", L"ABC XYZ"},
        {"Latin-1", L"\x00E4\x00F6\x00FC \x00E0\x00FE", L"\x00C4\x00D6\x00DC \x00C0\x00DE"},
        {"Latin-1 letter whose capital is elsewhere", L"\x00FF", L"\x0178"},
        {"Latin Extended", L"\x0101\x017E\x0219", L"\x0100\x017D\x0218"},
        {"Cyrillic", L"\x0433\x0440\x0443\x043F\x043F\x0430 \x0451\x045F",
         L"\x0413\x0420\x0423\x041F\x041F\x0410 \x0401\x040F"},
        {"Greek", L"\x03B1\x03C9 \x03AC\x03CE", L"\x0391\x03A9 \x0386\x038F"},
        {"Greek final sigma", L"\x03C3\x03C2", L"\x03A3\x03A3"},
        {"Armenian", L"\x0561\x0586", L"\x0531\x0556"},
        {"wide letters", L"\xFF41\xFF5A", L"\xFF21\xFF3A"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Upper(c.lower), c.upper) << c.script;
        EXPECT_EQ(Upper(c.upper), c.upper) << c.script;
    }
}

TEST(Upper, LeavesEverythingElseAlone) {
    for (const std::wstring_view text : {L"", L"0123 @[`{~", L"\x00D7\x00F7\x00DF" /* times, divide, sharp s */,
                                         L"\x4E00\x05D0\xFFFF", L"\xD83D\xDE00" /* two halves of one character */})
        EXPECT_EQ(Upper(text), text) << testing::PrintToString(text);
}

TEST(Upper, KeepsZerosInsideATextAndItsLength) {
    const std::wstring_view text(L"a\0b", 3);
    EXPECT_EQ(Upper(text), std::wstring(L"A\0B", 3));
}

TEST(Upper, TwiceIsAsOnce) {
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const wchar_t once = Upper(static_cast<wchar_t>(unit));
        ASSERT_EQ(Upper(once), once) << std::hex << unit;
    }
}

// Every answer in two numbers: how many units change, and FNV-1a over what becomes of each in turn.
TEST(Upper, IsKnownForEveryUnit) {
    size_t changed = 0;
    uint64_t hash = 0xCBF29CE484222325;
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const auto upper = static_cast<uint32_t>(Upper(static_cast<wchar_t>(unit)));
        changed += upper != unit ? 1U : 0U;
        hash = (hash ^ upper) * 0x100000001B3;
    }
    EXPECT_EQ(changed, 1163U);
    EXPECT_EQ(hash, 0xA45E8B480D600C08U);
}

#ifndef _WIN32
TEST(Upper, LeavesWhatIsNoUnitAlone) {
    for (const uint32_t character : {0x10000U, 0x10041U, 0x10061U, 0x10400U, 0x10428U, 0x10FFFFU, 0xFFFFFFFFU})
        EXPECT_EQ(static_cast<uint32_t>(Upper(static_cast<wchar_t>(character))), character) << std::hex << character;
}

// Greek vowels with a small iota below: in capitals the iota is a letter of its own, so that there are two.
// The system gives the form for titles instead, a capital with the same small iota.
bool HasTwoCapitals(uint32_t unit) {
    const uint32_t block = unit & 0xFFF0;
    if (block == 0x1F80 || block == 0x1F90 || block == 0x1FA0) return (unit & 0xF) < 8;
    return unit == 0x1FB3 || unit == 0x1FC3 || unit == 0x1FF3;
}

TEST(Upper, AgreesWithTheSystemOnTheWholeBasicPlane) {
    const std::string former = std::setlocale(LC_CTYPE, nullptr);
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const uint32_t expected = HasTwoCapitals(unit) ? unit : std::towupper(static_cast<wint_t>(unit));
        EXPECT_EQ(static_cast<uint32_t>(Upper(static_cast<wchar_t>(unit))), expected) << std::hex << unit;
    }
    std::setlocale(LC_CTYPE, former.c_str());
}
#endif

}  // namespace
