// The configuration as the model holds it: plain values under the names that they have in the registry.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/config/OperationNames.h"
#include "tests/model/Dice.h"
#include "tests/model/Tree.h"

namespace tests::model {

struct Rule {
    std::map<std::wstring, std::wstring> text;
    std::map<std::wstring, int32_t> number;
    Texts masks;
    Texts recipients;
    std::vector<std::pair<std::wstring, Texts>> signerLists;

    // One that has every value, all of them empty or 0.
    Rule();
    const std::wstring& Operation() const { return text.at(L"Operation"); }
    bool Is(const wchar_t* operation) const { return Operation() == operation; }
};

struct Profile {
    std::wstring name;
    Values values;
    std::vector<Rule> rules;

    // One that has every value: empty lists, and the numbers of a new one.
    explicit Profile(std::wstring name = {});
    const Texts& CsProfiles() const { return std::get<Texts>(values.at(L"ZCSProfile")); }
};

struct Configuration {
    Values settings;
    std::vector<Profile> profiles;
};

// The library's CS profiles by name, and the folders of their stores; a name can come twice.
const std::vector<std::pair<std::wstring, std::wstring>>& StoreProfileFolders();

// What loading makes of the registry, which gets its first profile when it holds none.
Configuration Load(Tree& registry);
// What saving makes of the registry.
void Save(const Configuration& configuration, Tree& registry);

// What comes back of a rule that has been exported and is imported.
Rule Exchanged(const Rule& rule);

// A registry as users, older versions and other tools may have left it.
Tree RandomTree(Dice& dice);

// Of the words in the text, which blanks separate.
bool IsOneOf(const std::wstring& word, const wchar_t* words);

}  // namespace tests::model
