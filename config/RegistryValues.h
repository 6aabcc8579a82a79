// How texts and lists of texts lie in the registry: UTF-16 code units, low byte first, with terminating
// zeros.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"

namespace config {

using Bytes = std::vector<std::byte>;

// With one terminating zero.
Bytes EncodeString(std::wstring_view text);

// Each entry with a terminating zero, then one more. An empty entry ends the list for whoever reads it.
// The bytes go to the front of the buffer, which must hold at least EncodedListSize of them.
size_t EncodedListSize(const std::vector<std::wstring>& entries);
void EncodeStringList(const std::vector<std::wstring>& entries, std::span<std::byte> buffer);

// The text up to its first zero. Nothing when the value is no string, has an odd size or does not end in a
// zero; a size of 0 is an empty text.
std::optional<std::wstring> DecodeString(platform::ValueType type, std::span<const std::byte> data);

// The entries up to the first empty one. Nothing when the value is no list ending in two zeros, and no single
// string ending in one (which counts as a list too).
std::optional<std::vector<std::wstring>> DecodeStringList(platform::ValueType type,
                                                          std::span<const std::byte> data);

}  // namespace config
