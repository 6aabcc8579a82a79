// The store profiles attached to a service profile, with the settings of each. The service profile keeps them
// in parallel lists, which a configuration edited by hand may hold at unequal lengths: an entry that is not
// there counts as its default, and entries behind the last attached store profile are carried along.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "config/Records.h"

namespace editors {

inline constexpr wchar_t NoTimeStampServer[] = L"0";

// As a newly attached store profile has them.
struct StoreProfileSettings {
    std::wstring ServerTSP = NoTimeStampServer;
    config::Flag NotUseLDAP = 1;
    config::Flag NotCopyToLocal = 0;
    config::Flag AutoUseTSP = 0;
    config::Flag AutoVerifyTSP = 0;
    config::Flag NoTSPisError = 0;
    config::Flag UseAIA = 0;
    config::Flag NotAddCert = 0;
    config::Flag NotLoadCrl = 0;
    int32_t CrlUpdatePeriod = 1;  // hours
    bool operator==(const StoreProfileSettings&) const = default;
};

// Of the store profile at the index.
StoreProfileSettings SettingsAt(const config::ServiceProfile& profile, size_t index);
// A missing entry stays missing where it would get its default.
void PutSettings(config::ServiceProfile& profile, size_t index, const StoreProfileSettings& settings);

// The whole name, without regard to case.
bool IsAttached(const config::ServiceProfile& profile, std::wstring_view name);
// Behind the attached ones, with the settings of a new one.
void AttachStoreProfile(config::ServiceProfile& profile, std::wstring name);
// index: of an attached one. Rules that use it are left as they are.
void DetachStoreProfile(config::ServiceProfile& profile, size_t index);

// The positions, from 1 on, of the rules that have certificates or signer lists of the store profile: "2,5".
std::wstring RulesWithCertificatesOf(std::span<const config::Rule> rules, std::wstring_view storeProfile);

}  // namespace editors
