// Reads the whole configuration from the registry, and makes a minimal one when there is none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/Records.h"
#include "config/RegistryStore.h"

namespace config {

// Nothing when a key cannot be opened, created, searched or closed: that has been reported and the program
// must end. Throws std::invalid_argument when there is neither a service profile nor a CS profile to make
// the first one with. owner: the dialog that the message boxes belong to.
[[nodiscard]] std::optional<Configuration> LoadConfiguration(RegistryStore& store, const ui::Dialog* owner);

// The cryptographic library's CS profiles of the current user. Nothing after a report when a key cannot be
// opened or searched.
[[nodiscard]] std::optional<std::vector<CsProfile>> LoadCsProfiles(RegistryStore& store, const ui::Dialog* owner);

// The number after the last blank of a rule key's name; 0 when there is none.
uint64_t RuleKeyNumber(std::wstring_view name);

// Orders rule key names as the service does: by their numbers, with count - 2 passes of exchanging
// neighbours, and only when there are at least three. The passes do not suffice when the name with the
// smallest number of all stands last: it then ends second.
void OrderRuleKeys(std::vector<std::wstring>& names);

}  // namespace config
