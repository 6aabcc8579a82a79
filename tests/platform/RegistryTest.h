// The base of the tests of the registry, the one in memory as well as the system's: creating, opening,
// listing and comparing in one line each.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/TestRegistry.h"

namespace tests {

using Bytes = std::vector<std::byte>;

inline Bytes MakeBytes(std::initializer_list<int> numbers) {
    Bytes bytes;
    for (const int number : numbers) bytes.push_back(static_cast<std::byte>(number));
    return bytes;
}

class RegistryTest : public testing::Test {
  protected:
    ~RegistryTest() override {
        for (const platform::KeyHandle key : opened_) static_cast<void>(registry_->Close(key));
    }

    platform::KeyHandle Create(const std::wstring& path, platform::RootKey root = platform::RootKey::LocalMachine) {
        platform::KeyHandle key = platform::KeyHandle::None;
        EXPECT_EQ(registry_->Create(root, path, key), platform::code::Success);
        opened_.push_back(key);
        return key;
    }

    platform::Win32Code TryOpen(const std::wstring& path, platform::RootKey root = platform::RootKey::LocalMachine) {
        platform::KeyHandle key = platform::KeyHandle::None;
        const platform::Win32Code answer = registry_->Open(root, path, key);
        EXPECT_EQ(answer == platform::code::Success, key != platform::KeyHandle::None);
        if (answer == platform::code::Success) opened_.push_back(key);
        return answer;
    }

    std::vector<std::wstring> Subkeys(platform::KeyHandle key) {
        std::vector<std::wstring> names;
        std::wstring name;
        platform::Win32Code answer = platform::code::Success;
        for (uint32_t i = 0; (answer = registry_->EnumerateSubkey(key, i, 256, name)) == platform::code::Success; ++i) {
            names.push_back(name);
        }
        EXPECT_EQ(answer, platform::code::NoMoreItems);
        return names;
    }

    std::vector<std::wstring> Values(platform::KeyHandle key) {
        std::vector<std::wstring> names;
        std::wstring name;
        platform::Win32Code answer = platform::code::Success;
        for (uint32_t i = 0; (answer = registry_->EnumerateValue(key, i, name)) == platform::code::Success; ++i) {
            names.push_back(name);
        }
        EXPECT_EQ(answer, platform::code::NoMoreItems);
        std::sort(names.begin(), names.end());
        return names;
    }

    void Set(platform::KeyHandle key, const std::wstring& name, platform::ValueType type, const Bytes& data) {
        EXPECT_EQ(registry_->Set(key, name, type, data), platform::code::Success);
    }

    void ExpectValue(platform::KeyHandle key, const std::wstring& name, platform::ValueType expectedType,
                     const Bytes& expected) {
        platform::ValueType type{};
        uint32_t size = 0;
        ASSERT_EQ(registry_->Query(key, name, type, {}, size), platform::code::Success);
        Bytes data(size);
        ASSERT_EQ(registry_->Query(key, name, type, data, size), platform::code::Success);
        EXPECT_EQ(type, expectedType);
        EXPECT_EQ(data, expected);
    }

    // Every operation on this key answers the code.
    void ExpectEveryCall(platform::KeyHandle key, platform::Win32Code expected) {
        platform::KeyHandle subkey = platform::KeyHandle::None;
        platform::ValueType type{};
        uint32_t size = 0;
        std::wstring name = L"unchanged";
        EXPECT_EQ(registry_->OpenSubkey(key, L"Below", subkey), expected);
        EXPECT_EQ(registry_->EnumerateSubkey(key, 0, 256, name), expected);
        EXPECT_EQ(registry_->DeleteSubkey(key, L"Below"), expected);
        EXPECT_EQ(registry_->Query(key, L"Value", type, {}, size), expected);
        EXPECT_EQ(registry_->Set(key, L"Value", platform::ValueType::Integer, MakeBytes({1, 0, 0, 0})), expected);
        EXPECT_EQ(registry_->EnumerateValue(key, 0, name), expected);
        EXPECT_EQ(name, L"unchanged");
    }

    const std::wstring root_ = L"SOFTWARE\\TALVERON\\morcelservice";
    const std::unique_ptr<platform::RegistryBackend> registry_ = MakeTestRegistry();

  private:
    std::vector<platform::KeyHandle> opened_;
};

}  // namespace tests
