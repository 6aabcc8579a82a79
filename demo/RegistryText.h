// Trees of registry keys as readable text, for the demo configuration and for comparing trees in tests:
//
//     # comment
//     [HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice]
//     LogPath = "D:\Service\Logs"
//     Log filesize = 4000
//     ExtExt = { "xml", "edi" }
//     Raw = hex(3): 01 02 ff
//
// In UTF-8. A name ends at the first " = ". A quote inside a text is doubled, a backslash stands for itself.
// A text is stored with its terminating NUL, an integer in 32 bits, a list with its final NUL. hex tells the
// type's number and the bytes as they are stored; every value that has no other form is written so.
#pragma once

#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace demo {

// Creates the keys and sets the values. Throws std::runtime_error naming the line that is wrong or whose key
// or value the registry refuses; what stands above that line is done then.
void ApplyRegistryText(std::string_view utf8, platform::RegistryBackend& registry);

// The key and all below it, in the order of enumeration, each key's values in the order of their names (M2
// before M10). Throws std::runtime_error when the registry refuses something or a name cannot stand in a
// line.
std::string DumpRegistryKey(platform::RegistryBackend& registry, platform::RootKey root, const std::wstring& path);

// Deletes the key and all below it, if it exists. Throws std::runtime_error when the registry refuses
// something.
void DeleteRegistryTree(platform::RegistryBackend& registry, platform::RootKey root, const std::wstring& path);

}  // namespace demo
