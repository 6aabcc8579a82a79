// The fields of owner names by which the picker sorts and the filter form searches.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace certs {

struct NameField {
    std::wstring Label;  // "Common name (CN)"
    std::wstring Key;    // "CN"
    bool operator==(const NameField&) const = default;
};

// All fields; those that are offered for choice come first.
const std::vector<NameField>& Fields();
// How many of them are offered: those whose label begins with a word.
size_t OfferedFieldCount();
std::vector<std::wstring> OfferedFieldLabels();

// What stands, in upper case, between the last opening bracket and the closing one that ends the label.
std::wstring AttributeKey(std::wstring_view label);

}  // namespace certs
