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
    for (const std::wstring& entry : std::get<Texts>(value))
        list += (list == "{" ? " " : ", ") + Quoted(entry);
    return list == "{" ? "{}" : list + " }";
}

std::string Header(const std::wstring& path) {
    return "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice" +
           Narrow(path.empty() ? path : L"\\" + path) + "]";
}

}  // namespace

void Tree::Erase(const std::wstring& path) {
    std::erase_if(keys_,
                  [&](const auto& key) { return key.first == path || key.first.starts_with(path + L"\\"); });
}

Texts Tree::Subkeys(const std::wstring& path) const {
    const std::wstring start = path.empty() ? path : path + L"\\";
    Texts names;
    for (const auto& [key, values] : keys_)
        if (key.size() > start.size() && key.starts_with(start) &&
            key.find(L'\\', start.size()) == std::wstring::npos)
            names.push_back(key.substr(start.size()));
    std::sort(names.begin(), names.end(),
              [](const std::wstring& a, const std::wstring& b) { return Capitals(a) < Capitals(b); });
    return names;
}

std::string Tree::Text() const {
    std::string text;
    for (const auto& [path, values] : keys_) {
        text += Header(path) + "\n";
        for (const auto& [name, value] : values) text += Narrow(name) + " = " + Shown(value) + "\n";
    }
    return text;
}

std::vector<std::string> Tree::Lines() const {
    std::vector<std::string> lines;
    for (const auto& [path, values] : keys_) {
        const std::string header = Header(path);
        lines.push_back(header);
        for (const auto& [name, value] : values)
            lines.push_back(header + " " + Narrow(name) + " = " + Shown(value));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    std::string key;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with('[')) {
            key = line;
            lines.push_back(key);
        } else if (!line.empty() && !line.starts_with("Window_")) {
            lines.push_back(key + " " + line);
        }
    }
    std::sort(lines.begin(), lines.end());
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
