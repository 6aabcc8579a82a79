// What only the files in memory promise; the rest is in Files_test.cpp.
#include "platform/memory/MemoryFiles.h"

#include <gtest/gtest.h>

namespace {

using platform::FileHandle;
using platform::memory::FileCall;
using platform::memory::MemoryFiles;
using platform::memory::RecordedFileCall;
namespace code = platform::code;

constexpr platform::Win32Code diskFull = 112;

TEST(MemoryFilesTest, FilesAndFoldersAreGivenAndTaken) {
    MemoryFiles files;
    files.AddFile(L"D:\\In\\a.prx", std::string_view("a\0b", 3));
    EXPECT_EQ(files.Content(L"d:/in/A.PRX"), std::string("a\0b", 3));
    EXPECT_EQ(files.Content(L"D:\\In"), std::nullopt);
    EXPECT_EQ(files.CheckPathExists(L"D:\\"), code::Success);
    EXPECT_EQ(files.CheckPathExists(L"C:\\"), code::Success);
    EXPECT_EQ(files.CheckPathExists(L"D:\\In\\"), code::Success);
    files.Remove(L"D:\\in");
    EXPECT_EQ(files.CheckPathExists(L"D:\\In"), code::FileNotFound);
    EXPECT_EQ(files.CheckPathExists(L"D:\\In\\a.prx"), code::PathNotFound);
    EXPECT_EQ(files.CheckPathExists(L"E:\\"), code::PathNotFound);
}

TEST(MemoryFilesTest, SharesExistOnlyOnceAdded) {
    MemoryFiles files;
    EXPECT_EQ(files.CheckPathExists(L"\\\\server\\share"), 53U);
    files.AddFolder(L"\\\\server\\share\\in");
    EXPECT_EQ(files.CheckPathExists(L"\\\\server\\share"), code::Success);
}

TEST(MemoryFilesTest, EveryCallIsRecordedAndCanFail) {
    MemoryFiles files;
    FileHandle file = FileHandle::None;
    uint32_t count = 0;
    ASSERT_EQ(files.Create(L"C:\\a.prx", file), code::Success);
    files.FailNth(2, diskFull);
    const auto data = std::as_bytes(std::span("xyz", 3));
    EXPECT_EQ(files.Write(file, data, count), code::Success);
    EXPECT_EQ(files.Write(file, data, count), diskFull);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(files.Close(file), code::Success);
    EXPECT_EQ(files.Content(L"C:\\a.prx"), "xyz");
    const std::vector<RecordedFileCall> expected{{FileCall::Create, L"C:\\a.prx"},
                                                 {FileCall::Write, L"C:\\a.prx"},
                                                 {FileCall::Write, L"C:\\a.prx"},
                                                 {FileCall::Close, L"C:\\a.prx"}};
    EXPECT_EQ(files.Calls(), expected);
}

TEST(MemoryFilesTest, FaultsByKindAndFromANumberOn) {
    MemoryFiles files;
    files.AddFile(L"C:\\a.prx", "");
    FileHandle file = FileHandle::None;
    uint64_t size = 0;
    files.FailAll(FileCall::Size, diskFull);
    ASSERT_EQ(files.Open(L"C:\\a.prx", file), code::Success);
    EXPECT_EQ(files.Size(file, size), diskFull);
    files.ForgetCalls();
    files.FailFrom(1, diskFull);
    EXPECT_EQ(files.Size(file, size), code::Success);
    EXPECT_EQ(files.CheckPathExists(L"C:\\"), diskFull);
    EXPECT_EQ(files.Open(L"C:\\a.prx", file), diskFull);
    EXPECT_EQ(files.OpenFiles(), 1U);
}

TEST(MemoryFilesTest, ACloseThatFailsReleasesTheFile) {
    MemoryFiles files;
    FileHandle file = FileHandle::None;
    ASSERT_EQ(files.Create(L"C:\\a.prx", file), code::Success);
    EXPECT_EQ(files.OpenFiles(), 1U);
    files.FailAll(FileCall::Close, diskFull);
    EXPECT_EQ(files.Close(file), diskFull);
    EXPECT_EQ(files.OpenFiles(), 0U);
}

}  // namespace
