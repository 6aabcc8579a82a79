// Registry trees for the fuzz target: built from text as demo/RegistryText.h describes it, but with patience
// for everything that is wrong with it, and read back to be compared.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "config/RegistryLayout.h"
#include "demo/RegistryKey.h"
#include "demo/Utf8.h"
#include "fuzz/Input.h"

namespace fuzz {

// Keys by their paths, "\Alpha\rules", and values by path, line feed and name.
using Tree = std::map<std::wstring, demo::RegistryValue>;

// line: "[HKEY_...\path]", or "[path]" below the service's key. Where it is no key, the values behind it have
// none.
inline demo::RegistryKey KeyOfLine(std::string_view line, platform::RegistryBackend& registry) {
    constexpr std::string_view machine = "[HKEY_LOCAL_MACHINE\\";
    constexpr std::string_view user = "[HKEY_CURRENT_USER\\";
    if (line.ends_with(']')) line.remove_suffix(1);
    const bool isUsers = line.starts_with(user);
    const bool isMachines = line.starts_with(machine);
    line.remove_prefix(isUsers ? user.size() : isMachines ? machine.size() : 1);
    const auto path = demo::FromUtf8(line);
    if (!path) return {};
    const std::wstring below(isUsers || isMachines ? L"" : std::wstring(config::ServiceRoot) + L"\\");
    const auto root = isUsers ? platform::RootKey::CurrentUser : platform::RootKey::LocalMachine;
    return demo::RegistryKey::Create(registry, root, below + *path);
}

// line: "name = value"
inline void SetValueOfLine(const demo::RegistryKey& key, std::string_view line) {
    constexpr std::string_view separator = " = ";
    const size_t end = line.find(separator);
    if (!key.IsOpen() || end == std::string_view::npos) return;
    const auto name = demo::FromUtf8(line.substr(0, end));
    if (name) key.Set(*name, demo::ParseRegistryValue(line.substr(end + separator.size())));
}

// A line that the text form refuses, or the registry, is as good as not there.
inline void BuildTree(std::string_view text, platform::RegistryBackend& registry) {
    demo::RegistryKey key;
    while (!text.empty()) {
        const size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        try {
            if (line.starts_with('[')) {
                key = demo::RegistryKey();
                key = KeyOfLine(line, registry);
            } else {
                SetValueOfLine(key, line);
            }
        } catch (const std::runtime_error&) {
        }
    }
}

inline void ReadKey(const demo::RegistryKey& key, const std::wstring& path, Tree& tree) {
    tree[path];
    for (const std::wstring& name : key.ValueNames()) tree[path + L'\n' + name] = key.Query(name);
    for (const std::wstring& name : key.SubkeyNames()) ReadKey(key.OpenSubkey(name), path + L'\\' + name, tree);
}

inline Tree ReadTree(platform::RegistryBackend& registry, platform::RootKey root, const std::wstring& path) {
    Tree tree;
    if (path.empty() || demo::RegistryKey::Exists(registry, root, path))
        ReadKey(demo::RegistryKey::Open(registry, root, path), L"", tree);
    return tree;
}

}  // namespace fuzz
