#include "config/CsProfileSettings.h"

#include <algorithm>

#include "text/Case.h"

namespace config {
namespace {

// Every list that is parallel to the names, with the setting that its entries are.
template <class Visitor>
void VisitLists(const Visitor& visit) {
    using Profile = ServiceProfile;
    using Settings = CsProfileSettings;
    visit(&Profile::ServerTSP, &Settings::ServerTSP);
    visit(&Profile::NotUseLDAP, &Settings::NotUseLDAP);
    visit(&Profile::NotCopyToLocal, &Settings::NotCopyToLocal);
    visit(&Profile::AutoUseTSP, &Settings::AutoUseTSP);
    visit(&Profile::AutoVerifyTSP, &Settings::AutoVerifyTSP);
    visit(&Profile::NoTSPisError, &Settings::NoTSPisError);
    visit(&Profile::UseAIA, &Settings::UseAIA);
    visit(&Profile::NotAddCert, &Settings::NotAddCert);
    visit(&Profile::NotLoadCrl, &Settings::NotLoadCrl);
    visit(&Profile::CrlUpdatePeriod, &Settings::CrlUpdatePeriod);
}

template <class Entries>
auto At(Entries& entries, size_t index) {
    return entries.begin() + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

CsProfileSettings SettingsAt(const ServiceProfile& profile, size_t index) {
    CsProfileSettings settings;
    VisitLists([&](auto list, auto setting) {
        const auto& entries = profile.*list;
        if (index < entries.size()) settings.*setting = entries[index];
    });
    return settings;
}

void PutSettings(ServiceProfile& profile, size_t index, const CsProfileSettings& settings) {
    const CsProfileSettings defaults;
    VisitLists([&](auto list, auto setting) {
        auto& entries = profile.*list;
        if (index >= entries.size()) {
            if (settings.*setting == defaults.*setting) return;
            entries.resize(index + 1, defaults.*setting);
        }
        entries[index] = settings.*setting;
    });
}

bool IsAttached(const ServiceProfile& profile, std::wstring_view name) {
    const std::wstring wanted = text::Upper(name);
    return std::any_of(profile.ZCSProfile.begin(), profile.ZCSProfile.end(),
                       [&wanted](const std::wstring& attached) { return text::Upper(attached) == wanted; });
}

void AttachCsProfile(ServiceProfile& profile, std::wstring name) {
    const CsProfileSettings defaults;
    const size_t index = profile.ZCSProfile.size();
    profile.ZCSProfile.push_back(std::move(name));
    VisitLists([&](auto list, auto setting) {
        auto& entries = profile.*list;
        if (entries.size() < index) entries.resize(index, defaults.*setting);
        entries.insert(At(entries, index), defaults.*setting);
    });
}

void DetachCsProfile(ServiceProfile& profile, size_t index) {
    profile.ZCSProfile.erase(At(profile.ZCSProfile, index));
    VisitLists([&](auto list, auto) {
        auto& entries = profile.*list;
        if (index < entries.size()) entries.erase(At(entries, index));
    });
}

}  // namespace config
