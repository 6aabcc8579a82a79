// The order in which the rules of a profile are loaded.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace config {

// The number behind the last blank of a rule key's name; 0 when there is none.
uint64_t RuleKeyNumber(std::wstring_view name);

// Orders rule key names as the service does: by their numbers, with count - 2 passes of exchanging
// neighbours, and only when there are at least three. The passes do not suffice when the name with the
// smallest number of all stands last: it then ends second.
void OrderRuleKeys(std::vector<std::wstring>& names);

}  // namespace config
