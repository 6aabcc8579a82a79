// What the writes of the registry store leave in the registry, byte for byte, and what they say when refused;
// which bytes make a list, which answers of the system empty it, and when memory runs out.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/config/StoreTest.h"

namespace {

using errors::ReportMode;
using tests::RegistryCall;
namespace code = platform::code;
using Texts = std::vector<std::wstring>;
using Numbers = std::vector<int32_t>;

class StoreWrites : public tests::StoreTest {
  protected:
    void Refuse() { Registry().FailWhere(RegistryCall::Set, L"\\key\\v", code::AccessDenied); }
};

TEST_F(StoreWrites, Integers) {
    EXPECT_TRUE(Store().WriteInteger(L"a", 0, {}));
    EXPECT_TRUE(Store().WriteInteger(L"b", 4000, {}));
    EXPECT_TRUE(Store().WriteInteger(L"c", -1, {}));
    EXPECT_TRUE(Store().WriteInteger(L"d", 0x12345678, {}));
    EXPECT_EQ(DumpKey(), KeyWith("a = 0\nb = 4000\nc = -1\nd = 305419896\n"));
}

TEST_F(StoreWrites, Strings) {
    const std::string longText(5'000, 'x');
    EXPECT_TRUE(Store().WriteString(L"a", L"", {}));
    EXPECT_TRUE(Store().WriteString(L"b", L"C:\\In \"x\" %s", {}));
    EXPECT_TRUE(Store().WriteString(L"c", L"\x0413\xD83D\xDE00", {}));
    EXPECT_TRUE(Store().WriteString(L"d", std::wstring(longText.begin(), longText.end()), {}));
    EXPECT_EQ(DumpKey(), KeyWith("a = \"\"\nb = \"C:\\In \"\"x\"\" %s\"\nc = \"\xD0\x93\xF0\x9F\x98\x80\"\nd = \"" +
                                 longText + "\"\n"));
}

TEST_F(StoreWrites, Lists) {
    EXPECT_TRUE(Store().WriteTextList(L"a", {L"x", L"", L"y"}, {}));
    EXPECT_TRUE(Store().WriteTextList(L"b", {}, {}));
    EXPECT_TRUE(Store().WriteTextList(L"c", {L""}, {}));
    EXPECT_TRUE(Store().WriteIntegerList(L"d", {1, 0, -5, 2147483647}, {}));
    EXPECT_TRUE(Store().WriteIntegerList(L"e", {}, {}));
    EXPECT_TRUE(Store().WritePlainList(L"f", {L"xml", L"edi"}, {}));
    EXPECT_TRUE(Store().WritePlainList(L"g", {L"x", L"", L"y"}, {}));
    EXPECT_TRUE(Store().WritePlainList(L"h", {}, {}));
    EXPECT_EQ(DumpKey(), KeyWith("a = { \"x\", \"0\", \"y\" }\n"
                                 "b = {}\n"
                                 "c = { \"0\" }\n"
                                 "d = { \"1\", \"0\", \"-5\", \"2147483647\" }\n"
                                 "e = {}\n"
                                 "f = { \"xml\", \"edi\" }\n"
                                 "g = hex(7): 78 00 00 00 00 00 79 00 00 00 00 00\n"
                                 "h = {}\n"));
    EXPECT_EQ(memory_.sizes, (std::vector<size_t>{(3 + 3) * 2 + 2, 2, (1 + 1) * 2 + 2, (1 + 1 + 2 + 10 + 4) * 2 + 2, 2,
                                                  (6 + 2) * 2 + 2, (2 + 3) * 2 + 2, 2}));
}

TEST_F(StoreWrites, ReplaceWhateverWasThere) {
    SeedValues("v = hex(3): 01 02 03\nw = { \"a\" }\nx = 5\n");
    EXPECT_TRUE(Store().WriteInteger(L"v", 7, {}));
    EXPECT_TRUE(Store().WriteString(L"w", L"s", {}));
    EXPECT_TRUE(Store().WriteTextList(L"x", {L"t"}, {}));
    EXPECT_EQ(DumpKey(), KeyWith("v = 7\nw = \"s\"\nx = { \"t\" }\n"));
}

TEST_F(StoreWrites, AreOneCallEach) {
    Store().WriteInteger(L"a", 7, {});
    Store().WriteString(L"b", L"s", {});
    Store().WriteTextList(L"c", {L"t"}, {});
    EXPECT_EQ(Registry().CountOf(RegistryCall::Set), 3U);
    EXPECT_EQ(Registry().Calls().size(), 3U);
}

TEST_F(StoreWrites, RefusalsAreReportedAndChangeNothing) {
    SeedValues("v = 1\n");
    Refuse();
    ExpectReport(L"Writing integer value 'v' into register", code::AccessDenied);
    EXPECT_FALSE(Store().WriteInteger(L"v", 7, {}));
    ExpectReport(L"Writing string value 'v' into register", code::AccessDenied);
    EXPECT_FALSE(Store().WriteString(L"v", L"s", {}));
    for (int form = 0; form < 3; ++form)
        ExpectReport(L"Writing multistring value 'v' into register", code::AccessDenied);
    EXPECT_FALSE(Store().WriteTextList(L"v", {L"t"}, {}));
    EXPECT_FALSE(Store().WriteIntegerList(L"v", {1}, {}));
    EXPECT_FALSE(Store().WritePlainList(L"v", {L"t"}, {}));
    Registry().NoFaults();
    EXPECT_EQ(DumpKey(), KeyWith("v = 1\n"));
}

TEST_F(StoreWrites, TheModeDecidesWhetherAReportIsShown) {
    Refuse();
    for (const ReportMode silent : {ReportMode::Silent, ReportMode::Collect}) {
        EXPECT_FALSE(Store().WriteInteger(L"v", 7, {.mode = silent}));
        EXPECT_FALSE(Store().WriteString(L"v", L"s", {.mode = silent}));
    }
    ExpectReport(L"Writing integer value 'v' into register", code::AccessDenied);
    EXPECT_FALSE(Store().WriteInteger(L"v", 7, {.mode = ReportMode::ShowAndCollect}));
    ExpectReport(L"Writing string value 'v' into register", code::AccessDenied);
    EXPECT_FALSE(Store().WriteString(L"v", L"s", {.mode = ReportMode::ShowAndCollect}));
}

TEST_F(StoreWrites, ARefusedBlockIsReportedAndNothingIsWritten) {
    memory_.refuses = true;
    for (int form = 0; form < 3; ++form) ExpectReport(L"Memory allocation", code::NotEnoughMemory);
    EXPECT_FALSE(Store().WriteTextList(L"v", {L"t"}, {}));
    EXPECT_FALSE(Store().WriteIntegerList(L"v", {1}, {}));
    EXPECT_FALSE(Store().WritePlainList(L"v", {L"t"}, {}));
    EXPECT_TRUE(Registry().Calls().empty());
    EXPECT_EQ(DumpKey(), KeyWith(""));
}

const wchar_t readReport[] = L"Reading multistring value 'v' from register";

class StoreLists : public tests::StoreTest {
  protected:
    bool ReadTexts() {
        texts_ = {L"something", L"older"};
        return Store().ReadStringList(L"v", texts_, {});
    }
    bool ReadNumbers() {
        numbers_ = {7, 8, 9};
        return Store().ReadIntegerList(L"v", numbers_, {});
    }

    Texts texts_;
    Numbers numbers_;
};

TEST_F(StoreLists, FromHostileBytes) {
    struct Case {
        const char* what;
        const char* stored;
        Texts entries;
    };
    const Case cases[] = {
        {"a list", "{ \"xml\", \"edi\" }", {L"xml", L"edi"}},
        {"an empty list", "{}", {}},
        {"an empty list and a zero more", "hex(7): 00 00 00 00", {}},
        {"no bytes", "hex(7):", {}},
        {"the second entry is empty", "hex(7): 61 00 00 00 00 00 62 00 00 00 00 00", {L"a"}},
        {"one zero at the end", "hex(7): 61 00 00 00", {}},
        {"no zero at the end", "hex(7): 61 00 62 00", {}},
        {"an odd size", "hex(7): 61 00 00 00 00 00 00", {}},
        {"one byte", "hex(7): 61", {}},
        {"a string", "\"single\"", {L"single"}},
        {"an expandable string", "hex(2): 25 00 41 00 25 00 00 00", {L"%A%"}},
        {"an empty string", "\"\"", {}},
        {"a string of no bytes", "hex(1):", {}},
        {"a string without its zero", "hex(1): 61 00 62 00", {}},
        {"an integer", "65", {}},
        {"bytes", "hex(3): 61 00 00 00 00 00", {}},
        {"a strange type", "hex(99): 61 00 00 00 00 00", {}},
    };
    for (const Case& c : cases) {
        SeedValues(std::string("v = ") + c.stored + "\n");
        EXPECT_TRUE(ReadTexts()) << c.what;
        EXPECT_EQ(texts_, c.entries) << c.what;
    }
}

TEST_F(StoreLists, ZeroIsNotTurnedBackIntoAnEmptyText) {
    SeedValues("v = { \"a\", \"0\", \"b\" }\n");
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(texts_, (Texts{L"a", L"0", L"b"}));
}

TEST_F(StoreLists, NumbersComeFromTheLeadingDigitsOfTheirEntries) {
    SeedValues("v = { \"1\", \"0\", \"24\", \"24h\", \"yes\", \"-3\", \"99999999999\", \"0x10\" }\n");
    EXPECT_TRUE(ReadNumbers());
    EXPECT_EQ(numbers_, (Numbers{1, 0, 24, 24, 0, -3, 2147483647, 0}));
}

TEST_F(StoreLists, MissingValuesEmptyTheTarget) {
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(texts_, Texts{});
    EXPECT_TRUE(ReadNumbers());
    EXPECT_EQ(numbers_, Numbers{});
}

// A list is asked for twice: for its size, then for its bytes.
TEST_F(StoreLists, EitherQuestionCanBeAnsweredByMissingOrInvalid) {
    for (const platform::Win32Code missing : {code::FileNotFound, code::InvalidData}) {
        for (const size_t question : {0U, 1U}) {
            SeedValues("v = { \"1\" }\n");
            Registry().FailNth(question, missing);
            EXPECT_TRUE(ReadTexts());
            EXPECT_EQ(texts_, Texts{});
            Registry().ForgetCalls();
            EXPECT_TRUE(ReadNumbers());
            EXPECT_EQ(numbers_, Numbers{});
        }
    }
}

TEST_F(StoreLists, EveryOtherAnswerIsReportedAndEmptiesTheTarget) {
    for (const platform::Win32Code failure : {code::AccessDenied, code::MoreData, code::KeyDeleted}) {
        for (const size_t question : {0U, 1U}) {
            SeedValues("v = { \"1\" }\n");
            Registry().FailNth(question, failure);
            ExpectReport(readReport, failure);
            EXPECT_FALSE(ReadTexts());
            EXPECT_EQ(texts_, Texts{});
            Registry().ForgetCalls();
            ExpectReport(readReport, failure);
            EXPECT_FALSE(ReadNumbers());
            EXPECT_EQ(numbers_, Numbers{});
        }
    }
}

TEST_F(StoreLists, AListIsAskedForTwiceAndAMissingOneOnce) {
    SeedValues("v = { \"1\" }\n");
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(Registry().Calls().size(), 2U);
    EXPECT_EQ(memory_.sizes, (std::vector<size_t>{6 + 2})) << "two bytes more than are stored";
    SeedValues("");
    memory_.sizes.clear();
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(Registry().Calls().size(), 1U);
    EXPECT_EQ(memory_.sizes, std::vector<size_t>{});
}

TEST_F(StoreLists, ARefusedBlockIsReportedAndEmptiesTheTarget) {
    SeedValues("v = { \"1\" }\n");
    memory_.refuses = true;
    ExpectReport(L"Memory allocation", code::NotEnoughMemory);
    EXPECT_FALSE(ReadTexts());
    EXPECT_EQ(texts_, Texts{});
    ExpectReport(L"Memory allocation", code::NotEnoughMemory);
    EXPECT_FALSE(ReadNumbers());
    EXPECT_EQ(numbers_, Numbers{});
}

TEST_F(StoreLists, ALongListIsReadWhole) {
    Texts written;
    for (int i = 0; i < 5'000; ++i) written.push_back(L"entry number " + std::to_wstring(i));
    EXPECT_TRUE(Store().WriteTextList(L"v", written, {}));
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(texts_, written);
}

TEST_F(StoreLists, WhatIsWrittenIsReadBack) {
    EXPECT_TRUE(Store().WriteTextList(L"v", {L"a", L"", L"c"}, {}));
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(texts_, (Texts{L"a", L"0", L"c"}));
    const Numbers numbers{0, 1, -1, 2147483647, -2147483647 - 1};
    EXPECT_TRUE(Store().WriteIntegerList(L"v", numbers, {}));
    EXPECT_TRUE(ReadNumbers());
    EXPECT_EQ(numbers_, numbers);
    EXPECT_TRUE(Store().WritePlainList(L"v", {L"xml", L"\x0413", L"\xD83D\xDE00"}, {}));
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(texts_, (Texts{L"xml", L"\x0413", L"\xD83D\xDE00"}));
    EXPECT_TRUE(Store().WriteTextList(L"v", {}, {}));
    EXPECT_TRUE(ReadTexts());
    EXPECT_EQ(texts_, Texts{});
}

}  // namespace
