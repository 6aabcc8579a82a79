// What the registry promises of keys, the one in memory as well as the system's.
#include <gtest/gtest.h>

#include "tests/platform/RegistryTest.h"

namespace {

using platform::KeyHandle;
using platform::RootKey;
using platform::ValueType;
using platform::Win32Code;
using tests::MakeBytes;
using tests::RegistryTest;
namespace code = platform::code;

TEST_F(RegistryTest, AMissingKeyIsNotFound) {
    EXPECT_EQ(TryOpen(root_), code::FileNotFound);
    Create(root_);
    EXPECT_EQ(TryOpen(root_ + L"\\default"), code::FileNotFound);
    EXPECT_EQ(TryOpen(root_ + L"\\default\\rules"), code::FileNotFound);
    EXPECT_EQ(TryOpen(root_), code::Success);
}

TEST_F(RegistryTest, CreatingAKeyCreatesItsParents) {
    Create(root_ + L"\\default\\rules");
    EXPECT_EQ(TryOpen(L"SOFTWARE"), code::Success);
    EXPECT_EQ(TryOpen(root_ + L"\\default"), code::Success);
    EXPECT_EQ(Subkeys(Create(root_)), std::vector<std::wstring>{L"default"});
}

TEST_F(RegistryTest, CreatingAnExistingKeyOpensIt) {
    Set(Create(root_), L"LogPath", ValueType::String, MakeBytes({0, 0}));
    ExpectValue(Create(root_), L"LogPath", ValueType::String, MakeBytes({0, 0}));
}

TEST_F(RegistryTest, NamesOfKeysIgnoreCaseAndKeepTheirFirstForm) {
    Create(root_ + L"\\DeFault");
    Create(root_ + L"\\dEFAULT");
    EXPECT_EQ(TryOpen(L"software\\Talveron\\MORCELSERVICE\\default"), code::Success);
    EXPECT_EQ(Subkeys(Create(root_)), std::vector<std::wstring>{L"DeFault"});
}

TEST_F(RegistryTest, CaseIsIgnoredInOtherAlphabetsToo) {
    Create(root_ + L"\\\x0413\x0440\x0443\x043F\x043F\x0430 \x00C4");
    EXPECT_EQ(TryOpen(root_ + L"\\\x0433\x0420\x0423\x041F\x041F\x0410 \x00E4"), code::Success);
}

TEST_F(RegistryTest, TheRootsAreSeparate) {
    Create(root_, RootKey::CurrentUser);
    EXPECT_EQ(TryOpen(root_, RootKey::LocalMachine), code::FileNotFound);
    EXPECT_EQ(TryOpen(root_, RootKey::CurrentUser), code::Success);
}

TEST_F(RegistryTest, AnEmptyPathIsTheRootItself) {
    Create(L"SOFTWARE");
    KeyHandle root = KeyHandle::None;
    KeyHandle subkey = KeyHandle::None;
    ASSERT_EQ(registry_->Open(RootKey::LocalMachine, L"", root), code::Success);
    EXPECT_EQ(registry_->OpenSubkey(root, L"SOFTWARE", subkey), code::Success);
    EXPECT_EQ(registry_->Close(subkey), code::Success);
    EXPECT_EQ(registry_->Close(root), code::Success);
}

TEST_F(RegistryTest, SubkeysAreOpenedByNameOrPath) {
    const KeyHandle root = Create(root_);
    Create(root_ + L"\\default\\rules");
    KeyHandle key = KeyHandle::None;
    EXPECT_EQ(registry_->OpenSubkey(root, L"rules", key), code::FileNotFound);
    EXPECT_EQ(key, KeyHandle::None);
    ASSERT_EQ(registry_->OpenSubkey(root, L"default", key), code::Success);
    EXPECT_EQ(Subkeys(key), std::vector<std::wstring>{L"rules"});
    EXPECT_EQ(registry_->Close(key), code::Success);
    ASSERT_EQ(registry_->OpenSubkey(root, L"default\\rules", key), code::Success);
    EXPECT_EQ(registry_->Close(key), code::Success);
}

TEST_F(RegistryTest, APathMustNotBeginWithABackslash) {
    constexpr Win32Code badPathName = 161;
    Create(L"SOFTWARE");
    KeyHandle key = KeyHandle::None;
    EXPECT_EQ(TryOpen(L"\\SOFTWARE"), badPathName);
    EXPECT_EQ(registry_->Create(RootKey::LocalMachine, L"\\SOFTWARE", key), badPathName);
}

TEST_F(RegistryTest, APathEndsAtItsFirstZero) {
    Create(root_ + std::wstring(L"\\a\0b", 4));
    EXPECT_EQ(Subkeys(Create(root_)), std::vector<std::wstring>{L"a"});
    EXPECT_EQ(TryOpen(root_ + std::wstring(L"\\a\0c", 4)), 0U);
}

TEST_F(RegistryTest, ANameMayHave255Characters) {
    Create(root_ + L"\\" + std::wstring(255, L'a'));
    EXPECT_EQ(Subkeys(Create(root_)), std::vector<std::wstring>{std::wstring(255, L'a')});
}

TEST_F(RegistryTest, SubkeysAreEnumeratedInAlphabeticalOrderWithoutRegardToCase) {
    for (const wchar_t* name : {L"Rule 2", L"beta", L"Rule 10", L"Alpha", L"rule 1", L"GAMMA", L"delta"}) {
        Create(root_ + L"\\" + name);
    }
    const std::vector<std::wstring> expected{L"Alpha", L"beta", L"delta", L"GAMMA", L"rule 1", L"Rule 10", L"Rule 2"};
    EXPECT_EQ(Subkeys(Create(root_)), expected);
}

TEST_F(RegistryTest, EnumerationNeedsRoomForTheNameAndItsEnd) {
    const KeyHandle root = Create(root_);
    Create(root_ + L"\\12345");
    std::wstring name = L"unchanged";
    EXPECT_EQ(registry_->EnumerateSubkey(root, 0, 5, name), code::MoreData);
    EXPECT_EQ(name, L"unchanged");
    EXPECT_EQ(registry_->EnumerateSubkey(root, 1, 5, name), code::NoMoreItems);
    EXPECT_EQ(name, L"unchanged");
    EXPECT_EQ(registry_->EnumerateSubkey(root, 0, 6, name), code::Success);
    EXPECT_EQ(name, L"12345");
}

TEST_F(RegistryTest, EnumerationGoesInAnyOrderAndFollowsChanges) {
    const KeyHandle root = Create(root_);
    for (const wchar_t* name : {L"a", L"b", L"c", L"d", L"e"}) Create(root_ + L"\\" + name);
    std::wstring name;
    for (const uint32_t index : {4U, 0U, 3U, 3U, 1U, 2U, 0U}) {
        EXPECT_EQ(registry_->EnumerateSubkey(root, index, 256, name), code::Success);
        EXPECT_EQ(name, std::wstring(1, static_cast<wchar_t>(L'a' + index)));
    }
    EXPECT_EQ(registry_->EnumerateSubkey(root, 3, 256, name), code::Success);
    EXPECT_EQ(registry_->DeleteSubkey(root, L"b"), code::Success);
    EXPECT_EQ(registry_->EnumerateSubkey(root, 3, 256, name), code::Success);
    EXPECT_EQ(name, L"e");
    Create(root_ + L"\\aa");
    EXPECT_EQ(registry_->EnumerateSubkey(root, 3, 256, name), code::Success);
    EXPECT_EQ(name, L"d");
}

TEST_F(RegistryTest, DeletingTheFirstSubkeyAgainAndAgainEmptiesAKey) {
    const KeyHandle root = Create(root_);
    for (int i = 0; i < 50; ++i) Create(root_ + L"\\Rule " + std::to_wstring(i));
    std::wstring name;
    int deleted = 0;
    while (registry_->EnumerateSubkey(root, 0, 256, name) == code::Success) {
        ASSERT_EQ(registry_->DeleteSubkey(root, name), code::Success);
        ++deleted;
    }
    EXPECT_EQ(deleted, 50);
}

TEST_F(RegistryTest, OnlyAKeyWithoutSubkeysCanBeDeleted) {
    const KeyHandle root = Create(root_);
    Create(root_ + L"\\default\\rules");
    EXPECT_EQ(registry_->DeleteSubkey(root, L"missing"), code::FileNotFound);
    EXPECT_EQ(registry_->DeleteSubkey(root, L"default"), code::AccessDenied);
    EXPECT_EQ(registry_->DeleteSubkey(root, L"DEFAULT\\rules"), code::Success);
    EXPECT_EQ(registry_->DeleteSubkey(root, L"default"), code::Success);
    EXPECT_EQ(TryOpen(root_ + L"\\default"), code::FileNotFound);
}

TEST_F(RegistryTest, ADeletedKeyRefusesEverythingButClosing) {
    const KeyHandle root = Create(root_);
    KeyHandle key = KeyHandle::None;
    ASSERT_EQ(registry_->Create(RootKey::LocalMachine, root_ + L"\\default", key), code::Success);
    Set(key, L"Value", ValueType::Integer, MakeBytes({1, 0, 0, 0}));
    ASSERT_EQ(registry_->DeleteSubkey(root, L"default"), code::Success);
    ExpectEveryCall(key, code::KeyDeleted);

    const KeyHandle successor = Create(root_ + L"\\default");
    EXPECT_EQ(Values(successor), std::vector<std::wstring>{});
    ExpectEveryCall(key, code::KeyDeleted);
    EXPECT_EQ(registry_->Close(key), code::Success);
}

TEST_F(RegistryTest, NoKeyIsABadHandle) {
    ExpectEveryCall(KeyHandle::None, code::InvalidHandle);
    EXPECT_EQ(registry_->Close(KeyHandle::None), code::InvalidHandle);
}

}  // namespace
