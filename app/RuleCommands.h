// What commands do to the rules of a profile, and the two that carry them to another machine and back.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "config/Records.h"
#include "config/Services.h"
#include "ui/Dialog.h"

namespace app {

// The masks that the rule editor offers: each distinct one of the profile's rules, then "*." with each of the
// result extensions and additional ones that is not there yet.
std::vector<std::wstring> SuggestedMasks(const config::GlobalSettings& settings, std::span<const config::Rule> rules);

// Takes the rule out and puts it back at the other position; the rest keep their order. Both are positions of
// rules.
void MoveRule(std::vector<config::Rule>& rules, size_t from, size_t to);

// Rules that work with one of the removed CS profiles work with the profile's first one from now on; their
// certificates stay. Nothing happens in a profile without a CS profile.
void MoveRulesToFirstCsProfile(config::ServiceProfile& profile, std::span<const std::wstring> removed);

// Writes the profile's rules to a file that the user names. Failures have been reported.
void ExportRules(const config::Services& services, const ui::Dialog* owner, const config::ServiceProfile& profile);

// Adds the rules of a file that the user chooses to the end of the profile's. Returns whether this counts as
// a change: the file held records, even where none of them was long enough for a rule. Otherwise the user
// gave up, a failure has been reported, or there was no record, and the profile is as it was.
[[nodiscard]] bool ImportRules(const config::Services& services, const ui::Dialog* owner,
                               config::ServiceProfile& profile);

}  // namespace app
