// An open registry key that closes itself and turns every refusal into an exception: for tools that cannot go
// on then.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "demo/RegistryValueText.h"
#include "platform/Registry.h"

namespace demo {

// Every operation throws std::runtime_error with the system's code when the registry refuses it.
class RegistryKey {
  public:
    RegistryKey() = default;  // no key
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;

    static bool Exists(platform::RegistryBackend& registry, platform::RootKey root, const std::wstring& path);
    static RegistryKey Open(platform::RegistryBackend& registry, platform::RootKey root, const std::wstring& path);
    static RegistryKey Create(platform::RegistryBackend& registry, platform::RootKey root, const std::wstring& path);

    bool IsOpen() const { return registry_ != nullptr; }
    RegistryKey OpenSubkey(const std::wstring& name) const;
    void DeleteSubkey(const std::wstring& name) const;
    std::vector<std::wstring> SubkeyNames() const;  // in the order of enumeration
    std::vector<std::wstring> ValueNames() const;
    RegistryValue Query(const std::wstring& name) const;
    void Set(const std::wstring& name, const RegistryValue& value) const;

  private:
    RegistryKey(platform::RegistryBackend& registry, platform::KeyHandle key) : registry_(&registry), key_(key) {}

    platform::RegistryBackend* registry_ = nullptr;  // null: no key
    platform::KeyHandle key_ = platform::KeyHandle::None;
};

}  // namespace demo
