// The store profiles attached to a service profile, with the settings of each. The service profile keeps them
// in parallel lists, which a configuration edited by hand may hold at unequal lengths: an entry that is not
// there counts as its default, and entries behind the last attached store profile are carried along.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "config/Records.h"

namespace config {

inline constexpr wchar_t NoTimeStampServer[] = L"0";

// As a newly attached store profile has them.
struct StoreProfileSettings {
    std::wstring ServerTSP = NoTimeStampServer;
    Flag NotUseLDAP = 1;
    Flag NotCopyToLocal = 0;
    Flag AutoUseTSP = 0;
    Flag AutoVerifyTSP = 0;
    Flag NoTSPisError = 0;
    Flag UseAIA = 0;
    Flag NotAddCert = 0;
    Flag NotLoadCrl = 0;
    int32_t CrlUpdatePeriod = 1;  // hours
    bool operator==(const StoreProfileSettings&) const = default;
};

// Of the store profile at the index.
StoreProfileSettings SettingsAt(const ServiceProfile& profile, size_t index);
// A missing entry stays missing where it would get its default.
void PutSettings(ServiceProfile& profile, size_t index, const StoreProfileSettings& settings);

// The whole name, without regard to case.
bool IsAttached(const ServiceProfile& profile, std::wstring_view name);
// Behind the attached ones, with the settings of a new one.
void AttachStoreProfile(ServiceProfile& profile, std::wstring name);
// index: of an attached one. Rules that use it are left as they are.
void DetachStoreProfile(ServiceProfile& profile, size_t index);

}  // namespace config
