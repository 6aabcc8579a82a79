// How the model loads and saves.
#include <algorithm>

#include "tests/model/Configuration.h"

namespace tests::model {
namespace {

const Texts ruleTexts{L"Operation", L"Path In",    L"Path Out",      L"Path Out 2",  L"Path Error",
                      L"DelExt",    L"AddExt",     L"Folders",       L"Copyfolders", L"ArchName",
                      L"ExecName",  L"ZCSProfile", L"ResignProfile", L"Descryption"};
const Texts ruleNumbers{L"ArchCount", L"ArchSize",      L"ArchTimeout",    L"ExecTimeout",
                        L"Is on",     L"In format det", L"Out format det", L"ZipFile"};
const std::map<std::wstring, std::wstring> extensions{
    {L"SigExt", L"p7s"},  {L"DsigExt", L"p7d"},       {L"EncExt", L"p7e"},        {L"B64Ext", L"b64"},
    {L"HashExt", L"hsh"}, {L"VerifyFileExt", L"vrf"}, {L"ZIPArchiveExt", L"zip"}, {L"GZIPArchiveExt", L"gz"}};
const Texts profileLists{L"ServerTSP",  L"ZCSProfile",    L"NotUseLDAP",     L"NotCopyToLocal",
                         L"AutoUseTSP", L"AutoVerifyTSP", L"NoTSPisError",   L"UseAIA",
                         L"NotAddCert", L"NotLoadCrl",    L"CrlUpdatePeriod"};
const std::map<std::wstring, int32_t> profileNumbers{{L"Verify File", 0},      {L"Verify x file", 0},
                                                     {L"Verify det file", 0},  {L"Verify resign file", 0},
                                                     {L"Handler timeout", 15}, {L"Rename conf files", 0}};

std::wstring Numbered(const wchar_t* name, size_t number) {
    return name + std::to_wstring(number);
}

Texts LoadNumbered(const Tree& registry, const std::wstring& path, const wchar_t* count, const wchar_t* name) {
    Texts entries;
    const int32_t number = registry.Get<int32_t>(path, count, 0);
    for (int32_t i = 0; i < number; ++i)
        entries.push_back(registry.Get<std::wstring>(path, Numbered(name, static_cast<size_t>(i)), L""));
    return entries;
}

void SaveNumbered(Values& key, const wchar_t* count, const wchar_t* name, const Texts& entries) {
    key[count] = static_cast<int32_t>(entries.size());
    for (size_t i = 0; i < entries.size(); ++i) key[Numbered(name, i)] = entries[i];
}

Rule LoadRule(const Tree& registry, const std::wstring& path) {
    Rule rule;
    for (auto& [name, text] : rule.text) text = registry.Get<std::wstring>(path, name, L"");
    for (auto& [name, number] : rule.number) number = registry.Get<int32_t>(path, name, 0);
    rule.masks = LoadNumbered(registry, path, L"Mask num", L"M");
    if (rule.masks.empty()) rule.masks = {registry.Get<std::wstring>(path, L"Mask", L"")};
    rule.recipients = LoadNumbered(registry, path, L"Ext num", L"C");
    int32_t& archive = rule.number[L"ZipFile"];
    if (IsOneOf(rule.Operation(), L"ARCH UNAR") && archive == 0) archive = 1;
    for (const auto& [operation, name] : {std::pair(L"RESG", L"ResignProfile"), {L"MOVE", L"Path Out 2"}})
        if (rule.Is(operation) && rule.text[name].empty() && !rule.recipients.empty())
            rule.text[name] = rule.recipients[0];
    for (const std::wstring& list : registry.Subkeys(path))
        rule.signerLists.emplace_back(list, LoadNumbered(registry, path + L"\\" + list, L"Signer Num", L"S"));
    return rule;
}

// By their numbers, as far as the program's few passes get.
Texts RuleKeys(const Tree& registry, const std::wstring& path) {
    Texts keys = registry.Subkeys(path);
    const auto number = [](const std::wstring& key) { return std::stoi(key.substr(key.rfind(L' '))); };
    for (size_t pass = 2; pass < keys.size(); ++pass)
        for (size_t i = 0; i + 1 < keys.size(); ++i)
            if (number(keys[i]) > number(keys[i + 1])) std::swap(keys[i], keys[i + 1]);
    return keys;
}

Profile LoadProfile(const Tree& registry, const std::wstring& name) {
    Profile profile(name);
    for (const std::wstring& list : profileLists) profile.values[list] = registry.Get<Texts>(name, list, {});
    auto& periods = std::get<Texts>(profile.values[L"CrlUpdatePeriod"]);
    periods.resize(std::max(periods.size(), std::get<Texts>(profile.values[L"NotLoadCrl"]).size()), L"1");
    for (const auto& [number, missing] : profileNumbers)
        profile.values[number] = registry.Get<int32_t>(name, number, missing);
    const std::wstring rules = name + L"\\rules";
    for (const std::wstring& key : RuleKeys(registry, rules))
        profile.rules.push_back(LoadRule(registry, rules + L"\\" + key));
    return profile;
}

void CreateFirstProfile(Tree& registry) {
    registry.Key(L"")[L"LogPath"] = L"";
    registry.Key(L"")[L"Log filesize"] = 4000;
    registry.Key(L"")[L"LDAP"] = L"";
    Values& key = registry.Key(L"default");
    for (const std::wstring& list : profileLists) key[list] = Texts{L"0"};
    key[L"CrlUpdatePeriod"] = Texts{};
    key[L"NotUseLDAP"] = Texts{L"1"};
    key[L"ZCSProfile"] = Texts{StoreProfileFolders().front().first};
    for (const auto& [number, first] : profileNumbers) key[number] = first;
    registry.Key(L"default\\rules");
}

void SaveStores(Values& key, const std::wstring& csProfile, const wchar_t* personal, const wchar_t* local) {
    for (const auto& [name, folder] : StoreProfileFolders()) {
        if (name != csProfile) continue;
        key[personal] = L"pse://signed/" + folder + L"\\local.pse";
        key[local] = L"file://" + folder + L"\\local.gdbm";
    }
}

void SaveRule(const Rule& rule, const std::wstring& path, Tree& registry) {
    Values& key = registry.Key(path);
    for (const auto& [name, text] : rule.text) key[name] = text;
    for (const auto& [name, number] : rule.number) key[name] = number;
    SaveNumbered(key, L"Mask num", L"M", rule.masks);
    SaveNumbered(key, L"Ext num", L"C", rule.recipients);
    SaveStores(key, rule.text.at(L"ZCSProfile"), L"PSE", L"LOCAL");
    if (rule.Is(L"RESG")) SaveStores(key, rule.text.at(L"ResignProfile"), L"PSE2", L"LOCAL2");
    for (const auto& [name, signers] : rule.signerLists)
        SaveNumbered(registry.Key(path + L"\\" + name), L"Signer Num", L"S", signers);
}

void SaveProfile(const Profile& profile, Tree& registry) {
    for (const auto& [name, value] : profile.values) registry.Key(profile.name)[name] = value;
    const std::wstring rules = profile.name + L"\\rules";
    registry.Erase(rules);
    registry.Key(rules);
    for (size_t number = 0; number < profile.rules.size(); ++number)
        if (!profile.rules[number].Operation().empty())
            SaveRule(profile.rules[number], rules + L"\\Rule " + std::to_wstring(number), registry);
}

}  // namespace

Rule::Rule() {
    for (const std::wstring& name : ruleTexts) text[name];
    for (const std::wstring& name : ruleNumbers) number[name] = 0;
}

Profile::Profile(std::wstring nameOfProfile) : name(std::move(nameOfProfile)) {
    for (const std::wstring& list : profileLists) values[list] = Texts{};
    for (const auto& [number, first] : profileNumbers) values[number] = first;
}

Configuration Load(Tree& registry) {
    if (registry.Subkeys(L"").empty()) CreateFirstProfile(registry);
    Configuration configuration;
    Values& settings = configuration.settings;
    for (const auto& [name, missing] : extensions) settings[name] = registry.Get<std::wstring>(L"", name, missing);
    settings[L"ExtExt"] = registry.Get<Texts>(L"", L"ExtExt", {});
    settings[L"LogPath"] = registry.Get<std::wstring>(L"", L"LogPath", L"");
    settings[L"Log filesize"] = std::max(400, registry.Get<int32_t>(L"", L"Log filesize", 4000));
    for (const std::wstring& name : registry.Subkeys(L""))
        configuration.profiles.push_back(LoadProfile(registry, name));
    return configuration;
}

void Save(const Configuration& configuration, Tree& registry) {
    for (const std::wstring& name : registry.Subkeys(L"")) {
        const auto& profiles = configuration.profiles;
        if (std::none_of(profiles.begin(), profiles.end(), [&](const auto& p) { return p.name == name; }))
            registry.Erase(name);
    }
    for (const auto& [name, value] : configuration.settings) registry.Key(L"")[name] = value;
    registry.Key(L"")[L"LDAP"] = L"";
    for (const Profile& profile : configuration.profiles) SaveProfile(profile, registry);
}

// The file is in the western code page, joins the entries of a list with semicolons, and writes "0" for a
// list without any.
Rule Exchanged(const Rule& rule) {
    const auto written = [](std::wstring text) {
        for (wchar_t& unit : text)
            if (unit > 0xFF) unit = L'?';
        return text;
    };
    const auto list = [&](const Texts& entries) {
        Texts pieces;
        for (const std::wstring& entry : entries)
            if (!entry.empty() && entries != Texts{L"0"}) pieces.push_back(written(entry));
        return pieces;
    };
    Rule exchanged = rule;
    for (auto& [name, text] : exchanged.text) text = written(text);
    exchanged.masks = list(rule.masks);
    exchanged.recipients = list(rule.recipients);
    for (auto& [name, signers] : exchanged.signerLists)
        for (std::wstring& signer : signers) signer = written(signer);
    return exchanged;
}

}  // namespace tests::model
