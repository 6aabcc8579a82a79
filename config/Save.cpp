#include "config/Save.h"

#include <set>

#include "config/Fields.h"
#include "config/RedoRecord.h"
#include "config/RegistryLayout.h"
#include "text/Format.h"

namespace config {
namespace {

class Saver {
  public:
    Saver(RegistryStore& store, const ui::Dialog* owner, const Configuration& configuration)
        : store_(store),
          context_{.owner = owner},
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

    bool Open(const std::wstring& path) { return store_.Open(ServiceHive, path, context_); }
    bool Create(const std::wstring& path) { return store_.CreateMachineKey(path, context_); }
    FieldWriter Writer() { return {store_, context_, configuration_.CsProfiles}; }

    bool ReadLdap(std::wstring& ldap);
    bool DeleteRemovedProfiles(const std::vector<std::wstring>& existing);
    void WriteSettings(const std::wstring& ldap);
    void CreateNewProfiles(const std::vector<std::wstring>& existing);
    bool WriteProfile(const ServiceProfile& profile);
    bool RenewRulesKey(const std::wstring& profilePath);
    void WriteRules(const std::wstring& rulesPath, const std::vector<Rule>& rules);
    bool WriteRule(const std::wstring& rulePath, const Rule& rule);
    void WriteSignerLists(const std::wstring& rulePath, const Rule& rule);

    RegistryStore& store_;
    const errors::ReportContext context_;
    const Configuration& configuration_;
};

std::wstring ProfilePath(const ServiceProfile& profile) {
    return std::wstring(ServiceRoot) + L"\\" + profile.Name;
}

bool Saver::Save() {
    Found found;
    if (!Look(found)) return false;
    RedoRecord record(store_, context_.owner);
    if (!record.Keep(ChangesFor(found))) return false;
    const size_t failures = store_.ReportCount();
    const bool saved = Change(found);
    if (store_.ReportCount() == failures) record.SaveHasEnded();
    return saved;
}

bool Saver::Look(Found& found) {
    return ReadLdap(found.ldap) && Open(ServiceRoot) && store_.EnumerateSubkeys(found.profiles, context_);
}

Bytes Saver::ChangesFor(const Found& found) const {
    return PlannedChanges(store_, [this, &found](RegistryStore& planned) {
        Saver planner(planned, context_.owner, configuration_);
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
    static_cast<void>(store_.Close(context_, ServiceRoot));
    return true;
}

// Where the library finds its LDAP directory; every save passes it on to the service.
bool Saver::ReadLdap(std::wstring& ldap) {
    const KeyOutcome outcome = store_.OpenIfThere(LibraryHive, LdapStore, context_);
    if (outcome == KeyOutcome::Opened) store_.ReadString(L"name", ldap, context_);
    return outcome != KeyOutcome::Failure;
}

bool Saver::DeleteRemovedProfiles(const std::vector<std::wstring>& existing) {
    std::set<std::wstring> kept;
    for (const ServiceProfile& profile : configuration_.Profiles) kept.insert(profile.Name);
    for (const std::wstring& name : existing)
        if (!kept.contains(name) && !store_.DeleteKeyTree(name, context_, ServiceRoot)) return false;
    return true;
}

void Saver::WriteSettings(const std::wstring& ldap) {
    FieldWriter writer = Writer();
    VisitSettings(configuration_.Settings, writer);
    writer.Text(L"LDAP", ldap);
}

void Saver::CreateNewProfiles(const std::vector<std::wstring>& existing) {
    const std::set<std::wstring> known(existing.begin(), existing.end());
    for (const ServiceProfile& profile : configuration_.Profiles)
        if (!known.contains(profile.Name) && Create(ProfilePath(profile))) static_cast<void>(Open(ServiceRoot));
}

// False: this profile and those after it stay unwritten.
bool Saver::WriteProfile(const ServiceProfile& profile) {
    const std::wstring path = ProfilePath(profile);
    if (!Open(path)) return false;
    FieldWriter writer = Writer();
    VisitProfile(profile, writer);
    if (!RenewRulesKey(path)) return false;
    WriteRules(path + L"\\" + RulesKey, profile.Rules);
    static_cast<void>(Open(ServiceRoot));
    return true;
}

bool Saver::RenewRulesKey(const std::wstring& profilePath) {
    return store_.DeleteKeyTreeIfThere(RulesKey, context_) && Create(profilePath + L"\\" + RulesKey);
}

void Saver::WriteRules(const std::wstring& rulesPath, const std::vector<Rule>& rules) {
    for (size_t number = 0; number < rules.size(); ++number) {
        if (rules[number].Operation.empty()) continue;  // unfinished; its number stays unused
        if (!WriteRule(rulesPath + text::Format(L"\\Rule %d", number), rules[number])) return;
    }
}

bool Saver::WriteRule(const std::wstring& rulePath, const Rule& rule) {
    if (!Create(rulePath)) return false;
    FieldWriter writer = Writer();
    VisitRule(rule, writer);
    WriteSignerLists(rulePath, rule);
    return true;
}

void Saver::WriteSignerLists(const std::wstring& rulePath, const Rule& rule) {
    for (const SignerListEntry& list : rule.SignerLists) {
        if (!Create(rulePath + L"\\" + list.Name)) return;
        FieldWriter writer = Writer();
        VisitSignerList(list, writer);
    }
}

}  // namespace

bool SaveConfiguration(RegistryStore& store, const ui::Dialog* owner, const Configuration& configuration) {
    return Saver(store, owner, configuration).Save();
}

}  // namespace config
