// The CS profiles attached to a service profile, with the settings of each. The service profile keeps them
// in parallel lists, which a configuration edited by hand may hold at unequal lengths: an entry that is not
// there counts as its default, and entries after the last attached CS profile are carried along.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "config/Records.h"

namespace config {

inline constexpr wchar_t NoTimeStampServer[] = L"0";

// As a newly attached CS profile has them.
struct CsProfileSettings {
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
    bool operator==(const CsProfileSettings&) const = default;
};

// Of the CS profile at the index.
CsProfileSettings SettingsAt(const ServiceProfile& profile, size_t index);
// A missing entry stays missing where it would get its default.
void PutSettings(ServiceProfile& profile, size_t index, const CsProfileSettings& settings);

// The whole name, without regard to case.
bool IsAttached(const ServiceProfile& profile, std::wstring_view name);
// After the attached ones, with the settings of a new one.
void AttachCsProfile(ServiceProfile& profile, std::wstring name);
// index: of an attached one. Rules that use it are left as they are.
void DetachCsProfile(ServiceProfile& profile, size_t index);

}  // namespace config
