// A registry tree as plain values, below the service's key: what the model of the program writes and reads,
// and what is compared with the registry that the program has written.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace tests::model {

using Texts = std::vector<std::wstring>;
using Value = std::variant<int32_t, std::wstring, Texts>;
using Values = std::map<std::wstring, Value>;
// The lines of the text form, those of each key sorted.
using LinesByKey = std::map<std::string, std::vector<std::string>>;

// Upper case of the letters that walks use.
std::wstring Capitals(std::wstring text);

// Key names are found without regard to case; each keeps the spelling that it was made with.
class Tree {
  public:
    // Makes the key if it is not there. path: below the service's key, which itself is the empty path.
    Values& Key(const std::wstring& path);
    // The key and everything below it.
    void Erase(const std::wstring& path);
    // Names of the keys directly below, in the registry's order: alphabetical without regard to case.
    Texts Subkeys(const std::wstring& path) const;

    template <class T>
    T Get(const std::wstring& path, const std::wstring& name, T missing) const {
        const auto key = keys_.find(Capitals(path));
        if (key == keys_.end()) return missing;
        const auto value = key->second.values.find(name);
        return value == key->second.values.end() ? missing : std::get<T>(value->second);
    }

    // In the text form of registry trees, to put it into a registry.
    std::string Text() const;
    // The same in lines.
    LinesByKey Lines() const;

    bool operator==(const Tree&) const = default;

  private:
    struct SpelledKey {
        std::wstring path;
        Values values;
        bool operator==(const SpelledKey&) const = default;
    };
    std::map<std::wstring, SpelledKey> keys_;  // by their paths in capitals
};

// Of a text form; without the window's placement, which is none of the user's commands.
LinesByKey Lines(const std::string& text);

// UTF-8.
std::string Narrow(const std::wstring& text);

}  // namespace tests::model
