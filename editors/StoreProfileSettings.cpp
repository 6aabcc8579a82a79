#include "editors/StoreProfileSettings.h"

#include <algorithm>

#include "text/Numbers.h"
#include "text/Upper.h"

namespace editors {
namespace {

// Every list that is parallel to the names, with the setting that its entries are.
template <class Visitor>
void VisitLists(const Visitor& visit) {
    using Profile = config::ServiceProfile;
    using Settings = StoreProfileSettings;
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

StoreProfileSettings SettingsAt(const config::ServiceProfile& profile, size_t index) {
    StoreProfileSettings settings;
    VisitLists([&](auto list, auto setting) {
        const auto& entries = profile.*list;
        if (index < entries.size()) settings.*setting = entries[index];
    });
    return settings;
}

void PutSettings(config::ServiceProfile& profile, size_t index, const StoreProfileSettings& settings) {
    const StoreProfileSettings defaults;
    VisitLists([&](auto list, auto setting) {
        auto& entries = profile.*list;
        if (index >= entries.size()) {
            if (settings.*setting == defaults.*setting) return;
            entries.resize(index + 1, defaults.*setting);
        }
        entries[index] = settings.*setting;
    });
}

bool IsAttached(const config::ServiceProfile& profile, std::wstring_view name) {
    const std::wstring wanted = text::Upper(name);
    return std::any_of(profile.ZCSProfile.begin(), profile.ZCSProfile.end(),
                       [&wanted](const std::wstring& attached) { return text::Upper(attached) == wanted; });
}

void AttachStoreProfile(config::ServiceProfile& profile, std::wstring name) {
    const StoreProfileSettings defaults;
    const size_t index = profile.ZCSProfile.size();
    profile.ZCSProfile.push_back(std::move(name));
    VisitLists([&](auto list, auto setting) {
        auto& entries = profile.*list;
        if (entries.size() < index) entries.resize(index, defaults.*setting);
        entries.insert(At(entries, index), defaults.*setting);
    });
}

void DetachStoreProfile(config::ServiceProfile& profile, size_t index) {
    profile.ZCSProfile.erase(At(profile.ZCSProfile, index));
    VisitLists([&](auto list, auto) {
        auto& entries = profile.*list;
        if (index < entries.size()) entries.erase(At(entries, index));
    });
}

std::wstring RulesWithCertificatesOf(std::span<const config::Rule> rules, std::wstring_view storeProfile) {
    std::wstring positions;
    for (size_t i = 0; i < rules.size(); ++i) {
        const config::Rule& rule = rules[i];
        if (rule.ZCSProfile != storeProfile || (rule.Certificates.empty() && rule.SignerLists.empty()))
            continue;
        if (!positions.empty()) positions += L',';
        positions += text::Decimal(static_cast<int64_t>(i) + 1);
    }
    return positions;
}

}  // namespace editors
