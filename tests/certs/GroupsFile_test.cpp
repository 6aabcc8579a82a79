// User groups files: the pickers, the calls in their order, and every failure.
#include "certs/GroupsFile.h"

#include <gtest/gtest.h>

#include "tests/config/ExchangeTest.h"

namespace {

using Names = std::vector<std::wstring>;
using tests::FileCall;
using tests::Journal;
namespace code = platform::code;

class GroupsFile : public tests::ExchangeTest {
  protected:
    std::optional<Names> Read(const std::wstring& path) {
        Names names;
        const bool read =
            certs::ReadGroupsFile(exchange_, nullptr, path, [&](std::wstring_view name) { names.emplace_back(name); });
        EXPECT_TRUE(read || names.empty());
        return read ? std::optional(names) : std::nullopt;
    }
    bool Write(const std::vector<std::wstring_view>& names) {
        return certs::WriteGroupsFile(exchange_, nullptr, file_, names);
    }

    const std::wstring file_ = Path(L"100% %s.grx");
};

TEST_F(GroupsFile, ThePickerForOpeningOffersGroupsFilesAndAllFiles) {
    const ui::FilePicker picker = certs::GroupsFileToOpen(L"C:\\groups\\a.grx", L"C:\\folder");
    EXPECT_EQ(picker.kind, ui::FilePickerKind::Open);
    EXPECT_EQ(picker.filterName, L"User groups files (*.grx)");
    EXPECT_EQ(picker.filterPattern, L"*.grx");
    ASSERT_EQ(picker.furtherFilters.size(), 1U);
    EXPECT_EQ(picker.furtherFilters[0].name, L"All files (*.*)");
    EXPECT_EQ(picker.furtherFilters[0].pattern, L"*.*");
    EXPECT_EQ(picker.defaultExtension, L"grx");
    EXPECT_EQ(picker.initialPath, L"C:\\groups\\a.grx");
    EXPECT_EQ(picker.initialFolder, L"");
}

TEST_F(GroupsFile, ThePickerForOpeningStartsInTheFolderWhereNoPathIsKnown) {
    const ui::FilePicker picker = certs::GroupsFileToOpen(L"", L"C:\\folder");
    EXPECT_EQ(picker.initialPath, L"");
    EXPECT_EQ(picker.initialFolder, L"C:\\folder");
    EXPECT_EQ(certs::GroupsFileToOpen(L"", L"").initialFolder, L"");
}

TEST_F(GroupsFile, ThePickerForSavingProposesTheLastPathOrANewGroup) {
    const std::tuple<std::wstring, std::wstring, std::wstring> cases[] = {
        {L"C:\\groups\\a.grx", L"C:\\folder", L"C:\\groups\\a.grx"},
        {L"", L"", L"New group.grx"},
        {L"", L"C:\\folder", L"C:\\folder\\New group.grx"},
        {L"", L"C:\\folder\\", L"C:\\folder\\New group.grx"},
        {L"", L"C:\\folder/\\//", L"C:\\folder\\New group.grx"},
        {L"", L"C:\\", L"C:\\New group.grx"},
        {L"", L"\\", L"New group.grx"},
    };
    for (const auto& [lastPath, folder, proposal] : cases) {
        const ui::FilePicker picker = certs::GroupsFileToSave(lastPath, folder);
        EXPECT_EQ(picker.initialPath, proposal);
        EXPECT_EQ(picker.kind, ui::FilePickerKind::Save);
        EXPECT_EQ(picker.filterName, L"User groups files (*.grx)");
        EXPECT_EQ(picker.filterPattern, L"*.grx");
        EXPECT_EQ(picker.furtherFilters.size(), 1U);
        EXPECT_EQ(picker.defaultExtension, L"grx");
    }
}

TEST_F(GroupsFile, IsReadAtOnceLineByLine) {
    Put(file_, "CN=A\r\nIvanov\r\n\r\nCN=B\r\nCN=A\r\nCN=lost");
    EXPECT_EQ(Read(file_), (Names{L"CN=A", L"CN=B", L"CN=A"}));
    EXPECT_EQ(TakeJournal(), (Journal{"open", "size", "read", "close"}));
    EXPECT_EQ(memory_.sizes, std::vector<size_t>{36});
    EXPECT_EQ(watched_.readSizes, std::vector<size_t>{35});
    Put(file_, "");
    EXPECT_EQ(Read(file_), Names{});
}

TEST_F(GroupsFile, ThatShrankOrGrewMeanwhileGivesWhatWasRead) {
    Put(file_, "CN=A\r\nCN=B\r\n");
    watched_.claimedSize = 1000;
    EXPECT_EQ(Read(file_), (Names{L"CN=A", L"CN=B"}));
    watched_.claimedSize = 8;
    EXPECT_EQ(Read(file_), Names{L"CN=A"});
    watched_.claimedSize = 0;
    EXPECT_EQ(Read(file_), Names{});
}

TEST_F(GroupsFile, IsWrittenWithACallForEachNameAndLineEnd) {
    Put(file_, "something older and longer than what follows");
    EXPECT_TRUE(Write({L"CN=B", L"CN=A, B"}));
    EXPECT_EQ(Content(file_), "CN=B\r\nCN=A, B\r\n");
    EXPECT_EQ(TakeJournal(), (Journal{"create", "write", "write", "write", "write", "close"}));
}

TEST_F(GroupsFile, WhatIsWrittenComesBack) {
    const Names names{L"CN=B", L"CN=A", L"CN=\x00E9"};
    EXPECT_TRUE(Write({names.begin(), names.end()}));
    const std::string bytes = Content(file_).value();
    EXPECT_EQ(bytes, "CN=B\r\nCN=A\r\n" + machine_.CodePage.ToAnsi(L"CN=\x00E9") + "\r\n");
    EXPECT_EQ(Read(file_), (Names{L"CN=B", L"CN=A", machine_.CodePage.ToWide(machine_.CodePage.ToAnsi(names[2]))}));
}

TEST_F(GroupsFile, CharactersBeyondTheCodePageAreReplaced) {
    EXPECT_TRUE(Write({L"CN=\x4E00"}));
    EXPECT_EQ(Content(file_), "CN=?\r\n");
}

TEST_F(GroupsFile, APathBeyondTheCodePageCannotBeRead) {
    const std::wstring path = Path(L"\x4E00.grx");
    Put(path, "CN=A\r\n");
    EXPECT_EQ(Read(path), std::nullopt);
    EXPECT_TRUE(TakeBox().text.starts_with(L"Opening file " + Path(L"?.grx") + L".\r\n"));
}

TEST_F(GroupsFile, EveryFailureOfReadingIsReportedOnceAndTheFileClosed) {
    Put(file_, "CN=A\r\n");
    ExpectEachFailureOfReadingReported(file_, [this] { return Read(file_).has_value(); });
}

TEST_F(GroupsFile, AFileBeyondMemoryIsAFailedRead) {
    Put(file_, "CN=A\r\n");
    memory_.refuses = true;
    for (const uint64_t size : {uint64_t{6}, uint64_t{1} << 40, ~uint64_t{0}}) {
        watched_.claimedSize = size;
        EXPECT_EQ(Read(file_), std::nullopt);
        ExpectReported(L"Reading file " + file_, code::NotEnoughMemory);
        EXPECT_EQ(TakeJournal(), (Journal{"open", "size", "box", "close"}));
    }
}

TEST_F(GroupsFile, EveryFailureOfWritingIsReportedOnceAndTheFileClosed) {
    const std::tuple<FileCall, std::wstring, Journal> cases[] = {
        {FileCall::Create, L"Creating file ", {"create", "box"}},
        {FileCall::Write, L"Writing file ", {"create", "write", "box", "close"}},
        {FileCall::Close, L"Closing file ", {"create", "write", "write", "close", "box"}},
    };
    for (const auto& [step, operation, journal] : cases) {
        watched_.faults = {{step, Fault}};
        EXPECT_FALSE(Write({L"CN=A"}));
        ExpectReported(operation + file_, Fault);
        EXPECT_EQ(TakeJournal(), journal);
        EXPECT_EQ(watched_.openFiles, 0);
    }
    EXPECT_EQ(Content(file_), "CN=A\r\n");
}

// The n-th write fails: the file holds what was written before.
TEST_F(GroupsFile, AWriteThatFailsLeavesWhatWasWritten) {
    const std::pair<size_t, std::string> cases[] = {{1, ""}, {2, "CN=A"}, {3, "CN=A\r\n"}, {4, "CN=A\r\nCN=B"}};
    for (const auto& [failing, left] : cases) {
        watched_.failsFromWrite = failing;
        EXPECT_FALSE(Write({L"CN=A", L"CN=B"}));
        ExpectReported(L"Writing file " + file_, Fault);
        EXPECT_EQ(Content(file_), left);
        watched_.failsFromWrite.reset();
        TakeJournal();
    }
}

TEST_F(GroupsFile, ReportsBelongToTheDialog) {
    const ui::Dialog owner(screen_, nullptr, {.size = {100, 50}});
    watched_.faults = {{FileCall::Create, Fault}, {FileCall::Open, Fault}};
    EXPECT_FALSE(certs::WriteGroupsFile(exchange_, &owner, file_, {}));
    ExpectReported(L"Creating file " + file_, Fault);
    EXPECT_FALSE(certs::ReadGroupsFile(exchange_, &owner, file_, [](std::wstring_view) {}));
    ExpectReported(L"Opening file " + file_, Fault);
    EXPECT_EQ(screen_.owners, (std::vector<const ui::Dialog*>{&owner, &owner}));
}

}  // namespace
