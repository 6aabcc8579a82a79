// What a service profile says of one of its store profiles: all that is needed to open a context and to
// search.
#pragma once

#include <cstdint>
#include <string>

#include "config/Records.h"
#include "crypto/PickerSettings.h"

namespace crypto {

struct ContextSettings {
    std::wstring ZCSProfile;      // the store profile's name
    int32_t CrlUpdatePeriod = 1;  // hours; below 1 the revocation lists are never refreshed
    PickerSettings Picker;
};

// index: of the profile's parallel lists. What a list lacks has the value of a store profile that has just
// been added to a service profile.
ContextSettings SettingsOf(const config::ServiceProfile& profile, int index);

}  // namespace crypto
