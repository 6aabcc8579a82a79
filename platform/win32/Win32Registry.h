// The system's own registry.
#pragma once

#include "platform/Registry.h"

namespace platform::win32 {

class Win32Registry : public RegistryBackend {
  public:
    Win32Code Open(RootKey root, const std::wstring& path, KeyHandle& key) override;
    Win32Code OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) override;
    Win32Code Create(RootKey root, const std::wstring& path, KeyHandle& key) override;
    Win32Code Close(KeyHandle key) override;
    Win32Code Flush(KeyHandle key) override;
    Win32Code EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) override;
    Win32Code DeleteSubkey(KeyHandle parent, const std::wstring& name) override;
    Win32Code Query(KeyHandle key, const std::wstring& name, ValueType& type, std::span<std::byte> buffer,
                    uint32_t& size) override;
    Win32Code Set(KeyHandle key, const std::wstring& name, ValueType type,
                  std::span<const std::byte> data) override;
    Win32Code EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) override;
};

}  // namespace platform::win32
