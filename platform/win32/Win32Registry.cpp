#include "platform/win32/Win32Machine.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/win32/Length.h"

namespace platform::win32 {
namespace {

constexpr REGSAM readAndWrite = 0x2001F;
static_assert(readAndWrite == (KEY_READ | KEY_WRITE));
constexpr DWORD longestName = 0x4000;  // of a value, with its NUL

HKEY RootHandle(RootKey root) {
    return root == RootKey::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

HKEY SystemHandle(KeyHandle key) {
    return reinterpret_cast<HKEY>(key);
}

Win32Code Answer(LSTATUS status) {
    return static_cast<Win32Code>(status);
}

Win32Code OpenBelow(HKEY parent, const std::wstring& path, KeyHandle& key) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, readAndWrite, &opened);
    if (status == ERROR_SUCCESS) key = static_cast<KeyHandle>(reinterpret_cast<uintptr_t>(opened));
    return Answer(status);
}

constexpr size_t GuardLength = sizeof(wchar_t);

// Where a text does not end with a NUL, the system looks at the character after it and takes it in when it
// is NUL. So that exactly the given bytes are stored, other characters stand around them.
std::vector<std::byte> Guarded(std::span<const std::byte> data) {
    std::vector<std::byte> guarded(GuardLength + data.size() + GuardLength, std::byte{0xFF});
    std::copy(data.begin(), data.end(), guarded.begin() + GuardLength);
    return guarded;
}

}  // namespace

Win32Code Win32Registry::Open(RootKey root, const std::wstring& path, KeyHandle& key) {
    return OpenBelow(RootHandle(root), path, key);
}

Win32Code Win32Registry::OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) {
    return OpenBelow(SystemHandle(parent), name, key);
}

Win32Code Win32Registry::Create(RootKey root, const std::wstring& path, KeyHandle& key) {
    HKEY created = nullptr;
    const LSTATUS status = RegCreateKeyExW(RootHandle(root), path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           readAndWrite, nullptr, &created, nullptr);
    if (status == ERROR_SUCCESS) key = static_cast<KeyHandle>(reinterpret_cast<uintptr_t>(created));
    return Answer(status);
}

Win32Code Win32Registry::Close(KeyHandle key) {
    return Answer(RegCloseKey(SystemHandle(key)));
}

Win32Code Win32Registry::Flush(KeyHandle key) {
    return Answer(RegFlushKey(SystemHandle(key)));
}

Win32Code Win32Registry::EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) {
    std::vector<wchar_t> buffer(capacity);
    DWORD length = capacity;
    const LSTATUS status =
        RegEnumKeyExW(SystemHandle(key), index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) name.assign(buffer.data(), length);
    return Answer(status);
}

Win32Code Win32Registry::DeleteSubkey(KeyHandle parent, const std::wstring& name) {
    return Answer(RegDeleteKeyExW(SystemHandle(parent), name.c_str(), 0, 0));
}

Win32Code Win32Registry::Query(KeyHandle key, const std::wstring& name, ValueType& type, std::span<std::byte> buffer,
                               uint32_t& size) {
    DWORD storedType{};
    DWORD length = Length(buffer.size());
    BYTE* const data = buffer.empty() ? nullptr : reinterpret_cast<BYTE*>(buffer.data());
    const LSTATUS status = RegQueryValueExW(SystemHandle(key), name.c_str(), nullptr, &storedType, data, &length);
    if (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) {
        type = static_cast<ValueType>(storedType);
        size = length;
    }
    return Answer(status);
}

Win32Code Win32Registry::Set(KeyHandle key, const std::wstring& name, ValueType type, std::span<const std::byte> data) {
    const std::vector<std::byte> guarded = Guarded(data);
    return Answer(RegSetValueExW(SystemHandle(key), name.c_str(), 0, static_cast<DWORD>(type),
                                 reinterpret_cast<const BYTE*>(guarded.data() + GuardLength), Length(data.size())));
}

Win32Code Win32Registry::EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) {
    std::vector<wchar_t> buffer(longestName);
    DWORD length = longestName;
    const LSTATUS status =
        RegEnumValueW(SystemHandle(key), index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) name.assign(buffer.data(), length);
    return Answer(status);
}

}  // namespace platform::win32
