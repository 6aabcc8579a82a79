// Registry trees as text: their keys, small changes, and the one form in which two of them are compared.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "demo/RegistryText.h"
#include "demo/RegistryTool.h"
#include "platform/memory/MemoryRegistry.h"

namespace tests {

inline const std::string ServiceKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice";
inline const std::string LibraryKey = "HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel";

// The line that opens a key in a tree; the keys below the service's are named by their paths below it.
inline std::string Key(const std::string& path) {
    return "[" + path + "]\n";
}
inline std::string BelowService(const std::string& path) {
    return Key(ServiceKey + "\\" + path);
}

// As DumpTrees shows the trees of this text.
inline std::string Canonical(std::string_view trees) {
    platform::memory::MemoryRegistry registry;
    demo::ApplyRegistryText(trees, registry);
    return demo::DumpRegistry(registry);
}

// The tree with another value there (the text behind "name = "); without the value when that is empty. A
// value that is not there yet is added.
inline std::string Replace(const std::string& tree, const std::string& key, const std::string& name,
                           const std::string& value) {
    const size_t head = tree.find(Key(key));
    if (head == std::string::npos) throw std::invalid_argument("no key " + key);
    const size_t first = head + Key(key).size();
    const size_t next = tree.find("\n[", first - 1);
    const size_t end = next == std::string::npos ? tree.size() : next + 1;
    std::string values = tree.substr(first, end - first);
    const size_t at = ("\n" + values).find("\n" + name + " = ");
    if (at != std::string::npos) values.erase(at, values.find('\n', at) + 1 - at);
    if (!value.empty()) values.insert(0, name + " = " + value + "\n");
    return tree.substr(0, first) + values + tree.substr(end);
}

inline std::string Without(const std::string& tree, const std::string& key, const std::string& name) {
    return Replace(tree, key, name, "");
}

inline std::string Narrow(const std::wstring& ascii) {
    std::string narrow;
    for (const wchar_t unit : ascii) narrow += static_cast<char>(unit);
    return narrow;
}

}  // namespace tests
