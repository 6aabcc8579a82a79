// How a rule is shown in the rule list: its cells, the compact summary of what only some operations use, and
// the detail text that goes with that summary.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/Records.h"

namespace app {

enum class RuleColumn : size_t {
    Number,
    Description,
    Operation,
    PathIn,
    PathOut,
    PathError,
    Masks,
    CsProfile,
    Extra,
};

// Headers from left to right, one for each column.
std::span<const std::wstring_view> RuleColumnHeaders();

// position: the rule's place in its profile, from 0.
std::wstring RuleCell(const config::Rule& rule, size_t position, RuleColumn column);

// Each mask on a line of its own, starting with a line break.
std::wstring MaskDetails(const config::Rule& rule);
// What the summary leaves out: names of recipients and signers, and every option by its name.
std::wstring ExtraDetails(const config::Rule& rule);

// Positions of the rules that the list shows: those with an operation whose description holds the search
// text, without regard to case. An empty search text shows all.
std::vector<size_t> ListedRules(std::span<const config::Rule> rules, std::wstring_view searchText);

}  // namespace app
