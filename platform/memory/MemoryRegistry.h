// A registry held in memory that answers as the system's own does, down to the codes.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace platform::memory {

class MemoryRegistry final : public RegistryBackend {
  public:
    MemoryRegistry();
    ~MemoryRegistry() override;
    MemoryRegistry(const MemoryRegistry&) = delete;
    MemoryRegistry& operator=(const MemoryRegistry&) = delete;

    size_t OpenKeys() const { return handles_.size(); }

    Win32Code Open(RootKey root, const std::wstring& path, KeyHandle& key) override;
    Win32Code OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) override;
    Win32Code Create(RootKey root, const std::wstring& path, KeyHandle& key) override;
    Win32Code Close(KeyHandle key) override;
    Win32Code Flush(KeyHandle key) override;
    Win32Code EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) override;
    Win32Code DeleteSubkey(KeyHandle parent, const std::wstring& name) override;
    Win32Code Query(KeyHandle key, const std::wstring& name, ValueType& type, std::span<std::byte> buffer,
                    uint32_t& size) override;
    Win32Code Set(KeyHandle key, const std::wstring& name, ValueType type, std::span<const std::byte> data) override;
    Win32Code EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) override;

  private:
    struct Value;
    struct Key;
    // Shared, because a deleted key stays until its last handle is closed.
    using KeyPointer = std::shared_ptr<Key>;

    const KeyPointer& Root(RootKey root) const;
    [[nodiscard]] Win32Code Resolve(KeyHandle handle, KeyPointer& key) const;
    [[nodiscard]] Win32Code OpenBelow(const KeyPointer& from, std::wstring_view path, KeyHandle& key);
    KeyHandle NewHandle(KeyPointer key);

    KeyPointer localMachine_;
    KeyPointer currentUser_;
    // Numbers are never used again, so that a closed handle is always recognised.
    std::map<KeyHandle, KeyPointer> handles_;
    uintptr_t lastHandle_ = 0;
};

}  // namespace platform::memory
