// Taking owner names ("CN=Anna,O=Office,C=RU") apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace certs {

// The parts between the commas that are followed by the key of a field; other commas belong to a value. The
// name has to be in upper case; the parts lie in it.
std::vector<std::wstring_view> CutName(std::wstring_view upperName);

// One line for each field that is offered for choice, whatever the case of its key.
std::wstring NameInLines(std::wstring_view name);

// What a name is sorted by: all from the field's "KEY=" on; empty when the name has no such field. Lies in
// the name.
std::wstring_view SortKey(std::wstring_view name, std::wstring_view fieldKey);

}  // namespace certs
