// What only the registry in memory promises; the rest is in Registry_test.cpp.
#include "platform/memory/MemoryRegistry.h"

#include <gtest/gtest.h>

namespace {

using platform::KeyHandle;
using platform::RootKey;
namespace code = platform::code;

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
