// Where the service's and the library's keys lie in the registry.
#pragma once

namespace config {

// Below HKEY_LOCAL_MACHINE: one subkey per service profile, and the global settings as values.
inline constexpr wchar_t ServiceRoot[] = L"SOFTWARE\\TALVERON\\morcelservice";
inline constexpr wchar_t RulesKey[] = L"rules";  // below a profile's key

// Below HKEY_CURRENT_USER; belongs to the cryptographic library and is only read.
inline constexpr wchar_t LibraryProfiles[] = L"SOFTWARE\\TALVERON\\morcel\\Profiles";
inline constexpr wchar_t LdapStore[] = L"SOFTWARE\\TALVERON\\morcel\\store\\2";

}  // namespace config
