#include "platform/memory/FaultyRegistry.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/memory/MemoryRegistry.h"

namespace {

using platform::KeyHandle;
using platform::RootKey;
using platform::ValueType;
using platform::memory::FaultyRegistry;
using platform::memory::RecordedCall;
using platform::memory::RegistryCall;
namespace code = platform::code;

constexpr platform::Win32Code denied = code::AccessDenied;

class FaultyRegistryTest : public testing::Test {
  protected:
    platform::Win32Code Set(KeyHandle key, const std::wstring& name) {
        const std::array<std::byte, 4> one{std::byte{1}};
        return registry_.Set(key, name, ValueType::Integer, one);
    }
    platform::Win32Code Query(KeyHandle key, const std::wstring& name) {
        ValueType type{};
        uint32_t size = 0;
        return registry_.Query(key, name, type, {}, size);
    }
    KeyHandle Create(const std::wstring& path) {
        KeyHandle key = KeyHandle::None;
        EXPECT_EQ(registry_.Create(RootKey::LocalMachine, path, key), code::Success);
        return key;
    }

    platform::memory::MemoryRegistry real_;
    FaultyRegistry registry_{real_};
};

TEST_F(FaultyRegistryTest, EveryCallIsRecordedWithItsTarget) {
    const KeyHandle key = Create(L"A\\B");
    KeyHandle opened = KeyHandle::None;
    std::wstring name;
    Set(key, L"Is on");
    Query(key, L"Operation");
    registry_.Create(RootKey::LocalMachine, L"A\\B\\C", opened);
    registry_.Close(opened);
    registry_.EnumerateSubkey(key, 0, 256, name);
    registry_.EnumerateValue(key, 0, name);
    registry_.OpenSubkey(key, L"C", opened);
    registry_.Close(opened);
    registry_.DeleteSubkey(key, L"C");
    registry_.Open(RootKey::CurrentUser, L"Missing", opened);
    registry_.Close(key);
    registry_.Open(RootKey::LocalMachine, L"", opened);
    registry_.Close(opened);
    const std::vector<RecordedCall> expected{
        {RegistryCall::Create, L"HKEY_LOCAL_MACHINE\\A\\B"},
        {RegistryCall::Set, L"HKEY_LOCAL_MACHINE\\A\\B\\Is on"},
        {RegistryCall::Query, L"HKEY_LOCAL_MACHINE\\A\\B\\Operation"},
        {RegistryCall::Create, L"HKEY_LOCAL_MACHINE\\A\\B\\C"},
        {RegistryCall::Close, L"HKEY_LOCAL_MACHINE\\A\\B\\C"},
        {RegistryCall::EnumerateSubkey, L"HKEY_LOCAL_MACHINE\\A\\B"},
        {RegistryCall::EnumerateValue, L"HKEY_LOCAL_MACHINE\\A\\B"},
        {RegistryCall::OpenSubkey, L"HKEY_LOCAL_MACHINE\\A\\B\\C"},
        {RegistryCall::Close, L"HKEY_LOCAL_MACHINE\\A\\B\\C"},
        {RegistryCall::DeleteSubkey, L"HKEY_LOCAL_MACHINE\\A\\B\\C"},
        {RegistryCall::Open, L"HKEY_CURRENT_USER\\Missing"},
        {RegistryCall::Close, L"HKEY_LOCAL_MACHINE\\A\\B"},
        {RegistryCall::Open, L"HKEY_LOCAL_MACHINE"},
        {RegistryCall::Close, L"HKEY_LOCAL_MACHINE"},
    };
    EXPECT_EQ(registry_.Calls(), expected);
    EXPECT_EQ(registry_.CountOf(RegistryCall::Close), 4U);
    EXPECT_EQ(registry_.CountOf(RegistryCall::Set), 1U);
}

TEST_F(FaultyRegistryTest, TheAnswersAreThoseOfTheRealRegistry) {
    const KeyHandle key = Create(L"A");
    EXPECT_EQ(Query(key, L"Is on"), code::FileNotFound);
    EXPECT_EQ(Set(key, L"Is on"), code::Success);
    ValueType type{};
    uint32_t size = 0;
    std::array<std::byte, 4> buffer{};
    EXPECT_EQ(registry_.Query(key, L"Is on", type, buffer, size), code::Success);
    EXPECT_EQ(buffer[0], std::byte{1});
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(type, ValueType::Integer);
}

TEST_F(FaultyRegistryTest, AFailedCallIsRecordedButDoesNotReachTheRegistry) {
    const KeyHandle key = Create(L"A");
    registry_.ForgetCalls();
    registry_.FailNth(1, denied);
    EXPECT_EQ(Set(key, L"first"), code::Success);
    EXPECT_EQ(Set(key, L"second"), denied);
    EXPECT_EQ(Set(key, L"third"), code::Success);
    EXPECT_EQ(registry_.Calls().size(), 3U);
    registry_.NoFaults();
    EXPECT_EQ(Query(key, L"first"), code::Success);
    EXPECT_EQ(Query(key, L"second"), code::FileNotFound);
    EXPECT_EQ(Query(key, L"third"), code::Success);
}

TEST_F(FaultyRegistryTest, EveryKindOfCallCanFail) {
    const KeyHandle key = Create(L"A\\B");
    KeyHandle opened = KeyHandle::None;
    std::wstring name;
    registry_.ForgetCalls();
    registry_.FailFrom(0, denied);
    EXPECT_EQ(registry_.Open(RootKey::LocalMachine, L"A", opened), denied);
    EXPECT_EQ(registry_.OpenSubkey(key, L"B", opened), denied);
    EXPECT_EQ(registry_.Create(RootKey::LocalMachine, L"A\\C", opened), denied);
    EXPECT_EQ(registry_.EnumerateSubkey(key, 0, 256, name), denied);
    EXPECT_EQ(registry_.DeleteSubkey(key, L"B"), denied);
    EXPECT_EQ(Query(key, L"Value"), denied);
    EXPECT_EQ(Set(key, L"Value"), denied);
    EXPECT_EQ(registry_.EnumerateValue(key, 0, name), denied);
    EXPECT_EQ(registry_.Close(key), denied);
    EXPECT_EQ(opened, KeyHandle::None);
    EXPECT_EQ(registry_.OpenKeys(), 1U);
    EXPECT_EQ(real_.OpenKeys(), 1U);
}

TEST_F(FaultyRegistryTest, FailFromStartsAtItsNumber) {
    const KeyHandle key = Create(L"A");
    registry_.ForgetCalls();
    registry_.FailFrom(2, denied);
    EXPECT_EQ(Set(key, L"a"), code::Success);
    EXPECT_EQ(Set(key, L"b"), code::Success);
    EXPECT_EQ(Set(key, L"c"), denied);
    EXPECT_EQ(Set(key, L"d"), denied);
}

TEST_F(FaultyRegistryTest, FailWhereLooksAtKindAndEndOfTarget) {
    const KeyHandle key = Create(L"A");
    registry_.FailWhere(RegistryCall::Set, L"\\Is on", denied);
    EXPECT_EQ(Set(key, L"Is on"), denied);
    EXPECT_EQ(Set(key, L"Is on 2"), code::Success);
    EXPECT_EQ(Set(key, L"This on"), code::Success);
    EXPECT_EQ(Query(key, L"Is on"), code::FileNotFound);
}

TEST_F(FaultyRegistryTest, AFaultMayChangeTheFaults) {
    const KeyHandle key = Create(L"A");
    registry_.SetFault([this](size_t, const RecordedCall& call) {
        registry_.ForgetCalls();
        registry_.NoFaults();
        return call.target.ends_with(L"a") ? denied : code::Success;
    });
    EXPECT_EQ(Set(key, L"a"), denied);
    EXPECT_EQ(Set(key, L"a"), code::Success);
    EXPECT_EQ(registry_.Calls().size(), 1U);
}

TEST_F(FaultyRegistryTest, OpenKeysAreCounted) {
    EXPECT_EQ(registry_.OpenKeys(), 0U);
    const KeyHandle first = Create(L"A");
    const KeyHandle second = Create(L"A");
    KeyHandle missing = KeyHandle::None;
    EXPECT_EQ(registry_.OpenSubkey(first, L"B", missing), code::FileNotFound);
    EXPECT_EQ(registry_.OpenKeys(), 2U);
    EXPECT_EQ(registry_.Close(first), code::Success);
    EXPECT_EQ(registry_.Close(first), code::InvalidHandle);
    EXPECT_EQ(registry_.OpenKeys(), 1U);
    EXPECT_EQ(registry_.Close(second), code::Success);
    EXPECT_EQ(registry_.OpenKeys(), 0U);
    EXPECT_EQ(real_.OpenKeys(), 0U);
}

}  // namespace
