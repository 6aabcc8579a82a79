// Where the service's and the library's keys lie in the registry, how much they hold, and how texts and lists
// of texts lie in their values: UTF-16 code units, low byte first, with terminating zeros.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"

namespace config {

// One subkey per service profile, and the global settings as values.
inline constexpr platform::RootKey ServiceHive = platform::RootKey::LocalMachine;
inline constexpr wchar_t ServiceRoot[] = L"SOFTWARE\\TALVERON\\morcelservice";
inline constexpr wchar_t RulesKey[] = L"rules";  // below a profile's key

// The editor's own key, beside the service's, with what a save has still to do. It is there only then.
inline constexpr wchar_t EditorParent[] = L"SOFTWARE\\TALVERON";
inline constexpr wchar_t EditorKey[] = L"morcelservice editor";

// Belongs to the cryptographic library and is only read.
inline constexpr platform::RootKey LibraryHive = platform::RootKey::CurrentUser;
inline constexpr wchar_t LibraryProfiles[] = L"SOFTWARE\\TALVERON\\morcel\\Profiles";
inline constexpr wchar_t LdapStore[] = L"SOFTWARE\\TALVERON\\morcel\\store\\2";

// In UTF-16 code units: a text (not an entry of a list) that can be read back, and the name of a key.
inline constexpr size_t LongestText = 519;
inline constexpr size_t LongestKeyName = 255;

using Bytes = std::vector<std::byte>;

// Puts the units, two bytes each, at the front of the buffer and returns what is left of it.
std::span<std::byte> PutUnits(std::wstring_view units, std::span<std::byte> buffer);

// With one terminating zero.
Bytes EncodeString(std::wstring_view text);
// The same into bytes whose room is used again.
void EncodeString(std::wstring_view text, Bytes& bytes);

// Each entry with a terminating zero, then one more. An empty entry ends the list for whoever reads it.
// The bytes go to the front of the buffer, which must hold at least EncodedListSize of them.
size_t EncodedListSize(const std::vector<std::wstring>& entries);
void EncodeStringList(const std::vector<std::wstring>& entries, std::span<std::byte> buffer);

// The text up to its first zero. Nothing when the value is no string, has an odd size or does not end in a
// zero; a size of 0 is an empty text.
std::optional<std::wstring> DecodeString(platform::ValueType type, std::span<const std::byte> data);

// The entries up to the first empty one. Nothing when the value is no list ending in two zeros, and no single
// string ending in one (which counts as a list too).
std::optional<std::vector<std::wstring>> DecodeStringList(platform::ValueType type, std::span<const std::byte> data);

}  // namespace config
