// Whole files, and what is told of every step that fails.
#include "config/ReportingFile.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/config/ExchangeTest.h"

namespace {

using namespace std::string_literals;
using tests::FileCall;
using tests::Journal;
namespace code = platform::code;

class ExchangeFiles : public tests::ExchangeTest {
  protected:
    std::optional<std::string> Read(const std::wstring& path) {
        const auto content = config::ReadWholeFile(exchange_, nullptr, path);
        return content ? std::optional(std::string(content->Bytes())) : std::nullopt;
    }
    bool Write(std::string_view bytes) { return config::WriteWholeFile(exchange_, nullptr, file_, bytes); }

    static constexpr uint64_t largestRead = 0xFFFF'FFFF;  // bytes
    const std::wstring file_ = Path(L"100% %s.prx");
};

TEST_F(ExchangeFiles, AreReadAsTheyAre) {
    for (const std::string& bytes : {""s, "a"s, "a\0b\n\r\xFF"s, std::string(100'000, 'x')}) {
        Put(file_, bytes);
        EXPECT_EQ(Read(file_), bytes);
        EXPECT_EQ(TakeJournal(), (Journal{"open", "size", "read", "close"}));
    }
}

TEST_F(ExchangeFiles, AreReadAtOnceIntoABufferOneByteLarger) {
    Put(file_, "12345");
    EXPECT_EQ(Read(file_), "12345");
    EXPECT_EQ(watched_.readSizes, std::vector<size_t>{5});
    EXPECT_EQ(memory_.sizes, std::vector<size_t>{6});
}

TEST_F(ExchangeFiles, ThatShrankOrGrewMeanwhileGiveWhatWasRead) {
    Put(file_, "12345");
    watched_.claimedSize = 100;
    EXPECT_EQ(Read(file_), "12345");
    watched_.claimedSize = 3;
    EXPECT_EQ(Read(file_), "123");
    watched_.claimedSize = 0;
    EXPECT_EQ(Read(file_), "");
}

TEST_F(ExchangeFiles, AreWrittenAtOnceAndReplaced) {
    Put(file_, "something longer");
    EXPECT_TRUE(Write("a\0b\n\r\xFF"s));
    EXPECT_EQ(TakeJournal(), (Journal{"create", "write", "close"}));
    EXPECT_EQ(Content(file_), "a\0b\n\r\xFF"s);
}

TEST_F(ExchangeFiles, MayBeReadByOthersWhileTheyAreOpen) {
    Put(file_, "12345");
    config::ReportingFile file(exchange_, nullptr, file_);
    ASSERT_TRUE(file.Open());
    EXPECT_EQ(Content(file_), "12345");
}

TEST_F(ExchangeFiles, EveryFailureOfReadingIsReportedOnceAndTheFileClosed) {
    Put(file_, "12345");
    ExpectEachFailureOfReadingReported(file_, [this] { return Read(file_).has_value(); });
}

TEST_F(ExchangeFiles, EveryFailureOfWritingIsReportedOnceAndTheFileClosed) {
    const std::optional<std::string> left[] = {std::nullopt, "", "12345"};
    for (size_t i = 0; i < tests::WritingSteps.size(); ++i) {
        const tests::FileStep& c = tests::WritingSteps[i];
        watched_.faults = {{c.call, Fault}};
        EXPECT_FALSE(Write("12345"));
        ExpectReported(c.operation + file_, Fault);
        EXPECT_EQ(TakeJournal(), c.journal);
        EXPECT_EQ(watched_.openFiles, 0);
        EXPECT_EQ(Content(file_), left[i]);
    }
}

TEST_F(ExchangeFiles, ACloseThatFailsBehindAnotherFailureIsNotReported) {
    Put(file_, "12345");
    watched_.faults = {{FileCall::Read, Fault}, {FileCall::Write, Fault}, {FileCall::Close, code::InvalidHandle}};
    EXPECT_EQ(Read(file_), std::nullopt);
    ExpectReported(L"Reading file " + file_, Fault);
    EXPECT_FALSE(Write("12345"));
    ExpectReported(L"Writing file " + file_, Fault);
}

TEST_F(ExchangeFiles, AFileThatIsCutShortIsReported) {
    constexpr platform::Win32Code diskFull = 112;
    watched_.unwritten = 2;
    EXPECT_FALSE(Write("12345"));
    ExpectReported(L"Writing file " + file_, diskFull);
    EXPECT_EQ(Content(file_), "123");
}

TEST_F(ExchangeFiles, WhatTheSystemRefusesIsReportedWithItsCode) {
    const std::wstring missing = Path(L"missing.prx");
    EXPECT_EQ(Read(missing), std::nullopt);
    ExpectReported(L"Opening file " + missing, code::FileNotFound);
    const std::wstring lost = Path(L"no folder\\a.prx");
    EXPECT_FALSE(config::WriteWholeFile(exchange_, nullptr, lost, "a"));
    ExpectReported(L"Creating file " + lost, code::PathNotFound);
}

TEST_F(ExchangeFiles, AFileBeyondMemoryIsReported) {
    Put(file_, "12345");
    memory_.refuses = true;
    for (const uint64_t size : {uint64_t{5}, largestRead}) {
        watched_.claimedSize = size;
        EXPECT_EQ(Read(file_), std::nullopt);
        ExpectReported(L"Memory allocation", code::NotEnoughMemory);
        EXPECT_EQ(memory_.sizes.back(), size + 1);
        EXPECT_EQ(TakeJournal(), (Journal{"open", "size", "box", "close"}));
    }
}

TEST_F(ExchangeFiles, AFileBeyondOneReadIsReportedLikeOneBeyondMemory) {
    Put(file_, "12345");
    for (const uint64_t size :
         {largestRead + 1, largestRead + 6, 2 * largestRead, std::numeric_limits<uint64_t>::max()}) {
        watched_.claimedSize = size;
        EXPECT_EQ(Read(file_), std::nullopt);
        ExpectReported(L"Memory allocation", code::NotEnoughMemory);
        EXPECT_EQ(TakeJournal(), (Journal{"open", "size", "box", "close"}));
    }
    EXPECT_TRUE(memory_.sizes.empty());
}

}  // namespace
