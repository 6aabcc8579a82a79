// Lower case is the same on every system: Unicode's, as far as one code unit stands for one letter.
#include "text/Case.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#ifndef _WIN32
#include <clocale>
#include <cwctype>
#endif

namespace {

using text::Lower;

wchar_t LowerOf(uint32_t unit) {
    return Lower(std::wstring(1, static_cast<wchar_t>(unit))).at(0);
}

TEST(Lower, Scripts) {
    struct Case {
        const char* script;
        std::wstring_view upper;
        std::wstring_view lower;
    };
    const Case cases[] = {
        {"ASCII", L"ABC XYZ", L"abc xyz"},
        {"Latin-1", L"\x00C4\x00D6\x00DC \x00C0\x00DE", L"\x00E4\x00F6\x00FC \x00E0\x00FE"},
        {"capital whose letter is in Latin-1", L"\x0178", L"\x00FF"},
        {"Latin Extended", L"\x0100\x017D\x0218", L"\x0101\x017E\x0219"},
        {"capital I with a dot", L"\x0130", L"i"},
        {"capital sharp s", L"\x1E9E", L"\x00DF"},
        {"signs that are letters", L"\x212A\x2126", L"k\x03C9"},
        {"Cyrillic", L"\x0413\x0420\x0423\x041F\x041F\x0410 \x0401\x040F",
         L"\x0433\x0440\x0443\x043F\x043F\x0430 \x0451\x045F"},
        {"Greek", L"\x0391\x03A9 \x0386\x038F", L"\x03B1\x03C9 \x03AC\x03CE"},
        {"Greek sigma at the end of a word", L"\x039F\x03A3", L"\x03BF\x03C3"},
        {"Armenian", L"\x0531\x0556", L"\x0561\x0586"},
        {"wide letters", L"\xFF21\xFF3A", L"\xFF41\xFF5A"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Lower(c.upper), c.lower) << c.script;
        EXPECT_EQ(Lower(c.lower), c.lower) << c.script;
    }
}

TEST(Lower, LeavesEverythingElseAlone) {
    for (const std::wstring_view text : {L"", L"0123 @[`{~", L"\x00D7\x00F7\x00DF" /* times, divide, sharp s */,
                                         L"\x4E00\x05D0\xFFFF", L"\xD801\xDC00" /* halves of one capital */})
        EXPECT_EQ(Lower(text), text) << testing::PrintToString(text);
}

TEST(Lower, KeepsZerosInsideATextAndItsLength) {
    const std::wstring_view text(L"A\0B", 3);
    EXPECT_EQ(Lower(text), std::wstring(L"a\0b", 3));
}

TEST(Lower, TwiceIsAsOnce) {
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const wchar_t once = LowerOf(unit);
        ASSERT_EQ(LowerOf(static_cast<uint32_t>(once)), once) << std::hex << unit;
    }
}

// Every answer in two numbers: how many units change, and FNV-1a over what becomes of each in turn.
TEST(Lower, IsKnownForEveryUnit) {
    size_t changed = 0;
    uint64_t hash = 0xCBF29CE484222325;
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const auto lower = static_cast<uint32_t>(LowerOf(unit));
        changed += lower != unit ? 1U : 0U;
        hash = (hash ^ lower) * 0x100000001B3;
    }
    EXPECT_EQ(changed, 1173U);
    EXPECT_EQ(hash, 0xF1700FE51BD3338EU);
}

#ifndef _WIN32
TEST(Lower, LeavesWhatIsNoUnitAlone) {
    for (const uint32_t character : {0x10000U, 0x10041U, 0x10061U, 0x10400U, 0x10428U, 0x10FFFFU, 0xFFFFFFFFU})
        EXPECT_EQ(static_cast<uint32_t>(LowerOf(character)), character) << std::hex << character;
}

TEST(Lower, AgreesWithTheSystemOnTheWholeBasicPlane) {
    const std::string former = std::setlocale(LC_CTYPE, nullptr);
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit)
        EXPECT_EQ(static_cast<wint_t>(LowerOf(unit)), std::towlower(static_cast<wint_t>(unit))) << std::hex << unit;
    std::setlocale(LC_CTYPE, former.c_str());
}
#endif

}  // namespace
