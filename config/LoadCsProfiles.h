// Reads the cryptographic library's store profiles of the current user.
#pragma once

#include <vector>

#include "config/RegistryStore.h"
#include "crypto/CsProfile.h"

namespace config {

// False after a report when a key cannot be opened or searched; the profiles are then incomplete.
[[nodiscard]] bool LoadCsProfiles(RegistryStore& store, const errors::ErrorReporter& reporter,
                                  const ui::Dialog* owner, std::vector<crypto::CsProfile>& profiles);

}  // namespace config
