// What the registry promises of values, the one in memory as well as the system's.
#include <gtest/gtest.h>

#include "tests/platform/RegistryTest.h"

namespace {

using platform::KeyHandle;
using platform::ValueType;
using tests::Bytes;
using tests::MakeBytes;
using tests::RegistryTest;
namespace code = platform::code;

TEST_F(RegistryTest, AMissingValueIsNotFound) {
    ValueType type{};
    uint32_t size = 77;
    EXPECT_EQ(registry_->Query(Create(root_), L"LogPath", type, {}, size), code::FileNotFound);
}

TEST_F(RegistryTest, AnEmptyBufferAsksForTypeAndSize) {
    const KeyHandle key = Create(root_);
    Set(key, L"ExtExt", ValueType::StringList, MakeBytes({'a', 0, 0, 0, 0, 0}));
    ValueType type{};
    uint32_t size = 0;
    EXPECT_EQ(registry_->Query(key, L"ExtExt", type, {}, size), code::Success);
    EXPECT_EQ(type, ValueType::StringList);
    EXPECT_EQ(size, 6U);

    Bytes buffer(1);
    size = 0;
    EXPECT_EQ(registry_->Query(key, L"ExtExt", type, std::span(buffer).first(0), size), code::Success);
    EXPECT_EQ(size, 6U);
}

TEST_F(RegistryTest, ATooSmallBufferIsToldTheSize) {
    const KeyHandle key = Create(root_);
    Set(key, L"Number", ValueType::Binary, MakeBytes({1, 2, 3, 4, 5, 6, 7, 8}));
    ValueType type{};
    uint32_t size = 0;
    Bytes buffer(7);
    EXPECT_EQ(registry_->Query(key, L"Number", type, buffer, size), code::MoreData);
    EXPECT_EQ(size, 8U);
    EXPECT_EQ(type, ValueType::Binary);
    buffer.resize(8);
    EXPECT_EQ(registry_->Query(key, L"Number", type, buffer, size), code::Success);
    EXPECT_EQ(buffer, MakeBytes({1, 2, 3, 4, 5, 6, 7, 8}));
    buffer.resize(100);
    EXPECT_EQ(registry_->Query(key, L"Number", type, buffer, size), code::Success);
    EXPECT_EQ(size, 8U);
    EXPECT_EQ(buffer[7], std::byte{8});
}

TEST_F(RegistryTest, SettingAValueReplacesTypeAndBytes) {
    const KeyHandle key = Create(root_);
    Set(key, L"Log filesize", ValueType::String, MakeBytes({'1', 0, '2', 0, 0, 0}));
    Set(key, L"LOG FILESIZE", ValueType::Integer, MakeBytes({0xA0, 0x0F, 0, 0}));
    ExpectValue(key, L"log filesize", ValueType::Integer, MakeBytes({0xA0, 0x0F, 0, 0}));
    EXPECT_EQ(Values(key), std::vector<std::wstring>{L"Log filesize"});
}

TEST_F(RegistryTest, ValuesAreEnumerated) {
    const KeyHandle key = Create(root_);
    for (const wchar_t* name : {L"b", L"", L"A b", L"c"}) Set(key, name, ValueType::Binary, MakeBytes({1}));
    EXPECT_EQ(Values(key), (std::vector<std::wstring>{L"", L"A b", L"b", L"c"}));
}

TEST_F(RegistryTest, EveryByteOfEveryTypeIsStoredAsGiven) {
    const KeyHandle key = Create(root_);
    const std::vector<Bytes> contents{
        {},
        MakeBytes({0}),
        MakeBytes({'a'}),
        MakeBytes({0, 0}),
        MakeBytes({'a', 0}),
        MakeBytes({'a', 0, 'b', 0}),
        MakeBytes({'a', 0, 0}),
        MakeBytes({'a', 0, 0, 0, 0}),
        MakeBytes({'a', 0, 0, 0, 'b', 0, 0, 0}),
        MakeBytes({0, 0, 0, 0}),
        MakeBytes({0x3D, 0xD8}),
        MakeBytes({0xFF, 0xFF, 0xFF, 0xFF}),
    };
    for (const uint32_t type : {0U, 1U, 2U, 3U, 4U, 7U, 11U, 1000U}) {
        for (const Bytes& content : contents) {
            // Zeros follow the data, which nobody may take for a part of it.
            Bytes withZeros = content;
            withZeros.resize(content.size() + 8);
            const auto data = std::span(withZeros).first(content.size());
            ASSERT_EQ(registry_->Set(key, L"Raw", static_cast<ValueType>(type), data), code::Success);
            ExpectValue(key, L"Raw", static_cast<ValueType>(type), content);
        }
    }
}

}  // namespace
