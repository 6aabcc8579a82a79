// Integers and strings: which stored bytes and which answers of the system give a value, the default, or a
// report.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "tests/config/StoreTest.h"

namespace {

using config::ReadOutcome;
using errors::ReportMode;
using tests::RegistryCall;
namespace code = platform::code;

constexpr int32_t former = 111;
constexpr int32_t fallback = 222;

class StoreReads : public tests::StoreTest {
  protected:
    // Both reads find the former content in the target and are given a default of their own.
    ReadOutcome ReadInteger(ReportMode mode = ReportMode::Show) {
        number_ = former;
        return Store().ReadInteger(L"v", number_, {.mode = mode}, fallback);
    }
    ReadOutcome ReadString(ReportMode mode = ReportMode::Show) {
        text_ = L"former";
        return Store().ReadString(L"v", text_, {.mode = mode}, L"fallback");
    }
    void FailWith(platform::Win32Code failure) { Registry().FailWhere(RegistryCall::Query, L"\\key\\v", failure); }

    int32_t number_ = 0;
    std::wstring text_;
};

TEST_F(StoreReads, Integers) {
    struct Case {
        const char* what;
        const char* stored;
        ReadOutcome outcome;
        int32_t number;
    };
    const Case cases[] = {
        {"zero", "0", ReadOutcome::Value, 0},
        {"a number", "4000", ReadOutcome::Value, 4000},
        {"minus one", "-1", ReadOutcome::Value, -1},
        {"the largest", "2147483647", ReadOutcome::Value, std::numeric_limits<int32_t>::max()},
        {"the smallest", "-2147483648", ReadOutcome::Value, std::numeric_limits<int32_t>::min()},
        {"all four bytes count", "hex(4): 78 56 34 12", ReadOutcome::Value, 0x12345678},
        {"four bytes of another type", "hex(3): 01 00 00 00", ReadOutcome::Value, 1},
        {"a string of four bytes", "\"a\"", ReadOutcome::Value, 'a'},
        {"an empty list and a zero more", "hex(7): 00 00 00 00", ReadOutcome::Value, 0},
        {"eight bytes", "hex(11): 01 00 00 00 00 00 00 00", ReadOutcome::Default, fallback},
        {"eight bytes of the type of integers", "hex(4): 01 00 00 00 00 00 00 00", ReadOutcome::Default, fallback},
        {"five bytes", "hex(3): 01 00 00 00 00", ReadOutcome::Default, fallback},
        {"three bytes", "hex(3): 01 00 00", ReadOutcome::Default, fallback},
        {"one byte", "hex(4): 01", ReadOutcome::Default, fallback},
        {"no bytes", "hex(3):", ReadOutcome::Default, fallback},
        {"a longer string", "\"4000\"", ReadOutcome::Default, fallback},
        {"an empty string", "\"\"", ReadOutcome::Default, fallback},
        {"a list", "{ \"1\", \"2\" }", ReadOutcome::Default, fallback},
    };
    for (const Case& c : cases) {
        SeedValues(std::string("v = ") + c.stored + "\n");
        EXPECT_EQ(ReadInteger(), c.outcome) << c.what;
        EXPECT_EQ(number_, c.number) << c.what;
    }
}

TEST_F(StoreReads, Strings) {
    struct Case {
        const char* what;
        const char* stored;
        ReadOutcome outcome;
        const wchar_t* text;
    };
    const Case cases[] = {
        {"a text", "\"C:\\In\"", ReadOutcome::Value, L"C:\\In"},
        {"an empty text", "\"\"", ReadOutcome::Value, L""},
        {"a foreign text", "\"\xD0\x93\xD1\x80\xD1\x83\"", ReadOutcome::Value, L"\x0413\x0440\x0443"},
        {"beyond the basic plane", "\"\xF0\x9F\x98\x80\"", ReadOutcome::Value, L"\xD83D\xDE00"},
        {"no bytes", "hex(1):", ReadOutcome::Value, L""},
        {"expandable, unexpanded", "hex(2): 25 00 41 00 25 00 00 00", ReadOutcome::Value, L"%A%"},
        {"a zero inside", "hex(1): 41 00 00 00 42 00 00 00", ReadOutcome::Value, L"A"},
        {"several zeros", "hex(1): 41 00 00 00 00 00 00 00", ReadOutcome::Value, L"A"},
        {"no zero at the end", "hex(1): 41 00 42 00", ReadOutcome::Default, L"fallback"},
        {"an odd size", "hex(1): 41 00 00 00 00", ReadOutcome::Default, L"fallback"},
        {"one byte", "hex(1): 00", ReadOutcome::Default, L"fallback"},
        {"an integer", "65", ReadOutcome::Default, L"fallback"},
        {"a list", "{ \"a\" }", ReadOutcome::Default, L"fallback"},
        {"bytes", "hex(3): 41 00 00 00", ReadOutcome::Default, L"fallback"},
        {"no bytes of type bytes", "hex(3):", ReadOutcome::Default, L"fallback"},
        {"a strange type", "hex(99): 41 00 00 00", ReadOutcome::Default, L"fallback"},
    };
    for (const Case& c : cases) {
        SeedValues(std::string("v = ") + c.stored + "\n");
        EXPECT_EQ(ReadString(), c.outcome) << c.what;
        EXPECT_EQ(text_, c.text) << c.what;
    }
}

TEST_F(StoreReads, MissingValuesAreTheDefault) {
    EXPECT_EQ(ReadInteger(), ReadOutcome::Default);
    EXPECT_EQ(number_, fallback);
    EXPECT_EQ(ReadString(), ReadOutcome::Default);
    EXPECT_EQ(text_, L"fallback");
    std::wstring text = L"former";
    EXPECT_EQ(Store().ReadString(L"v", text, {}), ReadOutcome::Default);
    EXPECT_EQ(text, L"");
}

TEST_F(StoreReads, TheDefaultMayBeTheTargetItself) {
    number_ = 15;
    EXPECT_EQ(Store().ReadInteger(L"v", number_, {}, number_), ReadOutcome::Default);
    EXPECT_EQ(number_, 15);
    text_ = L"p7s";
    EXPECT_EQ(Store().ReadString(L"v", text_, {}, text_), ReadOutcome::Default);
    EXPECT_EQ(text_, L"p7s");
}

TEST_F(StoreReads, TheLongestStringHas519Characters) {
    SeedValues("v = \"" + std::string(519, 'x') + "\"\n");
    EXPECT_EQ(ReadString(), ReadOutcome::Value);
    EXPECT_EQ(text_, std::wstring(519, L'x'));
}

TEST_F(StoreReads, BytesOfAnyNumber) {
    const std::vector<std::pair<const char*, config::Bytes>> cases{
        {"hex(3): 01 00 02", {std::byte{1}, std::byte{0}, std::byte{2}}},
        {"hex(3): 07", {std::byte{7}}},
        {"hex(3):", {}},
    };
    for (const auto& [stored, bytes] : cases) {
        SeedValues(std::string("v = ") + stored + "\n");
        config::Bytes read{std::byte{9}};
        EXPECT_EQ(Store().ReadBinary(L"v", read, {}), ReadOutcome::Value) << stored;
        EXPECT_EQ(read, bytes) << stored;
    }
}

TEST_F(StoreReads, LongerStringsAreReportedAndLeaveTheTarget) {
    for (const size_t length : {520U, 600U, 100'000U}) {
        SeedValues("v = \"" + std::string(length, 'x') + "\"\n");
        ExpectReport(L"Reading string value 'v' from register", code::MoreData);
        EXPECT_EQ(ReadString(), ReadOutcome::Failure);
        EXPECT_EQ(text_, L"former");
    }
}

TEST_F(StoreReads, AFullBufferWithoutAZeroIsTheDefault) {
    std::string bytes;
    for (int i = 0; i < 520; ++i) bytes += " 41 00";
    SeedValues("v = hex(1):" + bytes + "\n");
    EXPECT_EQ(ReadString(), ReadOutcome::Default);
    EXPECT_EQ(text_, L"fallback");
}

TEST_F(StoreReads, WhichAnswersMeanTheDefault) {
    SeedValues("v = 1\n");
    FailWith(code::FileNotFound);
    EXPECT_EQ(ReadInteger(), ReadOutcome::Default);
    EXPECT_EQ(number_, fallback);
    for (const platform::Win32Code missing : {code::FileNotFound, code::InvalidData}) {
        FailWith(missing);
        EXPECT_EQ(ReadString(), ReadOutcome::Default);
        EXPECT_EQ(text_, L"fallback");
    }
}

TEST_F(StoreReads, EveryOtherAnswerIsReportedAndLeavesTheTarget) {
    SeedValues("v = 1\n");
    for (const platform::Win32Code failure : {code::AccessDenied, code::InvalidData, code::KeyDeleted}) {
        FailWith(failure);
        ExpectReport(L"Reading integer value 'v' from register", failure);
        EXPECT_EQ(ReadInteger(), ReadOutcome::Failure);
        EXPECT_EQ(number_, former);
    }
    for (const platform::Win32Code failure : {code::AccessDenied, code::MoreData, code::KeyDeleted}) {
        FailWith(failure);
        ExpectReport(L"Reading string value 'v' from register", failure);
        EXPECT_EQ(ReadString(), ReadOutcome::Failure);
        EXPECT_EQ(text_, L"former");
    }
}

TEST_F(StoreReads, TheModeDecidesWhetherAReportIsShown) {
    FailWith(code::AccessDenied);
    for (const ReportMode silent : {ReportMode::Silent, ReportMode::Collect}) {
        EXPECT_EQ(ReadInteger(silent), ReadOutcome::Failure);
        EXPECT_EQ(ReadString(silent), ReadOutcome::Failure);
    }
    for (const ReportMode shown : {ReportMode::Show, ReportMode::ShowAndCollect}) {
        ExpectReport(L"Reading integer value 'v' from register", code::AccessDenied);
        EXPECT_EQ(ReadInteger(shown), ReadOutcome::Failure);
        ExpectReport(L"Reading string value 'v' from register", code::AccessDenied);
        EXPECT_EQ(ReadString(shown), ReadOutcome::Failure);
    }
}

TEST_F(StoreReads, NamesAreShownAsTheyAre) {
    Registry().FailWhere(RegistryCall::Query, L"\\key\\100%s", code::AccessDenied);
    ExpectReport(L"Reading integer value '100%s' from register", code::AccessDenied);
    EXPECT_EQ(Store().ReadInteger(L"100%s", number_, {}, 0), ReadOutcome::Failure);
}

TEST_F(StoreReads, AnIntegerOrStringIsAskedForOnce) {
    SeedValues("v = \"text\"\n");
    ReadInteger();
    EXPECT_EQ(Registry().Calls().size(), 1U);
    ReadString();
    EXPECT_EQ(Registry().Calls().size(), 2U);
}

}  // namespace
