// The main dialog's commands on profiles. Adding and deleting work on the rows of the profile list, editing
// on the opened profile.
#include <algorithm>

#include "app/BrisgateDlg.h"
#include "app/RuleCommands.h"
#include "editors/AddProfile.h"
#include "errors/MessageBoxes.h"
#include "text/Format.h"

namespace app {

namespace {

// All that the editor changes. There can be very many rules.
config::ServiceProfile WithoutRules(config::ServiceProfile& profile) {
    class Aside {
      public:
        explicit Aside(std::vector<config::Rule>& rules) : rules_(rules) { kept_.swap(rules_); }
        ~Aside() { kept_.swap(rules_); }
        Aside(const Aside&) = delete;
        Aside& operator=(const Aside&) = delete;

      private:
        std::vector<config::Rule>& rules_;
        std::vector<config::Rule> kept_;
    };
    const Aside rules(profile.Rules);
    return profile;
}

}  // namespace

std::optional<CBrisgateDlg::EditedProfile> CBrisgateDlg::RunProfileEditor(config::ServiceProfile& profile) {
    std::vector<std::wstring> names;
    names.reserve(configuration_.Profiles.size());
    for (const config::ServiceProfile& known : configuration_.Profiles) names.push_back(known.Name);
    editors::CAddProfile editor(services_, this, WithoutRules(profile), profile.Rules, std::move(names),
                                config::CsProfileNames(configuration_.CsProfiles), editorMemory_);
    if (RunForm(editor) != ui::IdOk) return std::nullopt;
    return EditedProfile{editor.Result(), editor.RemovedCsProfiles()};
}

// How a command ends that changed which profiles there are.
void CBrisgateDlg::ShowChangedProfiles(std::optional<size_t> selectedRow, size_t rowToSee) {
    changed_ = true;
    FillProfileList();
    if (selectedRow) profiles_.SelectOnly(*selectedRow);
    profiles_.EnsureVisible(std::min(rowToSee, profiles_.RowCount() - 1));
}

void CBrisgateDlg::AddProfile() {
    if (configuration_.CsProfiles.empty()) return errors::Warn(Screen(), this, L"No CS profiles found.");
    config::ServiceProfile blank;
    auto added = RunProfileEditor(blank);
    if (!added) return;
    configuration_.Profiles.push_back(std::move(added->record));
    ShowChangedProfiles(profiles_.FirstSelected(), configuration_.Profiles.size() - 1);
}

void CBrisgateDlg::EditProfile() {
    if (configuration_.Profiles.empty()) {
        changed_ = true;  // kept: the command counts as a change even without a profile
        return;
    }
    if (rules_.HasFocus()) ApplyCheckBoxes();
    if (OpenedProfile() == nullptr) return;
    auto edited = RunProfileEditor(*OpenedProfile());
    if (!edited) return;
    config::ServiceProfile& profile = *OpenedProfile();
    // Whatever needs memory comes before the change or after it.
    const bool rulesChange = !edited->removedCsProfiles.empty();
    if (rulesChange) {
        std::vector<config::Rule>(profile.Rules).swap(edited->record.Rules);
        MoveRulesToFirstCsProfile(edited->record, edited->removedCsProfiles);
    }
    std::wstring name = edited->record.Name;
    std::vector<std::wstring> names = profileNames_;
    std::replace(names.begin(), names.end(), openedProfile_, name);
    if (!rulesChange) edited->record.Rules.swap(profile.Rules);
    profile = std::move(edited->record);
    openedProfile_ = std::move(name);
    profileNames_ = std::move(names);
    changed_ = true;
    profiles_.RefreshRows();
    profileLabel_.SetText(L"Profile: " + profile.Name);
    csProfileLabel_.SetText(text::Format(L"CS profile's num: %d", profile.ZCSProfile.size()));
    RefillRules();
}

void CBrisgateDlg::DeleteProfile() {
    const std::optional<size_t> row = profiles_.FirstSelected();
    if (!row || !errors::Confirm(Screen(), this, text::Format(L"Delete profile '%s'?", openedProfile_))) return;
    if (profiles_.RowCount() < 2) return errors::Warn(Screen(), this, L"Last profile cannot be deleted.");
    CloseProfile();
    configuration_.Profiles.erase(configuration_.Profiles.begin() + static_cast<std::ptrdiff_t>(*row));
    ShowChangedProfiles(std::nullopt, *row);
    profiles_.SetFocus();
    // Kept: the rows are visited in their order and each becomes the opened profile, also those after the
    // deleted one. Its rules are seen again when the user searches.
    if (*row < profileNames_.size()) openedProfile_ = profileNames_.back();
}

void CBrisgateDlg::CloseProfile() {
    openedProfile_.clear();
    ruleList_.Empty();
    profileLabel_.SetText(L"Profile: ");
    csProfileLabel_.SetText(text::Format(L"CS profile's num: %d", 0));
    EnableProfileControls(false);
}

}  // namespace app
