#include "config/Load.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "config/Fields.h"
#include "config/RedoRecord.h"
#include "config/RegistryLayout.h"
#include "text/Format.h"
#include "text/Numbers.h"

namespace config {
namespace {

CsProfile ReadCsProfile(RegistryStore& store, const errors::ReportContext& context) {
    CsProfile profile;
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

class Loader {
  public:
    Loader(RegistryStore& store, const ui::Dialog* owner) : store_(store), context_{.owner = owner} {}

    std::optional<Configuration> Load();

  private:
    bool Open(const std::wstring& path) { return store_.Open(ServiceHive, path, context_); }
    bool Create(const std::wstring& path) { return store_.CreateMachineKey(path, context_); }
    bool Search(std::vector<std::wstring>& names) { return store_.EnumerateSubkeys(names, context_); }

    bool MakeFirstConfiguration(const std::vector<CsProfile>& csProfiles);
    bool CreateFirstProfile(const std::vector<CsProfile>& csProfiles);
    void WriteFirstProfile();
    bool TakeBackFirstProfile();
    void ReadSettings(GlobalSettings& settings);
    bool LoadProfile(ServiceProfile& profile);
    bool LoadRules(const std::wstring& rulesPath, std::vector<Rule>& rules);
    bool LoadRule(const std::wstring& rulePath, Rule& rule);
    bool LoadSignerLists(const std::wstring& rulePath, Rule& rule);

    RegistryStore& store_;
    const errors::ReportContext context_;
    bool lacksCsProfile_ = false;  // to name in the first profile
};

constexpr wchar_t FirstProfile[] = L"default";
const std::wstring firstProfilePath = std::wstring(ServiceRoot) + L"\\" + FirstProfile;

std::optional<Configuration> Loader::Load() {
    Configuration configuration;
    auto csProfiles = LoadCsProfiles(store_, context_.owner);
    if (!csProfiles) return std::nullopt;
    configuration.CsProfiles = std::move(*csProfiles);
    std::vector<std::wstring> profileNames;
    if (!Create(ServiceRoot) || !Search(profileNames)) return std::nullopt;
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
    if (!store_.Close(context_, ServiceRoot)) return std::nullopt;
    return configuration;
}

bool Loader::MakeFirstConfiguration(const std::vector<CsProfile>& csProfiles) {
    RedoRecord record(store_, context_.owner);
    // An unfinished save that the user has put off is offered again should this start fail; what a first run
    // has made until then is in its way.
    const bool putOff = record.Find(errors::ReportMode::Silent) == RedoRecord::State::Whole;
    const auto firstRun = [this, &csProfiles](RegistryStore& planned) {
        Loader planner(planned, context_.owner);
        static_cast<void>(planner.Open(ServiceRoot) && planner.CreateFirstProfile(csProfiles));
    };
    if (!(putOff ? record.KeepBefore(DeletionOf(FirstProfile)) : record.Keep(PlannedChanges(store_, firstRun))))
        return false;
    const size_t failures = store_.ReportCount();
    const bool made = CreateFirstProfile(csProfiles);
    if (!putOff && store_.ReportCount() == failures) record.SaveHasEnded();
    if (lacksCsProfile_)
        throw std::invalid_argument(
            "There is no CS profile: set one up with the tools of the library and start the program anew.");
    return made;
}

// False: the first service profile has no CS profile that it could name, or a key cannot be made. The half of
// the profile that is there is taken back in the one case, so that the next start is a first one again.
bool Loader::CreateFirstProfile(const std::vector<CsProfile>& csProfiles) {
    const GlobalSettings defaults;
    store_.WriteString(L"LogPath", {}, context_);
    store_.WriteInteger(L"Log filesize", defaults.LogFilesize, context_);
    store_.WriteString(L"LDAP", {}, context_);
    if (!Create(firstProfilePath)) return false;
    WriteFirstProfile();
    if (csProfiles.empty()) return TakeBackFirstProfile();
    store_.WriteTextList(L"ZCSProfile", {csProfiles.front().ProfileName}, context_);
    return Create(firstProfilePath + L"\\" + RulesKey) && Open(ServiceRoot);
}

void Loader::WriteFirstProfile() {
    for (const wchar_t* name : {L"AutoUseTSP", L"AutoVerifyTSP", L"NotAddCert", L"NotCopyToLocal", L"NotLoadCrl"})
        store_.WriteTextList(name, {L"0"}, context_);
    store_.WriteTextList(L"CrlUpdatePeriod", {}, context_);  // loading makes it 1
    store_.WriteTextList(L"NoTSPisError", {L"0"}, context_);
    store_.WriteTextList(L"NotUseLDAP", {L"1"}, context_);
    store_.WriteTextList(L"ServerTSP", {L"0"}, context_);
    store_.WriteTextList(L"UseAIA", {L"0"}, context_);
    for (const wchar_t* name : {L"Verify File", L"Verify x file", L"Verify det file", L"Verify resign file"})
        store_.WriteInteger(name, 0, context_);
    store_.WriteInteger(L"Handler timeout", ServiceProfile().HandlerTimeout, context_);
    store_.WriteInteger(L"Rename conf files", 0, context_);
}

bool Loader::TakeBackFirstProfile() {
    lacksCsProfile_ = true;
    static_cast<void>(Open(ServiceRoot) && store_.DeleteKeyTree(FirstProfile, context_, firstProfilePath));
    return false;
}

void Loader::ReadSettings(GlobalSettings& settings) {
    FieldReader reader(store_, context_);
    VisitSettings(settings, reader);
    if (settings.LogFilesize < SmallestLogFilesize) settings.LogFilesize = SmallestLogFilesize;
}

bool Loader::LoadProfile(ServiceProfile& profile) {
    const std::wstring path = std::wstring(ServiceRoot) + L"\\" + profile.Name;
    if (!Open(path)) return false;
    FieldReader reader(store_, context_);
    VisitProfile(profile, reader);
    if (profile.CrlUpdatePeriod.size() < profile.NotLoadCrl.size())
        profile.CrlUpdatePeriod.resize(profile.NotLoadCrl.size(), 1);
    return LoadRules(path + L"\\" + RulesKey, profile.Rules);
}

bool Loader::LoadRules(const std::wstring& rulesPath, std::vector<Rule>& rules) {
    std::vector<std::wstring> keys;
    if (!Open(rulesPath) || !Search(keys)) return false;
    OrderRuleKeys(keys);
    rules.reserve(keys.size());
    for (const std::wstring& key : keys)
        if (!LoadRule(rulesPath + L"\\" + key, rules.emplace_back())) return false;
    return true;
}

// Where rules of the older format kept what now has a field of its own.
void MigrateLegacyFields(Rule& rule) {
    if (rule.Certificates.empty()) return;
    if (rule.Operation == L"RESG" && rule.ResignProfile.empty()) rule.ResignProfile = rule.Certificates.front();
    if (rule.Operation == L"MOVE" && rule.PathOut2.empty()) rule.PathOut2 = rule.Certificates.front();
}

bool Loader::LoadRule(const std::wstring& rulePath, Rule& rule) {
    if (!Open(rulePath)) return false;
    FieldReader reader(store_, context_);
    VisitRule(rule, reader);
    SetLegacyArchiveKind(rule);
    MigrateLegacyFields(rule);
    return LoadSignerLists(rulePath, rule);
}

bool Loader::LoadSignerLists(const std::wstring& rulePath, Rule& rule) {
    std::vector<std::wstring> names;
    if (!Search(names)) return false;
    for (std::wstring& name : names) {
        if (!Open(rulePath + L"\\" + name)) return false;
        SignerListEntry& list = rule.SignerLists.emplace_back();
        list.Name = std::move(name);
        FieldReader reader(store_, context_);
        VisitSignerList(list, reader);
    }
    return true;
}

}  // namespace

std::optional<Configuration> LoadConfiguration(RegistryStore& store, const ui::Dialog* owner) {
    return Loader(store, owner).Load();
}

std::optional<std::vector<CsProfile>> LoadCsProfiles(RegistryStore& store, const ui::Dialog* owner) {
    const errors::ReportContext context{.owner = owner};
    std::vector<std::wstring> keys;
    if (!store.Open(LibraryHive, LibraryProfiles, context) || !store.EnumerateSubkeys(keys, context))
        return std::nullopt;
    std::vector<CsProfile> profiles;
    for (const std::wstring& key : keys) {
        if (!store.Open(LibraryHive, std::wstring(LibraryProfiles) + L"\\" + key, context)) return std::nullopt;
        profiles.push_back(ReadCsProfile(store, context));
    }
    return profiles;
}

uint64_t RuleKeyNumber(std::wstring_view name) {
    const size_t blank = name.rfind(L' ');
    return blank == std::wstring_view::npos ? 0 : text::LeadingDigits(name.substr(blank + 1));
}

void OrderRuleKeys(std::vector<std::wstring>& names) {
    if (names.size() < 3) return;
    using Numbered = std::pair<uint64_t, std::wstring>;
    std::vector<Numbered> numbered;
    numbered.reserve(names.size());
    for (std::wstring& name : names) numbered.emplace_back(RuleKeyNumber(name), std::move(name));

    // Each pass carries a name at most one place forward, so only a name that has to come from the last place
    // to the first one falls short. A stable sort and this one exchange give the same in n log n steps.
    const uint64_t last = numbered.back().first;
    const bool lastIsSmallest =
        std::all_of(numbered.begin(), numbered.end() - 1, [last](const Numbered& name) { return name.first > last; });
    std::stable_sort(numbered.begin(), numbered.end(),
                     [](const Numbered& a, const Numbered& b) { return a.first < b.first; });
    if (lastIsSmallest) std::swap(numbered[0], numbered[1]);

    for (size_t i = 0; i < names.size(); ++i) names[i] = std::move(numbered[i].second);
}

}  // namespace config
