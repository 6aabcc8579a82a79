#include "tests/model/ProfileForm.h"

#include <algorithm>

namespace tests::model {
namespace {

// The lists beside the names of the CS profiles, and what an entry is that is not there.
const std::map<std::wstring, std::wstring> missingSettings{
    {L"ServerTSP", L"0"},     {L"NotUseLDAP", L"1"},     {L"NotCopyToLocal", L"0"}, {L"AutoUseTSP", L"0"},
    {L"AutoVerifyTSP", L"0"}, {L"NoTSPisError", L"0"},   {L"UseAIA", L"0"},         {L"NotAddCert", L"0"},
    {L"NotLoadCrl", L"0"},    {L"CrlUpdatePeriod", L"1"}};
const Texts optionNames{L"Verify File", L"Verify x file", L"Verify det file", L"Verify resign file",
                        L"Rename conf files"};

bool IsText(const std::wstring& list) {
    return list == L"ServerTSP" || list == L"CrlUpdatePeriod";
}

int32_t Number(const std::wstring& digits) {
    int64_t number = 0;
    for (const wchar_t digit : digits) number = std::min<int64_t>(number * 10 + (digit - L'0'), INT32_MAX);
    return static_cast<int32_t>(number);
}

bool Contains(const Texts& texts, const std::wstring& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

ProfileForm::ProfileForm(const Profile& profile)
    : name(profile.name),
      timeout(std::to_wstring(std::get<int32_t>(profile.values.at(L"Handler timeout")))),
      profile_(profile) {
    for (const std::wstring& option : optionNames) options[option] = std::get<int32_t>(profile.values.at(option)) != 0;
    if (IsNew()) {
        Attach(StoreProfileFolders().front().first);
    } else {
        Show(CsProfiles().empty() ? std::nullopt : std::optional<size_t>(0));
    }
}

std::wstring ProfileForm::Entry(const std::wstring& list, size_t index) const {
    const auto& entries = std::get<Texts>(profile_.values.at(list));
    return index < entries.size() ? entries[index] : missingSettings.at(list);
}

void ProfileForm::Show(std::optional<size_t> index) {
    shown = index;
    const auto entry = [&](const std::wstring& list) { return index ? Entry(list, *index) : missingSettings.at(list); };
    for (const auto& [list, missing] : missingSettings)
        if (!IsText(list)) settings[list] = entry(list) != L"0";
    server = entry(L"ServerTSP");
    period = entry(L"CrlUpdatePeriod");
}

// A box that already said so leaves the number as it is. Lists that are too short grow only for what is not
// as if it were missing.
void ProfileForm::Keep() {
    if (!shown) return;
    for (const auto& [list, missing] : missingSettings) {
        std::wstring kept = Entry(list, *shown);
        if (!IsText(list) && settings.at(list) != (kept != L"0")) kept = settings.at(list) ? L"1" : L"0";
        if (list == L"ServerTSP") kept = server.empty() ? L"0" : server;
        if (list == L"CrlUpdatePeriod") kept = std::to_wstring(Number(period));
        Texts& entries = List(list);
        if (*shown >= entries.size() && kept == missing) continue;
        entries.resize(std::max(entries.size(), *shown + 1), missing);
        entries[*shown] = kept;
    }
}

bool ProfileForm::LacksServer() const {
    return settings.at(L"AutoUseTSP") && (server.empty() || server == L"0");
}

bool ProfileForm::IsAttached(const std::wstring& csProfile) const {
    return std::any_of(CsProfiles().begin(), CsProfiles().end(),
                       [&](const std::wstring& attached) { return Capitals(attached) == Capitals(csProfile); });
}

std::wstring ProfileForm::DeleteQuestion() const {
    std::wstring rules;
    for (size_t i = 0; i < profile_.rules.size(); ++i) {
        const Rule& rule = profile_.rules[i];
        const bool hasCertificates = !rule.recipients.empty() || !rule.signerLists.empty();
        if (rule.text.at(L"ZCSProfile") == ShownName() && hasCertificates)
            rules += (rules.empty() ? L"" : L",") + std::to_wstring(i + 1);
    }
    const std::wstring question = L"Delete CS profile '" + ShownName() + L"' from list?";
    if (rules.empty()) return question;
    return L"Rule(s) '" + rules + L"' of profile '" + profile_.name + L"' are using sertificates of CS profile '" +
           ShownName() + L"'.\r\nValidation of these rules will be nessesary for proper work.\r\n" + question;
}

void ProfileForm::SwitchSetting(const std::wstring& setting) {
    bool& isOn = settings.at(setting);
    isOn = !isOn;
    if (setting == L"AutoUseTSP" && !isOn) server = L"0";
    if (setting == L"AutoVerifyTSP" && !isOn) settings[L"NoTSPisError"] = false;
}

void ProfileForm::PutPeriod(int64_t hours) {
    period = std::to_wstring(std::clamp<int64_t>(hours, 0, 8760));
}

void ProfileForm::ShowStoreProfile(size_t index) {
    if (index == shown) return;
    Keep();
    Show(index);
}

void ProfileForm::Attach(const std::wstring& csProfile) {
    Keep();
    const size_t index = CsProfiles().size();
    List(L"ZCSProfile").push_back(csProfile);
    for (const auto& [list, missing] : missingSettings) {
        Texts& entries = List(list);
        entries.resize(std::max(entries.size(), index), missing);
        entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(index), missing);
    }
    Show(index);
}

void ProfileForm::Detach() {
    const size_t index = *shown;
    if (!Contains(removed_, ShownName())) removed_.push_back(ShownName());
    List(L"ZCSProfile").erase(List(L"ZCSProfile").begin() + static_cast<std::ptrdiff_t>(index));
    for (const auto& [list, missing] : missingSettings)
        if (index < List(list).size()) List(list).erase(List(list).begin() + static_cast<std::ptrdiff_t>(index));
    Show(0);
}

std::optional<std::wstring> ProfileForm::FirstRefusal(const Texts& names) const {
    if (name.empty()) return L"Please, type a name for profile.";
    if (name.size() >= 16) return L"Profile name cannot be longer than 15 symbols.";
    if (name == std::wstring(name.size(), L' ')) return L"Profile name cannot consist from spaces only.";
    if (Number(timeout) == 0) return L"Please, choose handler timeout.";
    if (name != profile_.name && Contains(names, name)) return L"Profile '" + name + L"' allready exists.";
    if (LacksServer()) return L"Please, type TSP data.";
    return std::nullopt;
}

Profile ProfileForm::Finished() const {
    ProfileForm form = *this;
    form.Keep();
    Profile profile = form.profile_;
    profile.name = name;
    profile.values[L"Handler timeout"] = Number(timeout);
    for (const auto& [option, isOn] : options) {
        auto& number = std::get<int32_t>(profile.values[option]);
        if (isOn != (number != 0)) number = isOn ? 1 : 0;
    }
    if (CsProfiles().empty()) return profile;
    for (Rule& rule : profile.rules)
        for (const wchar_t* used : {L"ZCSProfile", L"ResignProfile"})
            if (Contains(removed_, rule.text[used])) rule.text[used] = CsProfiles().front();
    return profile;
}

}  // namespace tests::model
