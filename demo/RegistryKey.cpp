#include "demo/RegistryKey.h"

#include <stdexcept>

#include "demo/Utf8.h"

namespace demo {
namespace {

using platform::KeyHandle;
using platform::RegistryBackend;
using platform::RootKey;
using platform::Win32Code;

constexpr uint32_t nameCapacity = 256;

[[noreturn]] void Fail(const std::string& operation, const std::wstring& target, Win32Code code) {
    const std::string readable = ToUtf8(target).value_or("?");
    throw std::runtime_error("cannot " + operation + " \"" + readable + "\", code " + std::to_string(code));
}

void Check(Win32Code code, const std::string& operation, const std::wstring& target) {
    if (code != platform::code::Success) Fail(operation, target, code);
}

// Calls enumerate(index, name) until the end.
template <class Enumerate>
std::vector<std::wstring> AllNames(const std::string& operation, Enumerate enumerate) {
    std::vector<std::wstring> names;
    std::wstring name;
    Win32Code code = platform::code::Success;
    for (uint32_t index = 0; (code = enumerate(index, name)) == platform::code::Success; ++index) {
        names.push_back(name);
    }
    if (code != platform::code::NoMoreItems) Fail(operation, L"", code);
    return names;
}

}  // namespace

RegistryKey::~RegistryKey() {
    if (IsOpen()) static_cast<void>(registry_->Close(key_));
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept
    : registry_(std::exchange(other.registry_, nullptr)),
      key_(std::exchange(other.key_, KeyHandle::None)) {}

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
    std::swap(registry_, other.registry_);
    std::swap(key_, other.key_);
    return *this;
}

bool RegistryKey::Exists(RegistryBackend& registry, RootKey root, const std::wstring& path) {
    KeyHandle key = KeyHandle::None;
    const Win32Code code = registry.Open(root, path, key);
    if (code == platform::code::FileNotFound) return false;
    Check(code, "open key", path);
    Check(registry.Close(key), "close key", path);
    return true;
}

RegistryKey RegistryKey::Open(RegistryBackend& registry, RootKey root, const std::wstring& path) {
    KeyHandle key = KeyHandle::None;
    Check(registry.Open(root, path, key), "open key", path);
    return {registry, key};
}

RegistryKey RegistryKey::Create(RegistryBackend& registry, RootKey root, const std::wstring& path) {
    KeyHandle key = KeyHandle::None;
    Check(registry.Create(root, path, key), "create key", path);
    return {registry, key};
}

RegistryKey RegistryKey::OpenSubkey(const std::wstring& name) const {
    KeyHandle key = KeyHandle::None;
    Check(registry_->OpenSubkey(key_, name, key), "open key", name);
    return {*registry_, key};
}

void RegistryKey::DeleteSubkey(const std::wstring& name) const {
    Check(registry_->DeleteSubkey(key_, name), "delete key", name);
}

std::vector<std::wstring> RegistryKey::SubkeyNames() const {
    return AllNames("enumerate keys", [this](uint32_t index, std::wstring& name) {
        return registry_->EnumerateSubkey(key_, index, nameCapacity, name);
    });
}

std::vector<std::wstring> RegistryKey::ValueNames() const {
    return AllNames("enumerate values", [this](uint32_t index, std::wstring& name) {
        return registry_->EnumerateValue(key_, index, name);
    });
}

RegistryValue RegistryKey::Query(const std::wstring& name) const {
    RegistryValue value;
    uint32_t size = 0;
    Check(registry_->Query(key_, name, value.Type, {}, size), "read value", name);
    value.Data.resize(size);
    Check(registry_->Query(key_, name, value.Type, value.Data, size), "read value", name);
    return value;
}

void RegistryKey::Set(const std::wstring& name, const RegistryValue& value) const {
    Check(registry_->Set(key_, name, value.Type, value.Data), "write value", name);
}

}  // namespace demo
