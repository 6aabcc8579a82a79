#include "config/LoadCsProfiles.h"

#include "config/KeyReports.h"
#include "config/RegistryLayout.h"
#include "text/Format.h"

namespace config {
namespace {

crypto::CsProfile ReadCsProfile(RegistryStore& store, const errors::ReportContext& context) {
    crypto::CsProfile profile;
    store.ReadString(L"ProfileName", profile.ProfileName, context);
    store.ReadString(L"store_0", profile.Store0, context);
    store.ReadString(L"store_1", profile.Store1, context);
    if (profile.Store0.empty() || profile.Store1.empty()) {
        std::wstring basePath;
        store.ReadString(L"BasePath", basePath, context);
        profile.Store0 = text::Format(L"pse://signed/%s\\local.pse", basePath);
        profile.Store1 = text::Format(L"file://%s\\local.gdbm", basePath);
    }
    return profile;
}

}  // namespace

bool LoadCsProfiles(RegistryStore& store, const errors::ErrorReporter& reporter, const ui::Dialog* owner,
                    std::vector<crypto::CsProfile>& profiles) {
    const KeyReports report(reporter, owner);
    std::vector<std::wstring> keys;
    if (!report.Opened(store.Open(LibraryHive, LibraryProfiles), LibraryHive, LibraryProfiles)) return false;
    if (!report.Searched(store.EnumerateSubkeys(keys), LibraryHive, LibraryProfiles)) return false;
    for (const std::wstring& key : keys) {
        const std::wstring path = std::wstring(LibraryProfiles) + L"\\" + key;
        if (!report.Opened(store.Open(LibraryHive, path), LibraryHive, path)) return false;
        profiles.push_back(ReadCsProfile(store, {.owner = owner}));
    }
    return true;
}

}  // namespace config
