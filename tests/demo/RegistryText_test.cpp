#include "demo/RegistryText.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <stdexcept>

#include "demo/RegistryValueText.h"
#include "platform/memory/FaultyRegistry.h"
#include "platform/memory/MemoryRegistry.h"
#include "tests/support/TestRegistry.h"

namespace {

using demo::ApplyRegistryText;
using demo::DeleteRegistryTree;
using demo::DumpRegistryKey;
using platform::KeyHandle;
using platform::RootKey;
namespace code = platform::code;
using demo::FormatRegistryValue;
using demo::ParseRegistryValue;
using demo::RegistryValue;
using platform::ValueType;

const std::wstring serviceKey = L"SOFTWARE\\TALVERON\\morcelservice";

class RegistryTextTest : public testing::Test {
  protected:
    std::string Dump(const std::wstring& path = serviceKey, RootKey root = RootKey::LocalMachine) {
        return DumpRegistryKey(*registry_, root, path);
    }
    const std::unique_ptr<platform::RegistryBackend> registry_ = tests::MakeTestRegistry();
};

std::string WhatIsWrong(const std::string& text) {
    platform::memory::MemoryRegistry registry;
    try {
        ApplyRegistryText(text, registry);
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(registry.OpenKeys(), 0U);
        return error.what();
    }
    return "nothing";
}

TEST_F(RegistryTextTest, ATreeComesBackAsItWasWritten) {
    const std::string text =
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\n"
        "Empty = {}\n"
        "ExtExt = { \"xml\", \"edi\" }\n"
        "Log filesize = 4000\n"
        "LogPath = \"D:\\Service\\Logs\"\n"
        "Raw = hex(3): 01 02 ff\n"
        "\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default]\n"
        "\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default\\rules]\n"
        "\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default\\rules\\Rule 1]\n"
        "Descryption = \"\xD0\x96 \xC3\xA4 \xF0\x9F\x98\x80\"\n"
        "\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default\\rules\\Rule 10]\n"
        "\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\default\\rules\\Rule 2]\n"
        "Broken = hex(1): 61 00\n";
    ApplyRegistryText(text, *registry_);
    EXPECT_EQ(Dump(), text);
}

TEST_F(RegistryTextTest, CommentsBlankLinesAndLineEndsOfOtherSystemsAreAccepted) {
    ApplyRegistryText(
        "\xEF\xBB\xBF# comment\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n# x = y\r\nb = 1\r\n\r\n\r\na = "
        "\"#\"\r\n[HKEY_CURRENT_USER\\A\\B]",
        *registry_);
    EXPECT_EQ(Dump(L"A", RootKey::CurrentUser),
              "[HKEY_CURRENT_USER\\A]\na = \"#\"\nb = 1\n\n[HKEY_CURRENT_USER\\A\\B]\n");
}

TEST_F(RegistryTextTest, ANameEndsAtTheFirstEqualsSign) {
    ApplyRegistryText("[HKEY_LOCAL_MACHINE\\A]\na=b = \" = \"\n = 5\n", *registry_);
    EXPECT_EQ(Dump(L"A"), "[HKEY_LOCAL_MACHINE\\A]\n = 5\na=b = \" = \"\n");
}

TEST_F(RegistryTextTest, ValuesStandInTheOrderOfTheirNamesAndNumbers) {
    ApplyRegistryText(
        "[HKEY_LOCAL_MACHINE\\A]\nM10 = 1\nM2 = 1\nm1 = 1\nM02 = 1\nM = 1\nM9x = 1\nM9 = 1\nL99 = 1\nM2 b = "
        "1\n"
        "M99999999999999999999 = 1\nM100000000000000000000 = 1\n",
        *registry_);
    EXPECT_EQ(Dump(L"A"),
              "[HKEY_LOCAL_MACHINE\\A]\nL99 = 1\nM = 1\nm1 = 1\nM02 = 1\nM2 = 1\nM2 b = 1\nM9 = 1\nM9x = "
              "1\nM10 = 1\n"
              "M99999999999999999999 = 1\nM100000000000000000000 = 1\n");
}

TEST_F(RegistryTextTest, ATreeIsDeletedWithAllBelowItAndNothingElse) {
    ApplyRegistryText(
        "[HKEY_LOCAL_MACHINE\\A\\B\\C\\D]\nx = 1\n[HKEY_LOCAL_MACHINE\\A\\B\\E]\n[HKEY_LOCAL_MACHINE\\A\\F]",
        *registry_);
    DeleteRegistryTree(*registry_, RootKey::LocalMachine, L"A\\B");
    EXPECT_EQ(Dump(L"A"), "[HKEY_LOCAL_MACHINE\\A]\n\n[HKEY_LOCAL_MACHINE\\A\\F]\n");
    DeleteRegistryTree(*registry_, RootKey::LocalMachine, L"A\\B");
    DeleteRegistryTree(*registry_, RootKey::LocalMachine, L"Missing\\B");
    DeleteRegistryTree(*registry_, RootKey::LocalMachine, L"A");
    EXPECT_THROW(Dump(L"A"), std::runtime_error);
}

TEST_F(RegistryTextTest, ANameThatWouldBeMisreadIsNotDumped) {
    for (const wchar_t* name : {L"#a", L"[a", L"a = b", L"a\nb", L"\xD83D"}) {
        KeyHandle key = KeyHandle::None;
        const std::array<std::byte, 4> zero{};
        ASSERT_EQ(registry_->Create(RootKey::LocalMachine, L"A", key), code::Success);
        ASSERT_EQ(registry_->Set(key, name, platform::ValueType::Integer, zero), code::Success);
        ASSERT_EQ(registry_->Close(key), code::Success);
        EXPECT_THROW(Dump(L"A"), std::runtime_error);
        DeleteRegistryTree(*registry_, RootKey::LocalMachine, L"A");
    }
}

TEST(RegistryTextErrorTest, TheWrongLineIsNamed) {
    const std::string key = "[HKEY_LOCAL_MACHINE\\A]\n";
    EXPECT_EQ(WhatIsWrong(key + "a = 1\n"), "nothing");
    EXPECT_EQ(WhatIsWrong("a = 1\n"), "line 1: value before the first key");
    EXPECT_EQ(WhatIsWrong("# c\n\n[HKEY_LOCAL_MACHINE\\A\n"), "line 3: closing bracket missing");
    EXPECT_EQ(WhatIsWrong("["), "line 1: closing bracket missing");
    EXPECT_EQ(WhatIsWrong("[]"), "line 1: unknown root key");
    EXPECT_EQ(WhatIsWrong("[HKEY_USERS\\A]"), "line 1: unknown root key");
    EXPECT_EQ(WhatIsWrong("[HKEY_LOCAL_MACHINE]"), "line 1: unknown root key");
    EXPECT_EQ(WhatIsWrong("[HKEY_LOCAL_MACHINE\\]"), "line 1: empty key name");
    EXPECT_EQ(WhatIsWrong("[HKEY_CURRENT_USER\\A\\]"), "line 1: empty key name");
    EXPECT_EQ(WhatIsWrong("[HKEY_CURRENT_USER\\\\A]"), "line 1: empty key name");
    EXPECT_EQ(WhatIsWrong("[HKEY_CURRENT_USER\\A\\\\B]"), "line 1: empty key name");
    EXPECT_EQ(WhatIsWrong("[HKEY_CURRENT_USER\\\xFF]"), "line 1: not UTF-8");
    EXPECT_EQ(WhatIsWrong(key + "a\n"), "line 2: neither key, value nor comment");
    EXPECT_EQ(WhatIsWrong(key + "a=1\n"), "line 2: neither key, value nor comment");
    EXPECT_EQ(WhatIsWrong(key + " \n"), "line 2: neither key, value nor comment");
    EXPECT_EQ(WhatIsWrong(key + "\xFF = 1\n"), "line 2: not UTF-8");
    EXPECT_EQ(WhatIsWrong(key + "a = 1\nb = { \"\" }\n"), "line 3: empty list entry");
}

TEST(RegistryTextErrorTest, WhatStandsAboveTheWrongLineIsDone) {
    platform::memory::MemoryRegistry registry;
    EXPECT_THROW(ApplyRegistryText("[HKEY_LOCAL_MACHINE\\A]\na = 1\nb\nc = 1", registry), std::runtime_error);
    EXPECT_EQ(DumpRegistryKey(registry, RootKey::LocalMachine, L"A"), "[HKEY_LOCAL_MACHINE\\A]\na = 1\n");
}

// Each call in turn is refused: always an exception, never a key left open.
TEST(RegistryTextErrorTest, WhateverTheRegistryRefusesIsTold) {
    const std::string text = "[HKEY_LOCAL_MACHINE\\A\\B]\na = 1\nb = 2\n\n[HKEY_LOCAL_MACHINE\\A\\B\\C]\n";
    const auto work = [&text](platform::RegistryBackend& registry) {
        ApplyRegistryText(text, registry);
        DumpRegistryKey(registry, RootKey::LocalMachine, L"A");
        DeleteRegistryTree(registry, RootKey::LocalMachine, L"A");
    };
    platform::memory::MemoryRegistry complete;
    platform::memory::FaultyRegistry counting(complete);
    work(counting);
    const auto calls = counting.Calls();
    ASSERT_GT(calls.size(), 20U);
    for (size_t number = 0; number < calls.size(); ++number) {
        if (calls[number].call == platform::memory::RegistryCall::Close) continue;
        platform::memory::MemoryRegistry real;
        platform::memory::FaultyRegistry registry(real);
        registry.FailNth(number, code::AccessDenied);
        EXPECT_THROW(work(registry), std::runtime_error) << number;
        EXPECT_EQ(registry.OpenKeys(), 0U) << number;
    }
}

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
