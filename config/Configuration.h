// Everything the editor holds in memory, as the main dialog owns it.
#pragma once

#include <vector>

#include "config/Records.h"
#include "crypto/CsProfile.h"

namespace config {

struct Configuration {
    GlobalSettings Settings;
    std::vector<ServiceProfile> Profiles;       // in the registry's order
    std::vector<crypto::CsProfile> CsProfiles;  // likewise; never changed by the editor
    bool operator==(const Configuration&) const = default;
};

}  // namespace config
