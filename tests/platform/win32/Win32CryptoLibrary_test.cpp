// Where the cryptographic library is looked for, and what becomes of one that is no use.
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <span>
#include <string>

#include "errors/LibraryErrors.h"
#include "platform/win32/Module.h"
#include "platform/win32/Win32Machine.h"
#include "tests/support/TestFiles.h"
#include "tests/support/win32/ImportHook.h"

namespace {

using platform::Win32Code;
using platform::win32::Win32CryptoLibrary;

std::wstring StandInFolder() {
    return platform::win32::ProgramFolder() + L"\\demo";
}

class Win32CryptoLibraryTest : public testing::Test {
  protected:
    std::wstring Folder() const { return files_->Folder(); }
    std::wstring LibraryPath() const { return Folder() + L"\\morcel1.dll"; }
    void MakeFile(const std::string& content) {
        platform::FileHandle file{};
        uint32_t written = 0;
        ASSERT_EQ(files_->Files().Create(LibraryPath(), file), 0U);
        ASSERT_EQ(files_->Files().Write(file, std::as_bytes(std::span(content)), written), 0U);
        ASSERT_EQ(files_->Files().Close(file), 0U);
    }
    static bool IsThere(const std::wstring& folder) {
        return GetFileAttributesW((folder + L"\\morcel1.dll").c_str()) != INVALID_FILE_ATTRIBUTES;
    }
    static Win32Code ErrorOf(Win32CryptoLibrary& library) {
        Win32Code error = 77;
        const bool found = library.Exports(error) != nullptr;
        EXPECT_EQ(found, error == 0);
        return error;
    }

    // Whether a library beside it would be loaded by its bare name.
    bool LoadsCompanions() const {
        const std::wstring companion = Folder() + L"\\companion.dll";
        EXPECT_TRUE(CopyFileW((platform::win32::SystemFolder() + L"\\version.dll").c_str(), companion.c_str(), FALSE));
        const HMODULE loaded = LoadLibraryExW(L"companion.dll", nullptr, LOAD_LIBRARY_SEARCH_USER_DIRS);
        if (loaded != nullptr) FreeLibrary(loaded);
        DeleteFileW(companion.c_str());
        return loaded != nullptr;
    }

    const std::unique_ptr<tests::TestFiles> files_ = tests::MakeTestFiles();
};

TEST_F(Win32CryptoLibraryTest, WithoutTheLibraryThereAreNoTextsAndNoEntries) {
    Win32CryptoLibrary library;
    if (IsThere(platform::win32::ProgramFolder()) || IsThere(platform::win32::SystemFolder()))
        GTEST_SKIP() << "the library is on this machine";
    EXPECT_EQ(ErrorOf(library), 126U);
    EXPECT_EQ(errors::LibraryErrorText(library, 0x20000005), "");
    EXPECT_TRUE(errors::TakeLibraryErrors(library, nullptr).empty());
    EXPECT_TRUE(errors::TakeLibraryErrors(library, &library).empty());
}

TEST_F(Win32CryptoLibraryTest, AFileThatIsNoProgramIsNamedBeforeOneThatIsMissing) {
    MakeFile("certainly no program");
    Win32CryptoLibrary first({Folder(), StandInFolder() + L"\\nowhere"});
    EXPECT_EQ(ErrorOf(first), 193U);
    EXPECT_EQ(first.WhatIsMissing(), LibraryPath() + L" cannot be loaded.");
    Win32CryptoLibrary second({StandInFolder() + L"\\nowhere", Folder()});
    EXPECT_EQ(ErrorOf(second), 193U);
    EXPECT_EQ(second.WhatIsMissing(), LibraryPath() + L" cannot be loaded.");
    EXPECT_FALSE(LoadsCompanions());
}

TEST_F(Win32CryptoLibraryTest, ALibraryWithoutTheFunctionsIsNoneAndIsNotKept) {
    const std::wstring other = platform::win32::SystemFolder() + L"\\version.dll";
    ASSERT_TRUE(CopyFileW(other.c_str(), LibraryPath().c_str(), FALSE));
    Win32CryptoLibrary library({Folder()});
    EXPECT_EQ(ErrorOf(library), 127U);
    EXPECT_EQ(library.WhatIsMissing(), LibraryPath() + L" has no function KSEAL_Initialize.");
    EXPECT_FALSE(LoadsCompanions());
    EXPECT_TRUE(DeleteFileW(LibraryPath().c_str()));
    EXPECT_EQ(ErrorOf(library), 126U);
    EXPECT_EQ(library.WhatIsMissing(), L"morcel1.dll was not found in " + Folder() + L".");
}

TEST_F(Win32CryptoLibraryTest, NoFolderMeansNoLibrary) {
    Win32CryptoLibrary library({L"", L""});
    EXPECT_EQ(ErrorOf(library), 126U);
    EXPECT_EQ(library.WhatIsMissing(), L"morcel1.dll was not found.");
}

TEST_F(Win32CryptoLibraryTest, EveryFolderThatHasNoneIsNamed) {
    Win32CryptoLibrary library({L"C:\\Program", L"C:\\System"});
    EXPECT_EQ(ErrorOf(library), 126U);
    EXPECT_EQ(library.WhatIsMissing(), L"morcel1.dll was not found in C:\\Program or in C:\\System.");
}

// Before it has been found, what lies beside it may have been put there by anybody.
TEST_F(Win32CryptoLibraryTest, OnceFoundItMayLoadLibrariesFromBesideItself) {
    ASSERT_TRUE(CopyFileW((StandInFolder() + L"\\morcel1.dll").c_str(), LibraryPath().c_str(), FALSE));
    EXPECT_FALSE(LoadsCompanions());
    Win32CryptoLibrary library({Folder()});
    ASSERT_EQ(ErrorOf(library), 0U);
    EXPECT_TRUE(LoadsCompanions());
    FreeLibrary(GetModuleHandleW(LibraryPath().c_str()));  // or the file could not be taken away
}

DWORD errorModeWhileLoading = 0;
DWORD searchedFolders = 0;

HMODULE WINAPI NoteErrorMode(const wchar_t*, HANDLE, DWORD) {
    errorModeWhileLoading = GetThreadErrorMode();
    SetLastError(ERROR_BAD_EXE_FORMAT);
    return nullptr;
}
BOOL WINAPI NoteFolders(DWORD folders) {
    searchedFolders = folders;
    return TRUE;
}

TEST_F(Win32CryptoLibraryTest, TheSystemShowsNoBoxOfItsOwnWhileItLoads) {
    MakeFile("certainly no program");
    const tests::ImportHook load("LoadLibraryExW", NoteErrorMode);
    Win32CryptoLibrary library({Folder()});
    const DWORD before = GetThreadErrorMode();
    EXPECT_EQ(ErrorOf(library), 193U);
    EXPECT_EQ(errorModeWhileLoading, DWORD{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX});
    EXPECT_EQ(GetThreadErrorMode(), before);
}

TEST(ModulesTest, BareNamesAreLookedForInTheSystemAndInAddedFolders) {
    const tests::ImportHook setFolders("SetDefaultDllDirectories", NoteFolders);
    const platform::win32::Win32Machine machine;
    EXPECT_EQ(searchedFolders, DWORD{LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS});
}

// The DLL itself: found, opened, searched, released, closed.
TEST_F(Win32CryptoLibraryTest, TheStandInIsFoundAndServesItsOwners) {
    namespace kseal = platform::kseal;
    Win32CryptoLibrary library({StandInFolder() + L"\\nowhere", StandInFolder()});
    ASSERT_EQ(ErrorOf(library), 0U);
    Win32Code error = 0;
    const kseal::Exports& exports = *library.Exports(error);
    EXPECT_EQ(library.Exports(error), &exports);
    EXPECT_EQ(errors::LibraryErrorText(library, kseal::NothingFound), "The stand-in library has found nothing");

    kseal::Context context = nullptr;
    ASSERT_EQ(exports.Initialize("Office keys", 0x80000040, &context), 0U);
    ASSERT_NE(context, nullptr);
    kseal::CertFindRequest request;
    request.SearchWord = 0xF04;
    request.StoreScope = 4;
    request.Query = "CN=Iv*";
    request.FieldsWanted = 132;
    kseal::CertFindResult result;
    ASSERT_EQ(exports.FindCert(context, &request, &result), 0U);
    ASSERT_EQ(result.Count, 3U);
    EXPECT_EQ(std::string(result.Entries[0].OwnerName), "CN=Ivan Kuznetsov,O=Yuzhny Bank,L=Sochi,C=RU");
    EXPECT_EQ(exports.FreeFindResult(context, &result), 0U);
    request.Query = "CN=QQQ,C=RU";
    EXPECT_EQ(exports.FindCert(context, &request, &result), kseal::NothingFound);
    EXPECT_EQ(exports.Uninitialize(context), 0U);
    EXPECT_TRUE(errors::TakeLibraryErrors(library, nullptr).empty());
}

// A copy of the stand-in without its file says what it misses.
TEST_F(Win32CryptoLibraryTest, TheStandInWithoutItsOwnersExplainsItself) {
    ASSERT_TRUE(CopyFileW((StandInFolder() + L"\\morcel1.dll").c_str(), LibraryPath().c_str(), FALSE));
    Win32CryptoLibrary library({Folder()});
    ASSERT_EQ(ErrorOf(library), 0U);
    Win32Code error = 0;
    platform::kseal::Context context = nullptr;
    EXPECT_EQ(library.Exports(error)->Initialize("Office keys", 0, &context), 0x20000001U);
    EXPECT_EQ(context, nullptr);
    const auto stack = errors::TakeLibraryErrors(library, nullptr);
    ASSERT_EQ(stack.size(), 1U);
    EXPECT_EQ(stack[0].errorText, "cannot read the file, code 2");
    EXPECT_EQ(stack[0].sourceFile, "stand-in-owners.txt");
    FreeLibrary(GetModuleHandleW(LibraryPath().c_str()));  // or the file could not be taken away
}

}  // namespace
