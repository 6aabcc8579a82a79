// What only the machine in memory promises; the rest is in Files_test.cpp and Registry_test.cpp.
#include "platform/memory/MemoryMachine.h"

#include <gtest/gtest.h>

#include "platform/memory/MemoryFiles.h"
#include "platform/memory/MemoryRegistry.h"

namespace {

using platform::memory::AnsiCodePage;
using platform::memory::MemoryCodePage;
using platform::memory::MemoryMachine;
namespace code = platform::code;
using platform::FileHandle;
using platform::KeyHandle;
using platform::RootKey;
using platform::memory::FileCall;
using platform::memory::MemoryFiles;
using platform::memory::RecordedFileCall;

std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
}

TEST(MemoryMachineTest, TheMachineConsistsOfItsParts) {
    MemoryMachine machine;
    machine.Clock.Set(5);
    EXPECT_EQ(machine.Machine.Clock.SecondsSince1970(), 5);
    platform::KeyHandle key = platform::KeyHandle::None;
    EXPECT_EQ(machine.Machine.Registry.Create(platform::RootKey::LocalMachine, L"A", key), platform::code::Success);
    EXPECT_EQ(machine.Registry.Calls().size(), 1U);
    EXPECT_EQ(machine.StoredRegistry.OpenKeys(), 1U);
    EXPECT_EQ(&machine.Machine.Files, &machine.Files);
    EXPECT_EQ(&machine.Machine.CodePage, &machine.CodePage);
    EXPECT_EQ(&machine.Machine.Memory, &machine.Memory);
}

TEST(MemoryCodePageTest, EveryByteSurvivesTheWayThereAndBack) {
    for (const AnsiCodePage page : {AnsiCodePage::Western1252, AnsiCodePage::Cyrillic1251}) {
        const MemoryCodePage codePage(page);
        const std::wstring wide = codePage.ToWide(AllBytes());
        EXPECT_EQ(wide.size(), 256U);
        EXPECT_EQ(codePage.ToAnsi(wide), AllBytes());
    }
}

TEST(MemoryCodePageTest, LettersOfEachPage) {
    MemoryCodePage codePage;
    EXPECT_EQ(codePage.ToWide("A\xC4\x80\xFF"), L"A\x00C4\x20AC\x00FF");
    EXPECT_EQ(codePage.ToAnsi(L"\x0416\x00C4"), "?\xC4");
    codePage.Choose(AnsiCodePage::Cyrillic1251);
    EXPECT_EQ(codePage.ToWide("A\xC6\x88\xA8"), L"A\x0416\x20AC\x0401");
    EXPECT_EQ(codePage.ToAnsi(L"\x0416\x00C4"), "\xC6?");
    EXPECT_EQ(codePage.ToAnsi(L"\xD83D\xDE00"), "??");
}

TEST(MemorySystemMessagesTest, TextsAreKnownSetAndTaken) {
    platform::memory::MemorySystemMessages messages;
    EXPECT_EQ(messages.SystemText(5), L"Access is denied.\r\n");
    EXPECT_EQ(messages.SystemText(99999), L"");
    EXPECT_EQ(messages.InternetText(12002), L"The operation timed out\r\n");
    EXPECT_EQ(messages.InternetText(5), L"");
    messages.SetSystemText(5, L"");
    messages.SetInternetText(5, L"From the other table");
    EXPECT_EQ(messages.SystemText(5), L"");
    EXPECT_EQ(messages.InternetText(5), L"From the other table");
}

TEST(MemoryPartsTest, TheClockStandsUntilItIsSet) {
    platform::memory::MemoryClock clock;
    clock.Set(100);
    clock.Advance(3);
    EXPECT_EQ(clock.SecondsSince1970(), 103);
}

TEST(MemoryPartsTest, TheLockIsHeldByUsOrAnother) {
    platform::memory::MemoryInstanceLock lock;
    EXPECT_FALSE(lock.IsHeldByAnother(L"name"));
    lock.HoldByAnother(L"name");
    EXPECT_TRUE(lock.IsHeldByAnother(L"name"));
    EXPECT_FALSE(lock.IsHeldByAnother(L"other name"));
    lock.LeaveByAnother();
    EXPECT_FALSE(lock.IsHeldByAnother(L"name"));
    EXPECT_EQ(lock.Acquire(L"name"), code::Success);
    EXPECT_EQ(lock.Held(), L"name");
    lock.Release();
    EXPECT_EQ(lock.Held(), std::nullopt);
    lock.FailAcquire(code::AccessDenied);
    EXPECT_EQ(lock.Acquire(L"name"), code::AccessDenied);
    EXPECT_EQ(lock.Held(), std::nullopt);
}

TEST(MemoryPartsTest, ScreenMetricsGrowWithTheResolution) {
    const platform::memory::MemoryScreenMetrics metrics;
    EXPECT_EQ(metrics.VerticalScrollBarWidth(96), 17);
    EXPECT_EQ(metrics.VerticalScrollArrowHeight(96), 19);
    EXPECT_EQ(metrics.VerticalScrollArrowHeight(120), 24);
    EXPECT_EQ(metrics.VerticalScrollBarWidth(144), 26);
    EXPECT_EQ(metrics.VerticalScrollBarWidth(192), 34);
}

TEST(MemoryPartsTest, MemoryIsLimitedWhenToldSo) {
    platform::memory::MemoryMemory memory;
    platform::Win32Code error = 77;
    EXPECT_NE(memory.Allocate(0, error), nullptr);
    EXPECT_EQ(error, code::Success);
    memory.SetLimit(10);
    EXPECT_NE(memory.Allocate(10, error), nullptr);
    EXPECT_EQ(memory.Allocate(11, error), nullptr);
    EXPECT_EQ(error, code::NotEnoughMemory);
    memory.SetLimit(0);
    EXPECT_EQ(memory.Allocate(0, error), nullptr);
    memory.NoLimit();
    EXPECT_NE(memory.Allocate(11, error), nullptr);
    EXPECT_EQ(error, code::Success);
}

TEST(MemoryCryptoLibraryTest, IsMissingUntilItIsInstalledAndAfterItWasRemoved) {
    platform::memory::MemoryCryptoLibrary library;
    platform::Win32Code error = 77;
    EXPECT_EQ(library.Exports(error), nullptr);
    EXPECT_EQ(error, 126U);
    library.Install({.FreeMem = [](void*) {}});
    ASSERT_NE(library.Exports(error), nullptr);
    EXPECT_NE(library.Exports(error)->FreeMem, nullptr);
    EXPECT_EQ(error, 0U);
    library.Remove(127);
    EXPECT_EQ(library.Exports(error), nullptr);
    EXPECT_EQ(error, 127U);
}

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

// With work that grows with the square of the number, this would take minutes.
TEST(MemoryRegistryTest, ManySubkeysAreEnumeratedAndDeletedOneStepEach) {
    constexpr uint32_t count = 100'000;
    platform::memory::MemoryRegistry registry;
    KeyHandle parent = KeyHandle::None;
    KeyHandle key = KeyHandle::None;
    ASSERT_EQ(registry.Create(RootKey::LocalMachine, L"rules", parent), code::Success);
    for (uint32_t i = 0; i < count; ++i) {
        registry.Create(RootKey::LocalMachine, L"rules\\Rule " + std::to_wstring(count + i), key);
        registry.Close(key);
    }
    std::wstring name;
    for (uint32_t i = 0; i < count; ++i) {
        ASSERT_EQ(registry.EnumerateSubkey(parent, i, 260, name), code::Success);
        ASSERT_EQ(name, L"Rule " + std::to_wstring(count + i));
    }
    EXPECT_EQ(registry.EnumerateSubkey(parent, count, 260, name), code::NoMoreItems);
    for (uint32_t i = 0; i < count; ++i) {
        ASSERT_EQ(registry.EnumerateSubkey(parent, 0, 260, name), code::Success);
        ASSERT_EQ(registry.DeleteSubkey(parent, name), code::Success);
    }
    EXPECT_EQ(registry.EnumerateSubkey(parent, 0, 260, name), code::NoMoreItems);
}

TEST(MemoryRegistryTest, AClosedKeyIsNeverTakenForALaterOne) {
    platform::memory::MemoryRegistry registry;
    KeyHandle first = KeyHandle::None;
    KeyHandle second = KeyHandle::None;
    std::wstring name;
    ASSERT_EQ(registry.Create(RootKey::LocalMachine, L"A", first), code::Success);
    ASSERT_EQ(registry.Close(first), code::Success);
    ASSERT_EQ(registry.Create(RootKey::LocalMachine, L"A", second), code::Success);
    EXPECT_EQ(registry.Close(first), code::InvalidHandle);
    EXPECT_EQ(registry.EnumerateSubkey(first, 0, 260, name), code::InvalidHandle);
    EXPECT_EQ(registry.OpenKeys(), 1U);
}

// As Windows has it; Wine takes longer names.
TEST(MemoryRegistryTest, ANameHasAtMost255Characters) {
    constexpr platform::Win32Code invalidParameter = 87;
    platform::memory::MemoryRegistry registry;
    KeyHandle key = KeyHandle::None;
    const std::wstring tooLong = L"A\\" + std::wstring(256, L'a');
    EXPECT_EQ(registry.Create(RootKey::LocalMachine, tooLong, key), invalidParameter);
    EXPECT_EQ(registry.Open(RootKey::LocalMachine, L"A", key), code::FileNotFound);
}

TEST(MemoryRegistryTest, ARootCannotBeDeleted) {
    platform::memory::MemoryRegistry registry;
    KeyHandle root = KeyHandle::None;
    ASSERT_EQ(registry.Open(RootKey::CurrentUser, L"", root), code::Success);
    EXPECT_EQ(registry.DeleteSubkey(root, L""), code::AccessDenied);
}

}  // namespace
