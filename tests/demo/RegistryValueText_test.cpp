#include "demo/RegistryValueText.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

namespace {

using demo::FormatRegistryValue;
using demo::ParseRegistryValue;
using demo::RegistryValue;
using platform::ValueType;

RegistryValue Value(ValueType type, std::initializer_list<int> bytes) {
    RegistryValue value{type, {}};
    for (const int byte : bytes) value.Data.push_back(static_cast<std::byte>(byte));
    return value;
}

struct Example {
    RegistryValue value;
    std::string text;
};

std::vector<Example> Examples() {
    return {
        {Value(ValueType::String, {0, 0}), R"("")"},
        {Value(ValueType::String, {'D', 0, ':', 0, '\\', 0, 0, 0}), R"("D:\")"},
        {Value(ValueType::String, {'"', 0, 0, 0}), R"("""")"},
        {Value(ValueType::String, {'a', 0, '"', 0, '"', 0, 'b', 0, 0, 0}), R"("a""""b")"},
        {Value(ValueType::String, {0x16, 0x04, 0, 0}), "\"\xD0\x96\""},
        {Value(ValueType::String, {0x3D, 0xD8, 0x00, 0xDE, 0, 0}), "\"\xF0\x9F\x98\x80\""},
        {Value(ValueType::String, {}), "hex(1):"},
        {Value(ValueType::String, {'a', 0}), "hex(1): 61 00"},
        {Value(ValueType::String, {'a', 0, 0}), "hex(1): 61 00 00"},
        {Value(ValueType::String, {'a', 0, 0, 0, 0, 0}), "hex(1): 61 00 00 00 00 00"},
        {Value(ValueType::String, {'\n', 0, 0, 0}), "hex(1): 0a 00 00 00"},
        {Value(ValueType::String, {0x3D, 0xD8, 0, 0}), "hex(1): 3d d8 00 00"},
        {Value(ValueType::ExpandString, {'a', 0, 0, 0}), "hex(2): 61 00 00 00"},
        {Value(ValueType::Binary, {1, 2, 255}), "hex(3): 01 02 ff"},
        {Value(ValueType::Binary, {}), "hex(3):"},
        {Value(ValueType::Integer, {0xA0, 0x0F, 0, 0}), "4000"},
        {Value(ValueType::Integer, {0, 0, 0, 0}), "0"},
        {Value(ValueType::Integer, {0xFF, 0xFF, 0xFF, 0xFF}), "-1"},
        {Value(ValueType::Integer, {0, 0, 0, 0x80}), "-2147483648"},
        {Value(ValueType::Integer, {0xFF, 0xFF, 0xFF, 0x7F}), "2147483647"},
        {Value(ValueType::Integer, {1, 0, 0}), "hex(4): 01 00 00"},
        {Value(ValueType::Integer, {1, 0, 0, 0, 0, 0, 0, 0}), "hex(4): 01 00 00 00 00 00 00 00"},
        {Value(ValueType::StringList, {0, 0}), "{}"},
        {Value(ValueType::StringList, {'a', 0, 0, 0, 0, 0}), R"({ "a" })"},
        {Value(ValueType::StringList, {'a', 0, ',', 0, 0, 0, '"', 0, 0, 0, 0, 0}), R"({ "a,", """" })"},
        {Value(ValueType::StringList, {}), "hex(7):"},
        {Value(ValueType::StringList, {0, 0, 0, 0}), "hex(7): 00 00 00 00"},
        {Value(ValueType::StringList, {'a', 0, 0, 0}), "hex(7): 61 00 00 00"},
        {Value(ValueType::StringList, {'a', 0}), "hex(7): 61 00"},
        {Value(ValueType::StringList, {'a', 0, 0, 0, 0}), "hex(7): 61 00 00 00 00"},
        {Value(ValueType::StringList, {'a', 0, 0, 0, 0, 0, 'b', 0, 0, 0, 0, 0}),
         "hex(7): 61 00 00 00 00 00 62 00 00 00 00 00"},
        {Value(ValueType::StringList, {'\t', 0, 0, 0, 0, 0}), "hex(7): 09 00 00 00 00 00"},
        {Value(static_cast<ValueType>(0), {}), "hex(0):"},
        {Value(static_cast<ValueType>(0xFFFFFFFF), {7}), "hex(4294967295): 07"},
    };
}

TEST(RegistryValueTextTest, ValuesAreWrittenReadably) {
    for (const Example& example : Examples()) EXPECT_EQ(FormatRegistryValue(example.value), example.text);
}

TEST(RegistryValueTextTest, TextsAreReadBack) {
    for (const Example& example : Examples())
        EXPECT_EQ(ParseRegistryValue(example.text), example.value) << example.text;
}

TEST(RegistryValueTextTest, WhatIsWrongIsSaid) {
    const std::vector<std::pair<std::string, std::string>> wrong{
        {"", "neither text, list, integer nor bytes"},
        {"abc", "neither text, list, integer nor bytes"},
        {"12a", "neither text, list, integer nor bytes"},
        {"+1", "neither text, list, integer nor bytes"},
        {" 1", "neither text, list, integer nor bytes"},
        {"-", "neither text, list, integer nor bytes"},
        {"2147483648", "integer beyond 32 bits"},
        {"-2147483649", "integer beyond 32 bits"},
        {"99999999999999999999999", "integer beyond 32 bits"},
        {"\"", "closing quote missing"},
        {"\"a\"\"", "closing quote missing"},
        {"\"a\" ", "unexpected characters behind the closing quote"},
        {"\"a\"b\"", "unexpected characters behind the closing quote"},
        {"\"\xC3\"", "text is not UTF-8"},
        {std::string("\"a\0\"", 4), "NUL inside a text"},
        {"{", "list entry must be a blank and a quoted text"},
        {"{ }", "list entry must be a blank and a quoted text"},
        {"{\"a\" }", "list entry must be a blank and a quoted text"},
        {"{ \"a\",\"b\" }", "list entry must be a blank and a quoted text"},
        {"{ \"a\", }", "list entry must be a blank and a quoted text"},
        {"{ \"a\"}", "list must end with a blank and a brace"},
        {"{ \"a\" } ", "list must end with a blank and a brace"},
        {"{ \"a\" \"b\" }", "list must end with a blank and a brace"},
        {"{ \"a", "closing quote missing"},
        {"{ \"\" }", "empty list entry"},
        {"{ \"a\", \"\" }", "empty list entry"},
        {"hex()", "type number missing"},
        {"hex(-1): 00", "type number missing"},
        {"hex(4294967296): 00", "type number missing"},
        {"hex(3) 00", "\"):\" missing behind the type number"},
        {"hex(3", "\"):\" missing behind the type number"},
        {"hex(3):00", "bytes must be pairs of hexadecimal digits"},
        {"hex(3): 0", "bytes must be pairs of hexadecimal digits"},
        {"hex(3): 0g", "bytes must be pairs of hexadecimal digits"},
        {"hex(3): -1", "bytes must be pairs of hexadecimal digits"},
        {"hex(3): 00  00", "bytes must be pairs of hexadecimal digits"},
        {"hex(3): 00 ", "bytes must be pairs of hexadecimal digits"},
    };
    for (const auto& [text, reason] : wrong) {
        try {
            ParseRegistryValue(text);
            ADD_FAILURE() << "accepted: " << text;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), reason) << text;
        }
    }
}

// Whatever the bytes are: they come back, and their text is one line.
TEST(RegistryValueTextTest, AnyBytesOfAnyTypeSurvive) {
    std::mt19937 random(1);
    const std::vector<int> usual{0, 0, 0, 'a', '"', ' ', ',', '\\', '\n', 0xD8, 0xDC, 0xFF};
    for (int round = 0; round < 20'000; ++round) {
        RegistryValue value{static_cast<ValueType>(random() % 9), {}};
        const size_t length = random() % 13;
        for (size_t i = 0; i < length; ++i)
            value.Data.push_back(static_cast<std::byte>(usual[random() % usual.size()]));
        const std::string text = FormatRegistryValue(value);
        ASSERT_EQ(ParseRegistryValue(text), value) << text;
        ASSERT_EQ(text.find('\n'), std::string::npos);
    }
}

}  // namespace
