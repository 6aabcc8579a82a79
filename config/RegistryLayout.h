// Where the service's and the library's keys lie in the registry, and how much they hold.
#pragma once

#include <cstddef>

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

}  // namespace config
