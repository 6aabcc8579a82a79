#include "platform/memory/MemoryMachine.h"

#include <gtest/gtest.h>

namespace {

using platform::memory::AnsiCodePage;
using platform::memory::MemoryCodePage;
using platform::memory::MemoryMachine;
namespace code = platform::code;

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
    machine.Machine.Registry.Create(platform::RootKey::LocalMachine, L"A", key);
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

}  // namespace
