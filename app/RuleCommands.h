// What the commands on rules do to the rules of a profile.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "config/Records.h"

namespace app {

// The masks that the rule editor offers: each distinct one of the profile's rules, then "*." with each of the
// result extensions and additional ones that is not there yet.
std::vector<std::wstring> SuggestedMasks(const config::GlobalSettings& settings,
                                         std::span<const config::Rule> rules);

// Takes the rule out and puts it back at the other position; the rest keep their order. Both are positions of
// rules.
void MoveRule(std::vector<config::Rule>& rules, size_t from, size_t to);

}  // namespace app
