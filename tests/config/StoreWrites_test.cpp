// What the writes of the registry store leave in the registry, byte for byte, and what they say when refused.
#include <gtest/gtest.h>

#include <string>

#include "tests/config/StoreTest.h"

namespace {

using errors::ReportMode;
using tests::RegistryCall;
namespace code = platform::code;

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
    EXPECT_EQ(DumpKey(),
              KeyWith("a = \"\"\nb = \"C:\\In \"\"x\"\" %s\"\nc = \"\xD0\x93\xF0\x9F\x98\x80\"\nd = \"" +
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
    EXPECT_EQ(memory_.sizes,
              (std::vector<size_t>{(3 + 3) * 2 + 2, 2, (1 + 1) * 2 + 2, (1 + 1 + 2 + 10 + 4) * 2 + 2, 2,
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

}  // namespace
