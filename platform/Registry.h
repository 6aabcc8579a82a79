// The system's registry as the program sees it: keys in two trees, each with subkeys and typed values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/Win32Codes.h"

namespace platform {

enum class RootKey { LocalMachine, CurrentUser };

// An open key; None is no key. Handles are owned by the caller and released with Close.
enum class KeyHandle : uintptr_t { None = 0 };

enum class ValueType : uint32_t { String = 1, ExpandString = 2, Binary = 3, Integer = 4, StringList = 7 };

// Every operation answers the system's code, 0 for success. Keys are opened for reading and writing (access
// mask 0x2001F) in the program's own registry view. Paths are separated by backslashes and relative to the
// root or key.
class RegistryBackend {
  public:
    virtual ~RegistryBackend() = default;

    [[nodiscard]] virtual Win32Code Open(RootKey root, const std::wstring& path, KeyHandle& key) = 0;
    [[nodiscard]] virtual Win32Code OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) = 0;
    // Creates the key with all missing parents, or opens it.
    [[nodiscard]] virtual Win32Code Create(RootKey root, const std::wstring& path, KeyHandle& key) = 0;
    [[nodiscard]] virtual Win32Code Close(KeyHandle key) = 0;
    // Returns once everything written so far is on the disk.
    [[nodiscard]] virtual Win32Code Flush(KeyHandle key) = 0;

    // The name of the index-th subkey. capacity: characters of the name buffer, the terminating NUL included;
    // a name that does not fit gives 234. 259 after the last one.
    [[nodiscard]] virtual Win32Code EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity,
                                                    std::wstring& name) = 0;
    // Deletes a key that has no subkeys.
    [[nodiscard]] virtual Win32Code DeleteSubkey(KeyHandle parent, const std::wstring& name) = 0;

    // Reads a value's bytes. size: set to the size of the stored value in bytes, also when the answer is 234
    // because the buffer is too small. An empty buffer asks for type and size only and then answers 0.
    [[nodiscard]] virtual Win32Code Query(KeyHandle key, const std::wstring& name, ValueType& type,
                                          std::span<std::byte> buffer, uint32_t& size) = 0;
    [[nodiscard]] virtual Win32Code Set(KeyHandle key, const std::wstring& name, ValueType type,
                                        std::span<const std::byte> data) = 0;
    // The name of the index-th value; 259 after the last one. The editor itself never asks: it knows the
    // names of all values that it reads. This is for showing and comparing whole trees.
    [[nodiscard]] virtual Win32Code EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) = 0;
};

}  // namespace platform
