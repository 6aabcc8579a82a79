// The fields of owner names ("CN=Anna,O=Office,C=RU"): by them the picker sorts and the filter form searches.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace certs {

struct NameField {
    std::wstring label;  // "Common name (CN)"
    std::wstring key;    // "CN"
    bool operator==(const NameField&) const = default;
};

// All fields; those that are offered for choice come first.
const std::vector<NameField>& Fields();
// How many of them are offered: those whose label begins with a word.
size_t OfferedFieldCount();
std::vector<std::wstring> OfferedFieldLabels();

// What stands, in upper case, between the last opening bracket and the closing one that ends the label.
std::wstring AttributeKey(std::wstring_view label);

// The parts between the commas that are followed by the key of a field; other commas belong to a value. The
// name has to be in upper case; the parts lie in it.
std::vector<std::wstring_view> CutName(std::wstring_view upperName);

// One line for each field that is offered for choice, whatever the case of its key.
std::wstring NameInLines(std::wstring_view name);

// What a name is sorted by: all from the field's "KEY=" on; empty when the name has no such field. Lies in
// the name.
std::wstring_view SortKey(std::wstring_view name, std::wstring_view fieldKey);

}  // namespace certs
