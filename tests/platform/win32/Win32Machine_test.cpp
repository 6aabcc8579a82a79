#include "platform/win32/Win32Machine.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

#include <ctime>
#include <limits>
#include <thread>

#include "platform/win32/Module.h"
#include "tests/support/TestFiles.h"
#include "tests/support/win32/ImportHook.h"

namespace {

using platform::win32::Win32InstanceLock;
using platform::win32::Win32Machine;
namespace code = platform::code;

// Unlike those of other tests and of other runs at the same time.
std::wstring LockName(const wchar_t* name) {
    return std::wstring(L"Brisgate test ") + name + std::to_wstring(GetCurrentProcessId());
}

TEST(Win32MachineTest, TheMachineConsistsOfItsParts) {
    Win32Machine machine;
    EXPECT_EQ(&machine.Machine.Registry, &machine.Registry);
    EXPECT_EQ(&machine.Machine.Files, &machine.Files);
    EXPECT_EQ(&machine.Machine.CryptoLibrary, &machine.CryptoLibrary);
}

TEST(Win32CodePageTest, PlainTextSurvivesTheWayThereAndBack) {
    const platform::win32::Win32CodePage codePage;
    EXPECT_EQ(codePage.ToWide("CN=Petrov, \"a\"\r\n"), L"CN=Petrov, \"a\"\r\n");
    EXPECT_EQ(codePage.ToAnsi(L"CN=Petrov, \"a\"\r\n"), "CN=Petrov, \"a\"\r\n");
    EXPECT_EQ(codePage.ToWide(""), L"");
    EXPECT_EQ(codePage.ToAnsi(L""), "");
    EXPECT_EQ(codePage.ToWide(std::string_view("a\0b", 3)), std::wstring(L"a\0b", 3));
    EXPECT_EQ(codePage.ToAnsi(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Win32CodePageTest, EveryByteOfASimplePageSurvives) {
    CPINFO page{};
    if (GetCPInfo(CP_ACP, &page) == FALSE || page.MaxCharSize != 1) GTEST_SKIP() << "several bytes a character";
    const platform::win32::Win32CodePage codePage;
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    const std::wstring wide = codePage.ToWide(bytes);
    EXPECT_EQ(wide.size(), 256U);
    EXPECT_EQ(codePage.ToAnsi(wide), bytes);
    EXPECT_EQ(codePage.ToAnsi(L"a\x4E2D"), "a?");
}

// A name with them must not become another one that somebody has.
TEST(Win32CodePageTest, LookAlikesAreNotTaken) {
    CPINFO page{};
    if (GetCPInfo(CP_ACP, &page) == FALSE || page.MaxCharSize != 1) GTEST_SKIP() << "several bytes a character";
    const platform::win32::Win32CodePage codePage;
    EXPECT_EQ(codePage.ToAnsi(L"\xFF21"), "?");    // a wide A
    EXPECT_EQ(codePage.ToAnsi(L"\x0100n"), "?n");  // an A with a stroke
}

DWORD convertedWith = 0;

int WINAPI NoteFlags(UINT, DWORD flags, const wchar_t*, int length, char*, int, const char*, BOOL*) {
    convertedWith = flags;
    return length;
}
UINT currentPage = 0;

UINT WINAPI CurrentPage() {
    return currentPage;
}

// Which refuses the flag.
TEST(Win32CodePageTest, APageWithEveryCharacterNeedsNoneToBeRefused) {
    constexpr UINT Cyrillic = 1251;
    constexpr UINT Gb18030 = 54936;
    const tests::ImportHook convert("WideCharToMultiByte", NoteFlags);
    const tests::ImportHook page("GetACP", CurrentPage);
    for (const UINT each : {Cyrillic, UINT{CP_UTF8}, Gb18030}) {
        currentPage = each;
        platform::win32::Win32CodePage().ToAnsi(L"a");
        EXPECT_EQ(convertedWith, each == Cyrillic ? DWORD{WC_NO_BEST_FIT_CHARS} : 0) << each;
    }
}

int WINAPI NoteFlagsOfWide(UINT, DWORD flags, const char*, int length, wchar_t*, int) {
    convertedWith = flags;
    return length;
}

// UTF-8, for one, refuses those that only say what is done in any case.
TEST(Win32CodePageTest, NoPageIsAskedForMoreThanItsCharacters) {
    const tests::ImportHook convert("MultiByteToWideChar", NoteFlagsOfWide);
    convertedWith = ~0U;
    platform::win32::Win32CodePage().ToWide("a");
    EXPECT_EQ(convertedWith, 0U);
}

TEST(Win32CodePageTest, NothingBecomesNothing) {
    EXPECT_EQ(platform::win32::Win32CodePage().ToWide({}), L"");
    EXPECT_EQ(platform::win32::Win32CodePage().ToAnsi({}), "");
}

// The command that wanted it ends with a word to the user, and not the program.
TEST(Win32CodePageTest, TextsBeyondWhatTheSystemConvertsAreLackOfMemory) {
    const platform::win32::Win32CodePage codePage;
    const char byte = 'x';
    const wchar_t unit = L'x';
    EXPECT_THROW(codePage.ToWide(std::string_view(&byte, size_t{1} << 31)), std::bad_alloc);
    EXPECT_THROW(codePage.ToAnsi(std::wstring_view(&unit, size_t{1} << 31)), std::bad_alloc);
}

std::wstring askedFor;

// As it is where long paths have not been switched on for the whole machine.
DWORD WINAPI AttributesOfShortPaths(const wchar_t* path) {
    askedFor = path;
    if (askedFor.size() < MAX_PATH || askedFor.starts_with(LR"(\\?\)")) return FILE_ATTRIBUTE_DIRECTORY;
    SetLastError(ERROR_PATH_NOT_FOUND);
    return INVALID_FILE_ATTRIBUTES;
}

TEST(Win32FilesTest, PathsOfAnyLengthAndSharesExistWhenTheyDo) {
    const tests::ImportHook attributes("GetFileAttributesW", AttributesOfShortPaths);
    platform::win32::Win32Files files;
    const std::wstring deep = L"\\" + std::wstring(150, L'a') + L"\\" + std::wstring(150, L'b');
    const std::vector<std::pair<std::wstring, std::wstring>> asked{
        {LR"(\\server\share)", LR"(\\server\share)"},
        {L"C:\\In", L"C:\\In"},
        {L"C:\\" + std::wstring(MAX_PATH - 4, L'a'), L"C:\\" + std::wstring(MAX_PATH - 4, L'a')},
        {L"C:\\" + std::wstring(MAX_PATH - 3, L'a'), LR"(\\?\C:\)" + std::wstring(MAX_PATH - 3, L'a')},
        {L"C:" + deep, LR"(\\?\C:)" + deep},
        {L"C:" + deep + LR"(\..\c\)", LR"(\\?\C:)" + deep.substr(0, 151) + LR"(\c\)"},
        {LR"(\\server\share)" + deep, LR"(\\?\UNC\server\share)" + deep},
        {LR"(\\?\C:)" + deep, LR"(\\?\C:)" + deep},
    };
    for (const auto& [path, seen] : asked) {
        EXPECT_EQ(files.CheckPathExists(path), code::Success) << testing::PrintToString(path);
        EXPECT_EQ(askedFor, seen);
    }
}

TEST(Win32FilesTest, ALongPathThatIsMissingIsMissing) {
    const auto folder = tests::MakeTestFiles();
    platform::win32::Win32Files files;
    const std::wstring longFolder = folder->Folder() + L"\\" + std::wstring(120, L'a');
    const std::wstring deep = longFolder + L"\\" + std::wstring(120, L'b');
    EXPECT_EQ(files.CheckPathExists(deep), code::PathNotFound);
    ASSERT_TRUE(CreateDirectoryW(longFolder.c_str(), nullptr));
    EXPECT_EQ(files.CheckPathExists(deep), code::FileNotFound);
    ASSERT_TRUE(CreateDirectoryW((LR"(\\?\)" + deep).c_str(), nullptr));
    EXPECT_EQ(files.CheckPathExists(deep), code::Success);
    EXPECT_TRUE(RemoveDirectoryW((LR"(\\?\)" + deep).c_str()));
    EXPECT_TRUE(RemoveDirectoryW(longFolder.c_str()));
}

std::wstring startedProgram;
std::wstring startedWith;

HINSTANCE WINAPI NoteStart(HWND, const wchar_t*, const wchar_t* program, const wchar_t* arguments, const wchar_t*,
                           INT) {
    startedProgram = program;
    startedWith = arguments;
    SetLastError(ERROR_FILE_NOT_FOUND);  // looked for on the way; what counts is the result
    return reinterpret_cast<HINSTANCE>(INT_PTR{33});
}
HINSTANCE WINAPI FailToStart(HWND, const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*, INT) {
    SetLastError(ERROR_ACCESS_DENIED);
    return reinterpret_cast<HINSTANCE>(INT_PTR{32});  // the highest of its errors
}

// Never by this process itself, whose rights the browser would get.
TEST(Win32GuideTest, TheDesktopIsAskedToShowAPage) {
    const std::wstring folder = platform::win32::ProgramFolder() + L"\\guide";
    CreateDirectoryW(folder.c_str(), nullptr);
    const std::wstring page = folder + L"\\test page.html";
    CloseHandle(CreateFileW(page.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    platform::win32::Win32Guide guide;
    {
        const tests::ImportHook start("ShellExecuteW", NoteStart);
        EXPECT_EQ(guide.Show(L"missing"), code::FileNotFound);
        EXPECT_EQ(startedProgram, L"");
        EXPECT_EQ(guide.Show(L"test page"), code::Success);
        EXPECT_TRUE(startedProgram.ends_with(L"\\explorer.exe")) << testing::PrintToString(startedProgram);
        EXPECT_NE(GetFileAttributesW(startedProgram.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(startedWith, L'"' + page + L'"');
    }
    const tests::ImportHook start("ShellExecuteW", FailToStart);
    EXPECT_EQ(guide.Show(L"test page"), code::AccessDenied);
    DeleteFileW(page.c_str());
    RemoveDirectoryW(folder.c_str());
}

TEST(Win32SystemMessagesTest, TheSystemKnowsItsCodes) {
    const platform::win32::Win32SystemMessages messages;
    EXPECT_NE(messages.SystemText(code::FileNotFound), L"");
    EXPECT_NE(messages.SystemText(code::FileNotFound), messages.SystemText(code::AccessDenied));
    EXPECT_EQ(messages.SystemText(0x2FFF0001), L"");
}

TEST(Win32SystemMessagesTest, PlacesForInsertsStay) {
    constexpr platform::Win32Code badProgramFormat = 193;
    const std::wstring text = platform::win32::Win32SystemMessages().SystemText(badProgramFormat);
    EXPECT_NE(text.find(L"%1"), std::wstring::npos) << testing::PrintToString(text);
}

TEST(Win32SystemMessagesTest, TheInternetModuleHasATableOfItsOwn) {
    constexpr platform::Win32Code nameNotResolved = 12007;
    const platform::win32::Win32SystemMessages messages;
    EXPECT_NE(messages.InternetText(nameNotResolved), L"");
    EXPECT_EQ(messages.InternetText(0x2FFF0001), L"");
    EXPECT_EQ(GetModuleHandleW(L"wininet.dll"), nullptr);
}

TEST(Win32InstanceLockTest, AHeldLockIsSeen) {
    Win32InstanceLock holder;
    Win32InstanceLock other;
    EXPECT_FALSE(other.IsHeldByAnother(LockName(L"held")));
    EXPECT_EQ(holder.Acquire(LockName(L"held")), code::Success);
    EXPECT_TRUE(other.IsHeldByAnother(LockName(L"held")));
    EXPECT_FALSE(other.IsHeldByAnother(LockName(L"another")));
}

TEST(Win32InstanceLockTest, AReleasedLockIsGone) {
    Win32InstanceLock lock;
    EXPECT_EQ(lock.Acquire(LockName(L"released")), code::Success);
    lock.Release();
    lock.Release();
    EXPECT_FALSE(lock.IsHeldByAnother(LockName(L"released")));
}

// Whoever waits for it need not wait until the thread has ended.
TEST(Win32InstanceLockTest, AReleasedLockIsForTheNextToTake) {
    Win32InstanceLock lock;
    ASSERT_EQ(lock.Acquire(LockName(L"next")), code::Success);
    const HANDLE mutex = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, LockName(L"next").c_str());
    const auto taken = [mutex] {
        DWORD answer = WAIT_FAILED;
        std::thread([&] {
            answer = WaitForSingleObject(mutex, 0);
            if (answer == WAIT_OBJECT_0) ReleaseMutex(mutex);
        }).join();
        return answer;
    };
    EXPECT_EQ(taken(), DWORD{WAIT_TIMEOUT});
    lock.Release();
    EXPECT_EQ(taken(), DWORD{WAIT_OBJECT_0});
    CloseHandle(mutex);
}

TEST(Win32InstanceLockTest, TheHolderOwnsTheLock) {
    Win32InstanceLock lock;
    ASSERT_EQ(lock.Acquire(LockName(L"owned")), code::Success);
    // Owned already, so it is released as often as it was taken: once here and once by the lock.
    const HANDLE mutex = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, LockName(L"owned").c_str());
    ASSERT_NE(mutex, nullptr);
    EXPECT_NE(ReleaseMutex(mutex), FALSE);
    EXPECT_EQ(ReleaseMutex(mutex), FALSE);
    CloseHandle(mutex);
}

// A copy in another session is seen by the name that all sessions share.
TEST(Win32InstanceLockTest, ALockOfAnotherSessionIsSeen) {
    const HANDLE other = CreateMutexW(nullptr, TRUE, (L"Global\\" + LockName(L"session")).c_str());
    ASSERT_NE(other, nullptr);
    EXPECT_FALSE(Win32InstanceLock().IsHeldByAnother(LockName(L"session 2")));
    EXPECT_TRUE(Win32InstanceLock().IsHeldByAnother(LockName(L"session")));
    CloseHandle(other);
}

TEST(Win32InstanceLockTest, ALockThatMayNotBeOpenedIsHeld) {
    for (const std::wstring& name : {LockName(L"closed"), L"Global\\" + LockName(L"closed")}) {
        SECURITY_DESCRIPTOR nobody{};
        InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION);
        ACL none{};
        InitializeAcl(&none, sizeof none, ACL_REVISION);
        SetSecurityDescriptorDacl(&nobody, TRUE, &none, FALSE);
        SECURITY_ATTRIBUTES attributes{sizeof attributes, &nobody, FALSE};
        const HANDLE closed = CreateMutexW(&attributes, FALSE, name.c_str());
        ASSERT_NE(closed, nullptr);
        EXPECT_TRUE(Win32InstanceLock().IsHeldByAnother(LockName(L"closed")));
        CloseHandle(closed);
    }
}

TEST(Win32InstanceLockTest, TheLockOfAllSessionsIsOpenToAdministrators) {
    Win32InstanceLock lock;
    ASSERT_EQ(lock.Acquire(LockName(L"shared")), code::Success);
    const HANDLE shared = OpenMutexW(READ_CONTROL, FALSE, (L"Global\\" + LockName(L"shared")).c_str());
    ASSERT_NE(shared, nullptr);
    PSECURITY_DESCRIPTOR found = nullptr;
    PACL list = nullptr;
    EXPECT_EQ(
        GetSecurityInfo(shared, SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr, &found),
        DWORD{ERROR_SUCCESS});
    wchar_t* text = nullptr;
    ConvertSecurityDescriptorToStringSecurityDescriptorW(found, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text,
                                                         nullptr);
    EXPECT_NE(std::wstring(text).find(L";;;BA)"), std::wstring::npos) << testing::PrintToString(text);
    LocalFree(text);
    LocalFree(found);
    CloseHandle(shared);
    lock.Release();
    EXPECT_FALSE(lock.IsHeldByAnother(LockName(L"shared")));
}

TEST(Win32InstanceLockTest, ANameInOtherUseIsRefused) {
    for (const std::wstring& name : {LockName(L"event"), L"Global\\" + LockName(L"event")}) {
        const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, name.c_str());
        ASSERT_NE(event, nullptr);
        Win32InstanceLock lock;
        EXPECT_EQ(lock.Acquire(LockName(L"event")), code::InvalidHandle);
        EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, LockName(L"event").c_str()), nullptr);
        CloseHandle(event);
    }
}

TEST(Win32PartsTest, TheClockTellsTheTime) {
    const int64_t before = std::time(nullptr);
    const int64_t now = platform::win32::Win32Clock().SecondsSince1970();
    EXPECT_GE(now, before - 1);
    EXPECT_LE(now, std::time(nullptr) + 1);
}

TEST(Win32PartsTest, ScreenMetricsGrowWithTheResolution) {
    const platform::win32::Win32ScreenMetrics metrics;
    EXPECT_GT(metrics.VerticalScrollBarWidth(96), 0);
    EXPECT_GT(metrics.VerticalScrollArrowHeight(96), 0);
    EXPECT_NEAR(metrics.VerticalScrollBarWidth(192), 2 * metrics.VerticalScrollBarWidth(96), 2);
    EXPECT_NEAR(metrics.VerticalScrollArrowHeight(192), 2 * metrics.VerticalScrollArrowHeight(96), 2);
}

TEST(Win32PartsTest, MemoryThatIsNotToBeHadIsRefused) {
    platform::win32::Win32Memory memory;
    platform::Win32Code error = 77;
    const auto block = memory.Allocate(100, error);
    EXPECT_NE(block, nullptr);
    EXPECT_EQ(error, code::Success);
    EXPECT_EQ(memory.Allocate(std::numeric_limits<size_t>::max() / 4, error), nullptr);
    EXPECT_EQ(error, code::NotEnoughMemory);
}

}  // namespace
