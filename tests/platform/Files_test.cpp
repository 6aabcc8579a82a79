// What files promise, those in memory as well as the system's.
#include <gtest/gtest.h>

#include <vector>

#include "tests/support/TestFiles.h"

namespace {

using platform::FileHandle;
using platform::Win32Code;
namespace code = platform::code;

constexpr Win32Code sharingViolation = 32;
constexpr Win32Code invalidName = 123;

class FilesTest : public testing::Test {
  protected:
    std::wstring Path(const std::wstring& name) const { return support_->Folder() + L"\\" + name; }

    Win32Code Write(FileHandle file, std::string_view text) {
        uint32_t written = 77;
        const Win32Code answer = files_.Write(file, std::as_bytes(std::span(text)), written);
        EXPECT_EQ(written, answer == code::Success ? text.size() : 0);
        return answer;
    }

    std::string Read(FileHandle file, size_t bytes) {
        std::string text(bytes, '?');
        uint32_t read = 77;
        EXPECT_EQ(files_.Read(file, std::as_writable_bytes(std::span(text)), read), code::Success);
        text.resize(read);
        return text;
    }

    FileHandle Open(const std::wstring& path) {
        FileHandle file = FileHandle::None;
        EXPECT_EQ(files_.Open(path, file), code::Success);
        EXPECT_NE(file, FileHandle::None);
        return file;
    }

    FileHandle Create(const std::wstring& path) {
        FileHandle file = FileHandle::None;
        EXPECT_EQ(files_.Create(path, file), code::Success);
        EXPECT_NE(file, FileHandle::None);
        return file;
    }

    void MakeFile(const std::wstring& path, std::string_view content) {
        const FileHandle file = Create(path);
        EXPECT_EQ(Write(file, content), code::Success);
        EXPECT_EQ(files_.Close(file), code::Success);
    }

    const std::unique_ptr<tests::TestFiles> support_ = tests::MakeTestFiles();
    platform::Files& files_ = support_->Files();
};

TEST_F(FilesTest, WhatWasWrittenIsRead) {
    const FileHandle written = Create(Path(L"rules.prx"));
    EXPECT_EQ(Write(written, "first\r\n"), code::Success);
    EXPECT_EQ(Write(written, ""), code::Success);
    EXPECT_EQ(Write(written, "second"), code::Success);
    EXPECT_EQ(files_.Close(written), code::Success);

    const FileHandle read = Open(Path(L"RULES.PRX"));
    uint64_t size = 0;
    EXPECT_EQ(files_.Size(read, size), code::Success);
    EXPECT_EQ(size, 13U);
    EXPECT_EQ(Read(read, 5), "first");
    EXPECT_EQ(Read(read, 100), "\r\nsecond");
    EXPECT_EQ(Read(read, 100), "");
    EXPECT_EQ(Read(read, 0), "");
    EXPECT_EQ(files_.Close(read), code::Success);
}

TEST_F(FilesTest, AReadFillsNoMoreThanItsBuffer) {
    MakeFile(Path(L"a.prx"), "more than was expected");
    const FileHandle file = Open(Path(L"a.prx"));
    std::string block = "............";
    uint32_t count = 77;
    const auto buffer = std::as_writable_bytes(std::span(block)).subspan(4, 4);
    EXPECT_EQ(files_.Read(file, buffer, count), code::Success);
    EXPECT_EQ(count, 4U);
    EXPECT_EQ(block, "....more....");
    EXPECT_EQ(files_.Close(file), code::Success);
}

TEST_F(FilesTest, CreatingReplacesAnOldFile) {
    MakeFile(Path(L"a.grx"), "a long old content");
    MakeFile(Path(L"a.grx"), "new");
    const FileHandle file = Open(Path(L"a.grx"));
    EXPECT_EQ(Read(file, 100), "new");
    EXPECT_EQ(files_.Close(file), code::Success);
}

TEST_F(FilesTest, WhatCannotBeOpened) {
    FileHandle file = FileHandle::None;
    EXPECT_EQ(files_.Open(Path(L"missing.prx"), file), code::FileNotFound);
    EXPECT_EQ(files_.Open(Path(L"missing\\a.prx"), file), code::PathNotFound);
    EXPECT_EQ(files_.Open(support_->Folder(), file), code::AccessDenied);
    EXPECT_EQ(files_.Open(Path(L"a*.prx"), file), invalidName);
    EXPECT_EQ(files_.Open(L"", file), code::PathNotFound);
    EXPECT_EQ(file, FileHandle::None);
}

TEST_F(FilesTest, WhatCannotBeCreated) {
    FileHandle file = FileHandle::None;
    EXPECT_EQ(files_.Create(Path(L"missing\\a.prx"), file), code::PathNotFound);
    EXPECT_EQ(files_.Create(Path(L"a?.prx"), file), invalidName);
    EXPECT_NE(files_.Create(support_->Folder(), file), code::Success);
    EXPECT_EQ(file, FileHandle::None);
}

TEST_F(FilesTest, AFileThatIsWrittenCannotBeOpenedAgain) {
    const FileHandle writer = Create(Path(L"a.prx"));
    FileHandle other = FileHandle::None;
    EXPECT_EQ(files_.Open(Path(L"a.prx"), other), sharingViolation);
    EXPECT_EQ(files_.Create(Path(L"a.prx"), other), sharingViolation);
    EXPECT_EQ(files_.Close(writer), code::Success);
    EXPECT_EQ(files_.Close(Open(Path(L"a.prx"))), code::Success);
}

TEST_F(FilesTest, AFileThatIsReadCanBeReadByOthersButNotReplaced) {
    MakeFile(Path(L"a.prx"), "content");
    const FileHandle first = Open(Path(L"a.prx"));
    const FileHandle second = Open(Path(L"a.prx"));
    FileHandle other = FileHandle::None;
    EXPECT_EQ(files_.Create(Path(L"a.prx"), other), sharingViolation);
    EXPECT_EQ(Read(first, 3), "con");
    EXPECT_EQ(Read(second, 100), "content");
    EXPECT_EQ(files_.Close(first), code::Success);
    EXPECT_EQ(files_.Close(second), code::Success);
}

TEST_F(FilesTest, AFileOpenForOneThingRefusesTheOther) {
    const FileHandle writer = Create(Path(L"a.prx"));
    std::vector<std::byte> buffer(10);
    uint32_t count = 77;
    EXPECT_EQ(files_.Read(writer, buffer, count), code::AccessDenied);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(files_.Close(writer), code::Success);
    const FileHandle reader = Open(Path(L"a.prx"));
    EXPECT_EQ(Write(reader, "x"), code::AccessDenied);
    EXPECT_EQ(files_.Close(reader), code::Success);
}

TEST_F(FilesTest, NoFileIsABadHandle) {
    uint64_t size = 0;
    std::vector<std::byte> buffer(10);
    uint32_t count = 0;
    EXPECT_EQ(files_.Size(FileHandle::None, size), code::InvalidHandle);
    EXPECT_EQ(files_.Read(FileHandle::None, buffer, count), code::InvalidHandle);
    EXPECT_EQ(Write(FileHandle::None, "x"), code::InvalidHandle);
    EXPECT_EQ(files_.Close(FileHandle::None), code::InvalidHandle);
}

TEST_F(FilesTest, PathsThatExist) {
    MakeFile(Path(L"a.prx"), "");
    EXPECT_EQ(files_.CheckPathExists(Path(L"a.prx")), code::Success);
    EXPECT_EQ(files_.CheckPathExists(Path(L"A.PRX")), code::Success);
    EXPECT_EQ(files_.CheckPathExists(support_->Folder()), code::Success);
    EXPECT_EQ(files_.CheckPathExists(support_->Folder() + L"\\"), code::Success);
}

TEST_F(FilesTest, PathsThatDoNotExist) {
    EXPECT_EQ(files_.CheckPathExists(Path(L"missing")), code::FileNotFound);
    EXPECT_EQ(files_.CheckPathExists(Path(L"missing\\below")), code::PathNotFound);
    EXPECT_EQ(files_.CheckPathExists(L""), code::PathNotFound);
}

}  // namespace
