#include "crypto/ContextSettings.h"

#include <cstddef>
#include <utility>

#include "config/StoreProfileSettings.h"

namespace crypto {

ContextSettings SettingsOf(const config::ServiceProfile& profile, int index) {
    ContextSettings settings;
    const auto position = static_cast<size_t>(index);  // a negative one is beyond every list, too
    if (position < profile.ZCSProfile.size()) settings.ZCSProfile = profile.ZCSProfile[position];
    config::StoreProfileSettings kept = config::SettingsAt(profile, position);
    settings.CrlUpdatePeriod = kept.CrlUpdatePeriod;
    settings.Picker.ServerTSP = std::move(kept.ServerTSP);
    settings.Picker.AutoUseTSP = kept.AutoUseTSP;
    settings.Picker.NotAddCert = kept.NotAddCert;
    settings.Picker.NotCopyToLocal = kept.NotCopyToLocal;
    settings.Picker.NotUseLDAP = kept.NotUseLDAP;
    settings.Picker.NotLoadCrl = kept.NotLoadCrl;
    settings.Picker.AutoVerifyTSP = kept.AutoVerifyTSP;
    settings.Picker.NoTSPisError = kept.NoTSPisError;
    settings.Picker.UseAIA = kept.UseAIA;
    return settings;
}

}  // namespace crypto
