// The editor's own key, in which the record of an unfinished save lies.
#pragma once

#include "demo/RegistryKey.h"

namespace tests {

inline constexpr wchar_t RecordPath[] = L"SOFTWARE\\TALVERON\\morcelservice editor";
inline constexpr wchar_t RecordName[] = L"Unfinished save";

inline bool HasRecordKey(platform::RegistryBackend& registry) {
    return demo::RegistryKey::Exists(registry, platform::RootKey::LocalMachine, RecordPath);
}

// Made where there is none.
inline demo::RegistryKey RecordKey(platform::RegistryBackend& registry) {
    return demo::RegistryKey::Create(registry, platform::RootKey::LocalMachine, RecordPath);
}

}  // namespace tests
