#include "config/Load.h"

#include <stdexcept>

#include "config/FieldReader.h"
#include "config/KeyReports.h"
#include "config/LoadCsProfiles.h"
#include "config/RedoRecord.h"
#include "config/RegistryLayout.h"
#include "config/RuleOrder.h"

namespace config {
namespace {

class Loader {
  public:
    Loader(RegistryStore& store, const errors::ErrorReporter& reporter, const ui::Dialog* owner)
        : store_(store),
          reporter_(reporter),
          report_(reporter, owner),
          owner_(owner) {}

    std::optional<Configuration> Load();

  private:
    bool Open(const std::wstring& path) {
        return report_.Opened(store_.Open(ServiceHive, path), ServiceHive, path);
    }
    bool Create(const std::wstring& path) {
        return report_.Opened(store_.CreateMachineKey(path), ServiceHive, path);
    }
    bool Search(const std::wstring& path, std::vector<std::wstring>& names) {
        return report_.Searched(store_.EnumerateSubkeys(names), ServiceHive, path);
    }

    bool MakeFirstConfiguration(const std::vector<crypto::CsProfile>& csProfiles);
    bool CreateFirstProfile(const std::vector<crypto::CsProfile>& csProfiles);
    void WriteFirstProfile();
    bool TakeBackFirstProfile();
    void ReadSettings(GlobalSettings& settings);
    bool LoadProfile(ServiceProfile& profile);
    bool LoadRules(const std::wstring& rulesPath, std::vector<Rule>& rules);
    bool LoadRule(const std::wstring& rulePath, Rule& rule);
    bool LoadSignerLists(const std::wstring& rulePath, Rule& rule);

    RegistryStore& store_;
    const errors::ErrorReporter& reporter_;
    const KeyReports report_;
    const ui::Dialog* owner_;
    bool lacksCsProfile_ = false;  // to name in the first profile
};

constexpr wchar_t FirstProfile[] = L"default";
const std::wstring firstProfilePath = std::wstring(ServiceRoot) + L"\\" + FirstProfile;

std::optional<Configuration> Loader::Load() {
    Configuration configuration;
    if (!LoadCsProfiles(store_, reporter_, owner_, configuration.CsProfiles)) return std::nullopt;
    std::vector<std::wstring> profileNames;
    if (!Create(ServiceRoot) || !Search(ServiceRoot, profileNames)) return std::nullopt;
    if (profileNames.empty()) {
        profileNames = {FirstProfile};
        if (!MakeFirstConfiguration(configuration.CsProfiles)) return std::nullopt;
    }
    ReadSettings(configuration.Settings);
    for (std::wstring& name : profileNames) {
        ServiceProfile profile;
        profile.Name = std::move(name);
        if (!LoadProfile(profile)) return std::nullopt;
        configuration.Profiles.push_back(std::move(profile));
    }
    if (!report_.Opened(store_.Close(), ServiceHive, ServiceRoot)) return std::nullopt;
    return configuration;
}

bool Loader::MakeFirstConfiguration(const std::vector<crypto::CsProfile>& csProfiles) {
    RedoRecord record(store_, reporter_, owner_);
    // An unfinished save that the user has put off is offered again should this start fail; what a first run
    // has made until then is in its way.
    const bool putOff = record.Find(errors::ReportMode::Silent) == RedoRecord::State::Whole;
    const auto firstRun = [this, &csProfiles](RegistryStore& planned) {
        Loader planner(planned, reporter_, owner_);
        static_cast<void>(planner.Open(ServiceRoot) && planner.CreateFirstProfile(csProfiles));
    };
    if (!(putOff ? record.KeepBefore(DeletionOf(FirstProfile))
                 : record.Keep(PlannedChanges(store_, firstRun))))
        return false;
    const size_t failures = reporter_.Count();
    const bool made = CreateFirstProfile(csProfiles);
    if (!putOff && reporter_.Count() == failures) record.SaveHasEnded();
    if (lacksCsProfile_)
        throw std::invalid_argument(
            "There is no CS profile: set one up with the tools of the library and start the program anew.");
    return made;
}

// False: the first service profile has no CS profile that it could name, or a key cannot be made. The half of
// the profile that is there is taken back in the one case, so that the next start is a first one again.
bool Loader::CreateFirstProfile(const std::vector<crypto::CsProfile>& csProfiles) {
    const errors::ReportContext context{owner_};
    const GlobalSettings defaults;
    store_.WriteString(L"LogPath", {}, context);
    store_.WriteInteger(L"Log filesize", defaults.LogFilesize, context);
    store_.WriteString(L"LDAP", {}, context);
    if (!Create(firstProfilePath)) return false;
    WriteFirstProfile();
    if (csProfiles.empty()) return TakeBackFirstProfile();
    store_.WriteTextList(L"ZCSProfile", {csProfiles.front().ProfileName}, owner_);
    return Create(firstProfilePath + L"\\" + RulesKey) && Open(ServiceRoot);
}

void Loader::WriteFirstProfile() {
    const errors::ReportContext context{owner_};
    for (const wchar_t* name :
         {L"AutoUseTSP", L"AutoVerifyTSP", L"NotAddCert", L"NotCopyToLocal", L"NotLoadCrl"})
        store_.WriteTextList(name, {L"0"}, owner_);
    store_.WriteTextList(L"CrlUpdatePeriod", {}, owner_);  // loading makes it 1
    store_.WriteTextList(L"NoTSPisError", {L"0"}, owner_);
    store_.WriteTextList(L"NotUseLDAP", {L"1"}, owner_);
    store_.WriteTextList(L"ServerTSP", {L"0"}, owner_);
    store_.WriteTextList(L"UseAIA", {L"0"}, owner_);
    for (const wchar_t* name : {L"Verify File", L"Verify x file", L"Verify det file", L"Verify resign file"})
        store_.WriteInteger(name, 0, context);
    store_.WriteInteger(L"Handler timeout", ServiceProfile().HandlerTimeout, context);
    store_.WriteInteger(L"Rename conf files", 0, context);
}

bool Loader::TakeBackFirstProfile() {
    lacksCsProfile_ = true;
    static_cast<void>(Open(ServiceRoot) &&
                      report_.Deleted(store_.DeleteKeyTree(FirstProfile), ServiceHive, firstProfilePath));
    return false;
}

void Loader::ReadSettings(GlobalSettings& settings) {
    FieldReader reader(store_, owner_);
    VisitSettings(settings, reader);
    if (settings.LogFilesize < SmallestLogFilesize) settings.LogFilesize = SmallestLogFilesize;
}

bool Loader::LoadProfile(ServiceProfile& profile) {
    const std::wstring path = std::wstring(ServiceRoot) + L"\\" + profile.Name;
    if (!Open(path)) return false;
    FieldReader reader(store_, owner_);
    VisitProfile(profile, reader);
    if (profile.CrlUpdatePeriod.size() < profile.NotLoadCrl.size())
        profile.CrlUpdatePeriod.resize(profile.NotLoadCrl.size(), 1);
    return LoadRules(path + L"\\" + RulesKey, profile.Rules);
}

bool Loader::LoadRules(const std::wstring& rulesPath, std::vector<Rule>& rules) {
    std::vector<std::wstring> keys;
    if (!Open(rulesPath) || !Search(rulesPath, keys)) return false;
    OrderRuleKeys(keys);
    rules.reserve(keys.size());
    for (const std::wstring& key : keys)
        if (!LoadRule(rulesPath + L"\\" + key, rules.emplace_back())) return false;
    return true;
}

// Where rules of the older format kept what now has a field of its own.
void MoveOlderFields(Rule& rule) {
    if (rule.Certificates.empty()) return;
    if (rule.Operation == L"RESG" && rule.ResignProfile.empty())
        rule.ResignProfile = rule.Certificates.front();
    if (rule.Operation == L"MOVE" && rule.PathOut2.empty()) rule.PathOut2 = rule.Certificates.front();
}

bool Loader::LoadRule(const std::wstring& rulePath, Rule& rule) {
    if (!Open(rulePath)) return false;
    FieldReader reader(store_, owner_);
    VisitRule(rule, reader);
    GiveArchiveKind(rule);
    reader.Certificates(L"C", rule.Certificates);
    MoveOlderFields(rule);
    return LoadSignerLists(rulePath, rule);
}

bool Loader::LoadSignerLists(const std::wstring& rulePath, Rule& rule) {
    std::vector<std::wstring> names;
    if (!Search(rulePath, names)) return false;
    for (std::wstring& name : names) {
        if (!Open(rulePath + L"\\" + name)) return false;
        SignerListEntry& list = rule.SignerLists.emplace_back();
        list.Name = std::move(name);
        FieldReader reader(store_, owner_);
        reader.Numbered(L"Signer Num", L"S", list.Signers);
    }
    return true;
}

}  // namespace

std::optional<Configuration> LoadConfiguration(RegistryStore& store, const errors::ErrorReporter& reporter,
                                               const ui::Dialog* owner) {
    return Loader(store, reporter, owner).Load();
}

}  // namespace config
