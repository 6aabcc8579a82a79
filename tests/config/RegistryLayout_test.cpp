// What strings and lists look like as bytes, and what is made of bytes that nobody should have stored.
#include "config/RegistryLayout.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/config/Bytes.h"

namespace {

using namespace std::string_view_literals;
using config::Bytes;
using config::DecodeString;
using config::DecodeStringList;
using platform::ValueType;
using tests::AndAByte;
using tests::Units;
using Texts = std::vector<std::wstring>;

// A type that no name is known for.
constexpr auto strangeType = static_cast<ValueType>(4711);

Bytes EncodeList(const Texts& entries) {
    Bytes bytes(config::EncodedListSize(entries));
    config::EncodeStringList(entries, bytes);
    return bytes;
}

TEST(RegistryLayout, AStringIsItsCodeUnitsAndAZero) {
    EXPECT_EQ(config::EncodeString(L""), Units(L"\0"sv));
    EXPECT_EQ(config::EncodeString(L"ab"), Units(L"ab\0"sv));
    const Bytes cyrillic{std::byte{0x13}, std::byte{0x04}, std::byte{0}, std::byte{0}};
    EXPECT_EQ(config::EncodeString(L"\x0413"), cyrillic);
    EXPECT_EQ(config::EncodeString(L"\xD83D\xDE00").size(), 6U);
}

TEST(RegistryLayout, AListIsEachEntryWithAZeroAndOneZeroMore) {
    EXPECT_EQ(EncodeList({}), Units(L"\0"sv));
    EXPECT_EQ(EncodeList({L"a"}), Units(L"a\0\0"sv));
    EXPECT_EQ(EncodeList({L"xml", L"edi"}), Units(L"xml\0edi\0\0"sv));
    EXPECT_EQ(EncodeList({L"a", L"", L"b"}), Units(L"a\0\0b\0\0"sv));
}

TEST(RegistryLayout, TheSizeOfAListIsTwoBytesACharacterAnEntryAndTheEnd) {
    EXPECT_EQ(config::EncodedListSize({}), 2U);
    EXPECT_EQ(config::EncodedListSize({L""}), 4U);
    EXPECT_EQ(config::EncodedListSize({L"abc", L"de"}), (5U + 2U) * 2U + 2U);
}

TEST(RegistryLayout, AListIsPutAtTheFrontOfALargerBuffer) {
    Bytes buffer(10, std::byte{0xEE});
    config::EncodeStringList({L"a"}, buffer);
    Bytes expected = Units(L"a\0\0"sv);
    expected.resize(10, std::byte{0xEE});
    EXPECT_EQ(buffer, expected);
}

struct StringCase {
    const char* what;
    ValueType type;
    Bytes data;
    std::optional<std::wstring> text;
};

const StringCase stringCases[] = {
    {"a plain string", ValueType::String, Units(L"abc\0"sv), L"abc"},
    {"an empty string", ValueType::String, Units(L"\0"sv), L""},
    {"no bytes at all", ValueType::String, {}, L""},
    {"no bytes at all, expandable", ValueType::ExpandString, {}, L""},
    {"nothing is expanded", ValueType::ExpandString, Units(L"%TEMP%\\a\0"sv), L"%TEMP%\\a"},
    {"several zeros at the end", ValueType::String, Units(L"abc\0\0\0"sv), L"abc"},
    {"zeros only", ValueType::String, Units(L"\0\0\0\0"sv), L""},
    {"a zero inside", ValueType::String, Units(L"ab\0cd\0"sv), L"ab"},
    {"a zero in front", ValueType::String, Units(L"\0cd\0"sv), L""},
    {"half a surrogate pair", ValueType::String, Units(L"a\xD83D\0"sv), L"a\xD83D"},
    {"the largest code units", ValueType::String, Units(L"\xFFFF\xFFFE\0"sv), L"\xFFFF\xFFFE"},
    {"no zero at the end", ValueType::String, Units(L"abc"sv), std::nullopt},
    {"a zero inside but none at the end", ValueType::String, Units(L"ab\0c"sv), std::nullopt},
    {"one byte", ValueType::String, AndAByte({}), std::nullopt},
    {"an odd size, all zeros", ValueType::String, AndAByte(Units(L"\0"sv)), std::nullopt},
    {"an odd size behind the zero", ValueType::String, AndAByte(Units(L"abc\0"sv)), std::nullopt},
    {"an odd size with half a zero", ValueType::String, AndAByte(Units(L"abc"sv)), std::nullopt},
    {"last unit with a zero low byte", ValueType::String, Units(L"ab\x0400"sv), std::nullopt},
    {"last unit with a zero high byte", ValueType::String, Units(L"ab\x0004"sv), std::nullopt},
    {"a list", ValueType::StringList, Units(L"abc\0\0"sv), std::nullopt},
    {"a list of no bytes", ValueType::StringList, {}, std::nullopt},
    {"bytes", ValueType::Binary, Units(L"abc\0"sv), std::nullopt},
    {"no bytes of type bytes", ValueType::Binary, {}, std::nullopt},
    {"an integer", ValueType::Integer, Units(L"a\0"sv), std::nullopt},
    {"a strange type", strangeType, Units(L"abc\0"sv), std::nullopt},
    {"type 0", ValueType{}, Units(L"abc\0"sv), std::nullopt},
};

TEST(RegistryLayout, StringsFromHostileBytes) {
    for (const StringCase& c : stringCases) EXPECT_EQ(DecodeString(c.type, c.data), c.text) << c.what;
}

struct ListCase {
    const char* what;
    ValueType type;
    Bytes data;
    std::optional<Texts> entries;
};

const ListCase listCases[] = {
    {"a plain list", ValueType::StringList, Units(L"xml\0edi\0\0"sv), Texts{L"xml", L"edi"}},
    {"one entry", ValueType::StringList, Units(L"a\0\0"sv), Texts{L"a"}},
    {"more zeros than needed", ValueType::StringList, Units(L"a\0b\0\0\0\0\0"sv), Texts{L"a", L"b"}},
    {"the second entry is empty", ValueType::StringList, Units(L"a\0\0c\0\0"sv), Texts{L"a"}},
    {"the first entry is empty", ValueType::StringList, Units(L"\0b\0\0"sv), Texts{}},
    {"two zeros", ValueType::StringList, Units(L"\0\0"sv), Texts{}},
    {"a run of zeros", ValueType::StringList, Units(L"\0\0\0\0\0\0\0"sv), Texts{}},
    {"a single zero, as empty lists are stored", ValueType::StringList, Units(L"\0"sv), std::nullopt},
    {"no bytes at all", ValueType::StringList, {}, std::nullopt},
    {"one zero at the end", ValueType::StringList, Units(L"a\0b\0"sv), std::nullopt},
    {"no zero at the end", ValueType::StringList, Units(L"a\0b"sv), std::nullopt},
    {"two zeros inside but none at the end", ValueType::StringList, Units(L"a\0\0b"sv), std::nullopt},
    {"one byte", ValueType::StringList, AndAByte({}), std::nullopt},
    {"an odd size behind the zeros", ValueType::StringList, AndAByte(Units(L"a\0\0"sv)), std::nullopt},
    {"an odd size with half a zero", ValueType::StringList, AndAByte(Units(L"a\0"sv)), std::nullopt},
    {"a string counts as a list", ValueType::String, Units(L"abc\0"sv), Texts{L"abc"}},
    {"an expandable string, too", ValueType::ExpandString, Units(L"%A%\0"sv), Texts{L"%A%"}},
    {"a string with a zero inside", ValueType::String, Units(L"a\0b\0"sv), Texts{L"a", L"b"}},
    {"an empty string", ValueType::String, Units(L"\0"sv), Texts{}},
    {"a string of no bytes", ValueType::String, {}, std::nullopt},
    {"a string without its zero", ValueType::String, Units(L"abc"sv), std::nullopt},
    {"a string of odd size", ValueType::String, AndAByte(Units(L"abc\0"sv)), std::nullopt},
    {"bytes", ValueType::Binary, Units(L"a\0\0"sv), std::nullopt},
    {"an integer", ValueType::Integer, Units(L"\0\0"sv), std::nullopt},
    {"a strange type", strangeType, Units(L"a\0\0"sv), std::nullopt},
};

TEST(RegistryLayout, ListsFromHostileBytes) {
    for (const ListCase& c : listCases) EXPECT_EQ(DecodeStringList(c.type, c.data), c.entries) << c.what;
}

class RandomTexts {
  public:
    explicit RandomTexts(uint32_t seed) : random_(seed) {}

    // Any code units but zero; 1 to longest of them, or 0 where that is allowed.
    std::wstring Text(size_t shortest, size_t longest) {
        std::wstring text(shortest + random_() % (longest - shortest + 1), L' ');
        for (wchar_t& unit : text) unit = static_cast<wchar_t>(1 + random_() % 0xFFFF);
        return text;
    }
    Texts List() {
        Texts texts(random_() % 8);
        for (std::wstring& text : texts) text = Text(1, 12);
        return texts;
    }
    Bytes AnyBytes() {
        Bytes bytes(random_() % 24);
        for (std::byte& byte : bytes) byte = static_cast<std::byte>(random_() % 3 == 0 ? random_() % 256 : 0);
        return bytes;
    }

  private:
    std::mt19937 random_;
};

TEST(RegistryLayout, WhatIsEncodedIsReadBack) {
    const uint32_t seed = 4321;
    RandomTexts random(seed);
    for (int i = 0; i < 2'000; ++i) {
        const std::wstring text = random.Text(0, 40);
        ASSERT_EQ(DecodeString(ValueType::String, config::EncodeString(text)), text) << "seed " << seed;
        const Texts list = random.List();
        const auto read = DecodeStringList(ValueType::StringList, EncodeList(list));
        ASSERT_EQ(read.value_or(Texts{}), list) << "seed " << seed;
        ASSERT_EQ(read.has_value(), !list.empty()) << "seed " << seed;
    }
}

TEST(RegistryLayout, NoBytesGiveATextOrEntryWithAZeroInIt) {
    const uint32_t seed = 8765;
    RandomTexts random(seed);
    for (int i = 0; i < 20'000; ++i) {
        const Bytes bytes = random.AnyBytes();
        for (uint32_t type = 0; type < 12; ++type) {
            const auto text = DecodeString(static_cast<ValueType>(type), bytes);
            ASSERT_EQ(text.value_or(L"").find(L'\0'), std::wstring::npos) << "seed " << seed;
            const auto list = DecodeStringList(static_cast<ValueType>(type), bytes);
            for (const std::wstring& entry : list.value_or(Texts{})) {
                ASSERT_FALSE(entry.empty()) << "seed " << seed;
                ASSERT_EQ(entry.find(L'\0'), std::wstring::npos) << "seed " << seed;
            }
        }
    }
}

TEST(RegistryLayout, ALongListTakesTimeThatGrowsWithItsLength) {
    Bytes data;
    for (int i = 0; i < 200'000; ++i)
        data.insert(data.end(), {std::byte{'x'}, std::byte{0}, std::byte{0}, std::byte{0}});
    data.insert(data.end(), 2, std::byte{0});
    const auto entries = DecodeStringList(ValueType::StringList, data);
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 200'000U);
}

}  // namespace
