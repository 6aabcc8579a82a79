// A registry value as one readable line: "text", 4000, { "xml", "edi" }, or hex(3): 01 02 ff for everything
// else.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"

namespace demo {

struct RegistryValue {
    platform::ValueType Type = platform::ValueType::Binary;
    std::vector<std::byte> Data;
    bool operator==(const RegistryValue&) const = default;
};

// Throws std::runtime_error that says what is wrong with the text.
RegistryValue ParseRegistryValue(std::string_view text);

// The form that is read back to the very same type and bytes.
std::string FormatRegistryValue(const RegistryValue& value);

}  // namespace demo
