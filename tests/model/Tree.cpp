#include "tests/model/Tree.h"

#include <algorithm>
#include <sstream>

#include "demo/Utf8.h"

namespace tests::model {
namespace {

std::string Quoted(const std::wstring& text) {
    std::string quoted = "\"";
    for (const char c : Narrow(text)) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + "\"";
}

std::string Shown(const Value& value) {
    if (const auto* number = std::get_if<int32_t>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<std::wstring>(&value)) return Quoted(*text);
    std::string list = "{";
    for (const std::wstring& entry : std::get<Texts>(value)) list += (list == "{" ? " " : ", ") + Quoted(entry);
    return list == "{" ? "{}" : list + " }";
}

std::string Header(const std::wstring& path) {
    return "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice" + Narrow(path.empty() ? path : L"\\" + path) + "]";
}

}  // namespace

Values& Tree::Key(const std::wstring& path) {
    const std::wstring capitals = Capitals(path);
    if (const auto key = keys_.find(capitals); key != keys_.end()) return key->second.values;
    const size_t name = path.rfind(L'\\');
    const auto parent = name == std::wstring::npos ? keys_.end() : keys_.find(capitals.substr(0, name));
    SpelledKey& key = keys_[capitals];
    key.path = parent == keys_.end() ? path : parent->second.path + path.substr(name);
    return key.values;
}

void Tree::Erase(const std::wstring& path) {
    const std::wstring erased = Capitals(path);
    std::erase_if(keys_, [&](const auto& key) { return key.first == erased || key.first.starts_with(erased + L"\\"); });
}

Texts Tree::Subkeys(const std::wstring& path) const {
    const std::wstring start = Capitals(path.empty() ? path : path + L"\\");
    Texts names;
    for (const auto& [capitals, key] : keys_)
        if (capitals.size() > start.size() && capitals.starts_with(start) &&
            capitals.find(L'\\', start.size()) == std::wstring::npos)
            names.push_back(key.path.substr(start.size()));
    std::sort(names.begin(), names.end(),
              [](const std::wstring& a, const std::wstring& b) { return Capitals(a) < Capitals(b); });
    return names;
}

std::string Tree::Text() const {
    std::string text;
    for (const auto& [capitals, key] : keys_) {
        text += Header(key.path) + "\n";
        for (const auto& [name, value] : key.values) text += Narrow(name) + " = " + Shown(value) + "\n";
    }
    return text;
}

LinesByKey Tree::Lines() const {
    LinesByKey lines;
    for (const auto& [capitals, key] : keys_) {
        std::vector<std::string>& ofKey = lines[Header(key.path)];
        for (const auto& [name, value] : key.values) ofKey.push_back(Narrow(name) + " = " + Shown(value));
        std::sort(ofKey.begin(), ofKey.end());
    }
    return lines;
}

LinesByKey Lines(const std::string& text) {
    LinesByKey lines;
    std::vector<std::string>* ofKey = nullptr;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with('[')) {
            ofKey = &lines[line];
        } else if (ofKey != nullptr && !line.empty() && !line.starts_with("Window_")) {
            ofKey->push_back(line);
        }
    }
    for (auto& [key, sorted] : lines) std::sort(sorted.begin(), sorted.end());
    return lines;
}

std::wstring Capitals(std::wstring text) {
    for (wchar_t& unit : text) {
        const bool latin = unit >= L'a' && unit <= L'z';
        const bool other = (unit >= 0xE0 && unit <= 0xF6) || (unit >= 0x430 && unit <= 0x44F);
        if (latin || other) unit = static_cast<wchar_t>(unit - 32);
    }
    return text;
}

std::string Narrow(const std::wstring& text) {
    return demo::ToUtf8(text).value_or("?");
}

}  // namespace tests::model
