#include "crypto/StoreProfileSettings.h"

#include <cstddef>
#include <vector>

namespace crypto {
namespace {

template <class Value>
Value EntryOf(const std::vector<Value>& list, int index, const Value& missing) {
    return index >= 0 && static_cast<size_t>(index) < list.size() ? list[static_cast<size_t>(index)]
                                                                  : missing;
}

}  // namespace

StoreProfileSettings SettingsOf(const config::ServiceProfile& profile, int index) {
    StoreProfileSettings settings;
    settings.ZCSProfile = EntryOf(profile.ZCSProfile, index, {});
    settings.CrlUpdatePeriod = EntryOf(profile.CrlUpdatePeriod, index, 1);
    settings.Picker.ServerTSP = EntryOf(profile.ServerTSP, index, std::wstring(L"0"));
    settings.Picker.AutoUseTSP = EntryOf(profile.AutoUseTSP, index, 0);
    settings.Picker.NotAddCert = EntryOf(profile.NotAddCert, index, 0);
    settings.Picker.NotCopyToLocal = EntryOf(profile.NotCopyToLocal, index, 0);
    settings.Picker.NotUseLDAP = EntryOf(profile.NotUseLDAP, index, 1);
    settings.Picker.NotLoadCrl = EntryOf(profile.NotLoadCrl, index, 0);
    settings.Picker.AutoVerifyTSP = EntryOf(profile.AutoVerifyTSP, index, 0);
    settings.Picker.NoTSPisError = EntryOf(profile.NoTSPisError, index, 0);
    settings.Picker.UseAIA = EntryOf(profile.UseAIA, index, 0);
    return settings;
}

}  // namespace crypto
