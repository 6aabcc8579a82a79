// How the system is asked for keys: for all rights that the program needs, in the view of the registry that
// it has anyway, and for keys that are still there after the machine has been started anew.
#include <algorithm>

#include "tests/platform/RegistryTest.h"
#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/RegistryCalls.h"

namespace tests {
namespace {

using platform::KeyHandle;
using platform::RootKey;

constexpr REGSAM readAndWrite = 0x2001F;

HKEY SystemKey(KeyHandle key) {
    return reinterpret_cast<HKEY>(key);
}

// Only below a key that is gone after the next start of the machine, none can be made that stays.
LSTATUS MakeChildThatStays(HKEY parent) {
    HKEY child = nullptr;
    const LSTATUS result =
        RegCreateKeyExW(parent, L"Child", 0, nullptr, REG_OPTION_NON_VOLATILE, readAndWrite, nullptr, &child, nullptr);
    if (child != nullptr) RegCloseKey(child);
    return result;
}

using Win32RegistryTest = RegistryTest;

TEST_F(Win32RegistryTest, KeysAreOpenedForReadingAndWritingAndNothingElse) {
    Create(root_ + L"\\Alpha");
    const RegistryCalls calls;
    const KeyHandle service = Create(root_);
    EXPECT_EQ(TryOpen(root_), 0U);
    EXPECT_EQ(TryOpen(L"Software\\Missing", RootKey::CurrentUser), 2U);
    KeyHandle alpha = KeyHandle::None;
    EXPECT_EQ(registry_->OpenSubkey(service, L"Alpha", alpha), 0U);
    EXPECT_EQ(registry_->Close(alpha), 0U);
    EXPECT_EQ(registry_->DeleteSubkey(service, L"Alpha"), 0U);
    using Kind = KeyCall::Kind;
    EXPECT_EQ(calls.Calls(),
              (std::vector<KeyCall>{{Kind::Create, HKEY_LOCAL_MACHINE, root_, REG_OPTION_NON_VOLATILE, readAndWrite},
                                    {Kind::Open, HKEY_LOCAL_MACHINE, root_, 0, readAndWrite},
                                    {Kind::Open, HKEY_CURRENT_USER, L"Software\\Missing", 0, readAndWrite},
                                    {Kind::Open, SystemKey(service), L"Alpha", 0, readAndWrite},
                                    {Kind::Delete, SystemKey(service), L"Alpha", 0, 0}}));
}

using SetOne = LSTATUS WINAPI(HKEY, LPCWSTR, DWORD, DWORD, const BYTE*, DWORD);
SetOne* setOne = nullptr;
std::vector<DWORD> reserved;

LSTATUS WINAPI NoteReserved(HKEY key, LPCWSTR name, DWORD unused, DWORD type, const BYTE* data, DWORD size) {
    reserved.push_back(unused);
    return setOne(key, name, unused, type, data, size);
}

// Not every system looks at it.
TEST_F(Win32RegistryTest, WhatTheSystemHasReservedIsZero) {
    const ImportHook set("RegSetValueExW", NoteReserved);
    setOne = set.Real<SetOne>();
    const Bytes bytes = MakeBytes({1, 2});
    EXPECT_EQ(registry_->Set(Create(root_), L"Value", platform::ValueType::Binary, bytes), 0U);
    EXPECT_EQ(reserved, std::vector<DWORD>{0});
}

TEST_F(Win32RegistryTest, KeysOutliveTheRunOfTheMachine) {
    const KeyHandle parent = Create(L"SOFTWARE");
    HKEY gone = nullptr;
    ASSERT_EQ(RegCreateKeyExW(SystemKey(parent), L"Gone", 0, nullptr, REG_OPTION_VOLATILE, readAndWrite, nullptr, &gone,
                              nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(MakeChildThatStays(gone), ERROR_CHILD_MUST_BE_VOLATILE);  // so it shows
    RegCloseKey(gone);
    Create(root_);
    for (const wchar_t* path : {L"SOFTWARE\\TALVERON", L"SOFTWARE\\TALVERON\\morcelservice"})
        EXPECT_EQ(MakeChildThatStays(SystemKey(Create(path))), ERROR_SUCCESS);
}

}  // namespace
}  // namespace tests
