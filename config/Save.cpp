#include "config/Save.h"

#include <set>

#include "config/FieldWriter.h"
#include "config/KeyReports.h"
#include "config/RedoRecord.h"
#include "config/RegistryLayout.h"
#include "text/Format.h"

namespace config {
namespace {

namespace code = platform::code;

class Saver {
  public:
    Saver(RegistryStore& store, const errors::ErrorReporter& reporter, const ui::Dialog* owner,
          const Configuration& configuration)
        : store_(store),
          reporter_(reporter),
          report_(reporter, owner),
          owner_(owner),
          configuration_(configuration) {}

    bool Save();

  private:
    struct Found {
        std::wstring ldap;
        std::vector<std::wstring> profiles;  // the names of their keys
    };
    bool Look(Found& found);
    Bytes ChangesFor(const Found& found) const;
    bool Change(const Found& found);

    bool Open(const std::wstring& path) {
        return report_.Opened(store_.Open(ServiceHive, path), ServiceHive, path);
    }
    bool Create(const std::wstring& path) {
        return report_.Opened(store_.CreateMachineKey(path), ServiceHive, path);
    }

    bool ReadLdap(std::wstring& ldap);
    bool DeleteRemovedProfiles(const std::vector<std::wstring>& existing);
    void WriteSettings(const std::wstring& ldap);
    void CreateNewProfiles(const std::vector<std::wstring>& existing);
    bool WriteProfile(const ServiceProfile& profile);
    bool RenewRulesKey(const std::wstring& profilePath);
    void WriteRules(const std::wstring& rulesPath, const std::vector<Rule>& rules);
    bool WriteRule(const std::wstring& rulePath, const Rule& rule);
    void WriteStores(const std::wstring& csProfile, const wchar_t* personalName, const wchar_t* localName);
    void WriteSignerLists(const std::wstring& rulePath, const Rule& rule);

    RegistryStore& store_;
    const errors::ErrorReporter& reporter_;
    const KeyReports report_;
    const ui::Dialog* owner_;
    const Configuration& configuration_;
};

std::wstring ProfilePath(const ServiceProfile& profile) {
    return std::wstring(ServiceRoot) + L"\\" + profile.Name;
}

bool Saver::Save() {
    Found found;
    if (!Look(found)) return false;
    RedoRecord record(store_, reporter_, owner_);
    if (!record.Keep(ChangesFor(found))) return false;
    const size_t failures = reporter_.Count();
    const bool saved = Change(found);
    if (reporter_.Count() == failures) record.SaveHasEnded();
    return saved;
}

bool Saver::Look(Found& found) {
    return ReadLdap(found.ldap) && Open(ServiceRoot) &&
           report_.Searched(store_.EnumerateSubkeys(found.profiles), ServiceHive, ServiceRoot);
}

Bytes Saver::ChangesFor(const Found& found) const {
    return PlannedChanges(store_, [this, &found](RegistryStore& planned) {
        Saver planner(planned, reporter_, owner_, configuration_);
        static_cast<void>(planner.Open(ServiceRoot));
        static_cast<void>(planner.Change(found));
    });
}

bool Saver::Change(const Found& found) {
    if (!DeleteRemovedProfiles(found.profiles)) return false;
    WriteSettings(found.ldap);
    CreateNewProfiles(found.profiles);
    for (const ServiceProfile& profile : configuration_.Profiles)
        if (!WriteProfile(profile)) break;
    static_cast<void>(report_.Opened(store_.Close(), ServiceHive, ServiceRoot));
    return true;
}

// Where the library finds its LDAP directory; the service is told by every save.
bool Saver::ReadLdap(std::wstring& ldap) {
    const platform::Win32Code result = store_.Open(LibraryHive, LdapStore);
    if (result == code::FileNotFound) return true;
    if (!report_.Opened(result, LibraryHive, LdapStore)) return false;
    store_.ReadString(L"name", ldap, {.owner = owner_});
    return true;
}

bool Saver::DeleteRemovedProfiles(const std::vector<std::wstring>& existing) {
    std::set<std::wstring> kept;
    for (const ServiceProfile& profile : configuration_.Profiles) kept.insert(profile.Name);
    for (const std::wstring& name : existing)
        if (!kept.contains(name) && !report_.Deleted(store_.DeleteKeyTree(name), ServiceHive, ServiceRoot))
            return false;
    return true;
}

void Saver::WriteSettings(const std::wstring& ldap) {
    FieldWriter writer(store_, owner_);
    VisitSettings(configuration_.Settings, writer);
    writer.Text(L"LDAP", ldap);
}

void Saver::CreateNewProfiles(const std::vector<std::wstring>& existing) {
    const std::set<std::wstring> known(existing.begin(), existing.end());
    for (const ServiceProfile& profile : configuration_.Profiles)
        if (!known.contains(profile.Name) && Create(ProfilePath(profile)))
            static_cast<void>(Open(ServiceRoot));
}

// False: this profile and those behind it stay unwritten.
bool Saver::WriteProfile(const ServiceProfile& profile) {
    const std::wstring path = ProfilePath(profile);
    if (!Open(path)) return false;
    FieldWriter writer(store_, owner_);
    VisitProfile(profile, writer);
    if (!RenewRulesKey(path)) return false;
    WriteRules(path + L"\\" + RulesKey, profile.Rules);
    static_cast<void>(Open(ServiceRoot));
    return true;
}

bool Saver::RenewRulesKey(const std::wstring& profilePath) {
    const std::wstring rulesPath = profilePath + L"\\" + RulesKey;
    const platform::Win32Code result = store_.DeleteKeyTree(RulesKey);
    if (result != code::FileNotFound && !report_.Deleted(result, ServiceHive, rulesPath)) return false;
    return Create(rulesPath);
}

void Saver::WriteRules(const std::wstring& rulesPath, const std::vector<Rule>& rules) {
    for (size_t number = 0; number < rules.size(); ++number) {
        if (rules[number].Operation.empty()) continue;  // unfinished; its number stays unused
        if (!WriteRule(rulesPath + text::Format(L"\\Rule %d", number), rules[number])) return;
    }
}

bool Saver::WriteRule(const std::wstring& rulePath, const Rule& rule) {
    if (!Create(rulePath)) return false;
    FieldWriter writer(store_, owner_);
    VisitRule(rule, writer);
    WriteStores(rule.ZCSProfile, L"PSE", L"LOCAL");
    if (rule.Operation == L"RESG") WriteStores(rule.ResignProfile, L"PSE2", L"LOCAL2");
    writer.Certificates(L"C", rule.Certificates);
    WriteSignerLists(rulePath, rule);
    return true;
}

// Several store profiles can carry the same name: the values of the last one stay.
void Saver::WriteStores(const std::wstring& csProfile, const wchar_t* personalName,
                        const wchar_t* localName) {
    FieldWriter writer(store_, owner_);
    for (const crypto::CsProfile& profile : configuration_.CsProfiles) {
        if (profile.ProfileName != csProfile) continue;
        writer.Text(personalName, profile.Store0);
        writer.Text(localName, profile.Store1);
    }
}

void Saver::WriteSignerLists(const std::wstring& rulePath, const Rule& rule) {
    for (const SignerListEntry& list : rule.SignerLists) {
        if (!Create(rulePath + L"\\" + list.Name)) return;
        FieldWriter writer(store_, owner_);
        writer.Numbered(L"Signer Num", L"S", list.Signers);
    }
}

}  // namespace

bool SaveConfiguration(RegistryStore& store, const errors::ErrorReporter& reporter, const ui::Dialog* owner,
                       const Configuration& configuration) {
    return Saver(store, reporter, owner, configuration).Save();
}

}  // namespace config
