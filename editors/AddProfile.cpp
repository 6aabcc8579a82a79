#include "editors/AddProfile.h"

#include <algorithm>

#include "errors/MessageBoxes.h"
#include "text/Format.h"
#include "text/Numbers.h"

namespace editors {

CAddCSProfDlg::CAddCSProfDlg(ui::Screen& screen, ui::Dialog* owner, std::vector<std::wstring> profileNames)
    : Dialog(screen, owner, {.size = {200, 50}, .guidePage = L"profiles"}, L"Add CS profile") {
    profiles_.SetItems(std::move(profileNames));
    profiles_.Select(0);
}

void CAddCSProfDlg::OnOK() {
    profileName_ = profiles_.SelectedItem();
    EndDialog(ui::IdOk);
}

CAddProfile::CAddProfile(const config::Services& services, ui::Dialog* owner, config::ServiceProfile profile,
                         const std::vector<config::Rule>& rules, std::vector<std::wstring> profileNames,
                         std::vector<std::wstring> csProfileNames, EditorMemory& memory)
    : Dialog(services.Screen, owner, {.size = {394, 270}, .guidePage = L"profiles"}),
      profile_(std::move(profile)),
      rules_(rules),
      profileNames_(std::move(profileNames)),
      csProfileNames_(std::move(csProfileNames)),
      memory_(memory) {
    csProfiles_.SetName(L"CS profiles");
    tsp_.SetName(L"TSP server");
    AddShortcut({.key = ui::key::Insert}, &csProfiles_, addCsProfile_);
    AddShortcut({.key = ui::key::Delete}, &csProfiles_, deleteCsProfile_);
}

void CAddProfile::OnInitDialog() {
    const bool isNew = profile_.Name.empty();
    SetCaption(isNew ? L"Add profile" : L"Edit profile");
    if (isNew && !csProfileNames_.empty()) config::AttachCsProfile(profile_, csProfileNames_.front());
    LoadControls(profile_);
    name_.SetText(profile_.Name);
    timeout_.SetText(text::Decimal(profile_.HandlerTimeout));
    csProfiles_.Replace(profile_.ZCSProfile);
    ShowCsProfile(0);
}

void CAddProfile::ShowCsProfile(std::optional<size_t> index) {
    csProfiles_.Select(index);
    memory_.ShownCsProfile = csProfiles_.Selected();
    settings_.SetText(L"CS profile setting's: " + csProfiles_.SelectedItem());
    const std::optional<size_t> shown = csProfiles_.Selected();
    shown_ = shown ? config::SettingsAt(profile_, *shown) : config::CsProfileSettings();
    LoadControls(shown_);
    period_.SetText(text::Decimal(shown_.CrlUpdatePeriod));
    tsp_.SetText(shown_.ServerTSP);
    EnableDependentFields();
}

void CAddProfile::KeepShownSettings() {
    if (!memory_.ShownCsProfile) return;
    StoreControls(shown_);
    shown_.CrlUpdatePeriod = period_.Number();
    shown_.ServerTSP = tsp_.Text().empty() ? config::NoTimeStampServer : tsp_.Text();
    config::PutSettings(profile_, *memory_.ShownCsProfile, shown_);
}

void CAddProfile::EnableDependentFields() {
    tsp_.Enable(useTsp_.IsChecked());
    noTspIsError_.Enable(verifyTsp_.IsChecked());
}

void CAddProfile::SelectCsProfile() {
    const std::optional<size_t> selected = csProfiles_.Selected();
    if (LacksTimeStampServer() || selected == memory_.ShownCsProfile) return;
    KeepShownSettings();
    ShowCsProfile(selected);
}

void CAddProfile::AddCsProfile() {
    if (LacksTimeStampServer()) return;
    CAddCSProfDlg chooser(Screen(), this, csProfileNames_);
    if (chooser.DoModal() != ui::IdOk) return;
    const std::wstring& name = chooser.ProfileName();
    if (name.empty() || config::IsAttached(profile_, name)) return;
    KeepShownSettings();
    config::AttachCsProfile(profile_, name);
    ShowCsProfile(csProfiles_.Add(name));
}

void CAddProfile::DeleteCsProfile() {
    const std::optional<size_t> selected = csProfiles_.Selected();
    if (csProfiles_.Items().size() == 1)
        return errors::Warn(Screen(), this, L"Last CS profile in list cannot be deleted.");
    if (!selected) return errors::Warn(Screen(), this, L"Select list item to delete.");
    const std::wstring name = csProfiles_.SelectedItem();
    if (!errors::Confirm(Screen(), this, DeleteQuestion(name))) return;
    if (std::find(removed_.begin(), removed_.end(), name) == removed_.end()) removed_.push_back(name);
    csProfiles_.Remove(*selected);
    config::DetachCsProfile(profile_, *selected);
    ShowCsProfile(0);
}

std::wstring CAddProfile::DeleteQuestion(const std::wstring& name) const {
    std::wstring question = text::Format(L"Delete CS profile '%s' from list?", name);
    const std::wstring rules = RulesWithCertificatesOf(rules_, name);
    if (rules.empty()) return question;
    return text::Format(
               L"Rule(s) '%s' of profile '%s' are using sertificates of CS profile '%s'.\r\n"
               L"Validation of these rules will be nessesary for proper work.\r\n",
               rules, profile_.Name, name) +
           question;
}

void CAddProfile::SwitchTimeStampServer() {
    if (!useTsp_.IsChecked()) tsp_.SetText(config::NoTimeStampServer);
    EnableDependentFields();
}

void CAddProfile::SwitchTimeStampCheck() {
    if (!verifyTsp_.IsChecked()) noTspIsError_.SetChecked(false);
    EnableDependentFields();
}

void CAddProfile::ClampPeriod() {
    period_.SetNumber(std::clamp(period_.Number(), periodArrows_.Lowest(), periodArrows_.Highest()));
}

bool CAddProfile::LacksTimeStampServer() {
    const auto refusal = CheckTimeStampServer(useTsp_.IsChecked(), tsp_.Text());
    if (!refusal) return false;
    csProfiles_.Select(memory_.ShownCsProfile);
    ShowRefusal(*refusal);
    return true;
}

void CAddProfile::OnOK() {
    const ProfileForm form{.Name = name_.Text(),
                           .HandlerTimeout = timeout_.Number(),
                           .UsesTimeStampServer = useTsp_.IsChecked(),
                           .TimeStampServer = tsp_.Text()};
    if (const auto refusal = Validate(form, profile_.Name, profileNames_)) return ShowRefusal(*refusal);
    KeepShownSettings();
    StoreControls(profile_);
    profile_.Name = name_.Text();
    profile_.HandlerTimeout = timeout_.Number();
    EndDialog(ui::IdOk);
}

void CAddProfile::ShowRefusal(const ProfileRefusal& refusal) {
    errors::Warn(Screen(), this, refusal.text);
    ControlOf(refusal.field).SetFocus();
}

ui::Control& CAddProfile::ControlOf(ProfileField field) {
    switch (field) {
        case ProfileField::HandlerTimeout:
            return timeout_;
        case ProfileField::TimeStampServer:
            return tsp_;
        case ProfileField::Name:
            break;
    }
    return name_;
}

}  // namespace editors
