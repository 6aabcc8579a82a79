#include "demo/RegistryText.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

#include "demo/RegistryKey.h"
#include "demo/RegistryValueText.h"
#include "demo/Utf8.h"
#include "text/Case.h"

namespace demo {
namespace {

using platform::KeyHandle;
using platform::RegistryBackend;
using platform::RootKey;

constexpr std::string_view machineRoot = "HKEY_LOCAL_MACHINE\\";
constexpr std::string_view userRoot = "HKEY_CURRENT_USER\\";

std::wstring FromLine(std::string_view utf8) {
    const auto units = FromUtf8(utf8);
    if (!units) throw std::runtime_error("not UTF-8");
    return *units;
}

// line: "[HKEY_...\path]"
RegistryKey CreateKey(RegistryBackend& registry, std::string_view line) {
    if (!line.ends_with(']')) throw std::runtime_error("closing bracket missing");
    std::string_view path = line.substr(1, line.size() - 2);
    const RootKey root = path.starts_with(userRoot) ? RootKey::CurrentUser : RootKey::LocalMachine;
    const std::string_view rootName = root == RootKey::CurrentUser ? userRoot : machineRoot;
    if (!path.starts_with(rootName)) throw std::runtime_error("unknown root key");
    path.remove_prefix(rootName.size());
    if (path.empty() || path.front() == '\\' || path.back() == '\\' || path.find("\\\\") != std::string_view::npos) {
        throw std::runtime_error("empty key name");
    }
    return RegistryKey::Create(registry, root, FromLine(path));
}

// line: "name = value"
void SetValue(const RegistryKey& key, std::string_view line) {
    constexpr std::string_view separator = " = ";
    const size_t end = line.find(separator);
    if (end == std::string_view::npos) throw std::runtime_error("neither key, value nor comment");
    const std::wstring name = FromLine(line.substr(0, end));
    key.Set(name, ParseRegistryValue(line.substr(end + separator.size())));
}

std::string_view TakeLine(std::string_view& text) {
    const size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

// The digits at the front without leading zeros; takes them off.
std::wstring_view TakeNumber(std::wstring_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    std::wstring_view number = text.substr(0, static_cast<size_t>(end - text.begin()));
    text.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of(L'0'), number.size()));
    return number;
}

// Without regard to case, and runs of digits by the number they tell.
bool IsNameBefore(const std::wstring& left, const std::wstring& right) {
    std::wstring_view a = left;
    std::wstring_view b = right;
    while (!a.empty() && !b.empty()) {
        if (IsDigit(a.front()) && IsDigit(b.front())) {
            const std::wstring_view first = TakeNumber(a);
            const std::wstring_view second = TakeNumber(b);
            if (first.size() != second.size()) return first.size() < second.size();
            if (first != second) return first < second;
            continue;
        }
        const wchar_t first = text::Upper(a.front());
        const wchar_t second = text::Upper(b.front());
        if (first != second) return first < second;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    if (a.empty() != b.empty()) return a.empty();
    return left < right;
}

// A name as it stands in a line.
std::string Name(const std::wstring& name, std::string_view forbiddenInside) {
    const auto isControl = [](wchar_t unit) { return unit < 0x20; };
    const auto utf8 = ToUtf8(name);
    if (!utf8 || std::any_of(name.begin(), name.end(), isControl)) {
        throw std::runtime_error("a name cannot be shown as text");
    }
    if (utf8->starts_with('#') || utf8->starts_with('[') || utf8->find(forbiddenInside) != std::string::npos) {
        throw std::runtime_error("a name would be misread: " + *utf8);
    }
    return *utf8;
}

std::string DumpValues(const RegistryKey& key) {
    std::vector<std::wstring> names = key.ValueNames();
    std::sort(names.begin(), names.end(), IsNameBefore);
    std::string text;
    for (const std::wstring& name : names) {
        text += Name(name, " = ") + " = " + FormatRegistryValue(key.Query(name)) + "\n";
    }
    return text;
}

void DumpTree(const RegistryKey& key, const std::string& path, std::string& text) {
    if (!text.empty()) text += '\n';
    text += "[" + path + "]\n" + DumpValues(key);
    for (const std::wstring& name : key.SubkeyNames()) {
        DumpTree(key.OpenSubkey(name), path + "\\" + Name(name, "\\"), text);
    }
}

void DeleteTree(const RegistryKey& parent, const std::wstring& name) {
    const RegistryKey key = parent.OpenSubkey(name);
    for (const std::wstring& subkey : key.SubkeyNames()) DeleteTree(key, subkey);
    parent.DeleteSubkey(name);
}

}  // namespace

void ApplyRegistryText(std::string_view utf8, RegistryBackend& registry) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (utf8.starts_with(byteOrderMark)) utf8.remove_prefix(byteOrderMark.size());
    RegistryKey key;
    for (size_t number = 1; !utf8.empty(); ++number) {
        const std::string_view line = TakeLine(utf8);
        if (line.empty() || line.starts_with('#')) continue;
        try {
            if (line.starts_with('[')) {
                key = CreateKey(registry, line);
            } else if (key.IsOpen()) {
                SetValue(key, line);
            } else {
                throw std::runtime_error("value before the first key");
            }
        } catch (const std::runtime_error& error) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
        }
    }
}

std::string DumpRegistryKey(RegistryBackend& registry, RootKey root, const std::wstring& path) {
    const std::string_view rootName = root == RootKey::CurrentUser ? userRoot : machineRoot;
    std::string text;
    DumpTree(RegistryKey::Open(registry, root, path), std::string(rootName) + Name(path, "\n"), text);
    return text;
}

void DeleteRegistryTree(RegistryBackend& registry, RootKey root, const std::wstring& path) {
    if (!RegistryKey::Exists(registry, root, path)) return;
    const size_t end = path.rfind(L'\\');
    const bool isDirectlyBelowRoot = end == std::wstring::npos;
    const RegistryKey parent = RegistryKey::Open(registry, root, isDirectlyBelowRoot ? L"" : path.substr(0, end));
    DeleteTree(parent, isDirectlyBelowRoot ? path : path.substr(end + 1));
}

}  // namespace demo
