// What the commands on profiles do to a profile.
#pragma once

#include <span>
#include <string>

#include "config/Records.h"

namespace app {

// Rules that work with one of the removed store profiles work with the profile's first one from now on; their
// certificates stay. Nothing happens in a profile without a store profile.
void LeadRulesToFirstStoreProfile(config::ServiceProfile& profile, std::span<const std::wstring> removed);

}  // namespace app
