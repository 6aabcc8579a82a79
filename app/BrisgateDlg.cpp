#include "app/BrisgateDlg.h"

#include <algorithm>
#include <new>
#include <unordered_set>
#include <utility>

#include "config/Load.h"
#include "config/RoundTrip.h"
#include "config/Save.h"
#include "errors/MessageBoxes.h"
#include "text/Format.h"

namespace app {

CBrisgateDlg::CBrisgateDlg(const config::Services& services)
    : Dialog(services.Screen, nullptr, {.size = {613, 193}, .resizable = true, .minimizeBox = true}),
      services_(services),
      ruleList_(rules_, *this, services_, [this] {
          const config::ServiceProfile* profile = OpenedProfile();
          return profile == nullptr ? std::span<const config::Rule>() : std::span<const config::Rule>(profile->Rules);
      }) {
    AddShortcuts();
    profileLabel_.SetName(L"Opened profile");
    csProfileLabel_.SetName(L"Number of CS profiles");
    profiles_.SetName(L"Profiles");
    rules_.SetName(L"Rules");
    configurations_.SetTooltip(L"Configurations");
    openProfile_.SetTooltip(L"Open profile");
    for (ui::Control* reachedOtherwise : {&configurations_, &openProfile_}) {
        reachedOtherwise->Show(false);
        reachedOtherwise->Enable(false);
    }
    profiles_.SetCells([this](size_t row, size_t) { return profileNames_.at(row); });
    profiles_.OnClick([this](const ui::ListHit&) { OpenProfile(); });
    // By the keyboard, too: what the commands ask about and work on is what is selected.
    profiles_.OnSelect([this](size_t) { OpenProfile(); });
    profiles_.OnDoubleClick([this](const ui::ListHit&) { EditProfile(); });
    rules_.OnFocusLost([this] { ApplyCheckBoxes(); });
    rules_.OnDoubleClick([this](const ui::ListHit&) { EditRule(); });
    rules_.OnKeyDown([this](int virtualKey) {
        if (virtualKey != ui::key::Delete) return;
        ApplyNewChecks();
        DeleteRules();
    });
}

void CBrisgateDlg::OnInitDialog() {
    InitWindow();
    if (!Load()) {
        EndDialog(ui::IdCancel);
        return;
    }
    RestorePlacement();
    FillProfileList();
    profiles_.SetFocus();
    if (!profileNames_.empty()) {
        profiles_.SelectOnly(0);
        OpenProfile();
    }
}

void CBrisgateDlg::InitWindow() {
    CreateMenus();
    EnableProfileControls(false);
    SetCaption(errors::ProgramTitle);
    SetIcon(ui::Icon::App);
    for (auto* named : {&addProfile_, &editProfile_, &deleteProfile_, &exportRules_, &importRules_})
        named->SetText(named->Tooltip());
    profileLabel_.SetText(L"Profile: ");
    csProfileLabel_.SetText(L"CS profile: ");
    search_.SetCue(L"Description");
    changed_ = false;
    ruleList_.CreateColumns();
    CreateProfileColumn();
}

bool CBrisgateDlg::Load() {
    const ui::WaitCursor wait(Screen());
    config::RedoRecord unfinished(services_.Registry, this);
    const bool putOff = PutsOffUnfinishedSave(unfinished);
    auto loaded = config::LoadConfiguration(services_.Registry, this);
    if (!loaded) return false;
    configuration_ = std::move(*loaded);
    // A start that is refused offers it again.
    if (putOff) unfinished.Remove();
    return true;
}

// What a save has left undone is done before anything is loaded, unless the user does not want it.
bool CBrisgateDlg::PutsOffUnfinishedSave(config::RedoRecord& unfinished) {
    using State = config::RedoRecord::State;
    const std::optional<State> state = unfinished.Find();
    if (state == State::Unreadable)
        errors::Warn(Screen(), this,
                     L"The last save was not completed, and its record cannot be read.\r\n"
                     L"Please, check profiles and rules and save them again.");
    if (state != State::Whole) return false;
    if (!errors::Propose(Screen(), this, L"The last save was not completed.\r\nComplete it now?")) return true;
    unfinished.Complete();
    return false;
}

void CBrisgateDlg::RestorePlacement() {
    const config::GlobalSettings& settings = configuration_.Settings;
    // Kept: a window saved at the very top or left of the screen opens at its default place.
    if (settings.WindowTop == 0 || settings.WindowLeft == 0) return;
    // What the registry holds can be anything; no screen reaches farther than 16 bits.
    const auto onScreen = [](int32_t pixels) { return std::clamp(pixels, -0x8000, 0x7FFF); };
    const int left = onScreen(settings.WindowLeft);
    const int top = onScreen(settings.WindowTop);
    SetNormalRect({left, top, onScreen(settings.WindowRight) - left, onScreen(settings.WindowBottom) - top});
}

void CBrisgateDlg::FillProfileList() {
    profiles_.SetRows(0);  // the names that follow may not be had
    profileNames_.clear();
    std::unordered_set<std::wstring> shown;
    for (const config::ServiceProfile& profile : configuration_.Profiles)
        if (!profile.Name.empty() && shown.insert(profile.Name).second) profileNames_.push_back(profile.Name);
    profiles_.SetRows(profileNames_.size());
}

void CBrisgateDlg::CreateProfileColumn() {
    const int scrollBar = Screen().Metrics().VerticalScrollBarWidth(Dpi());
    profiles_.SetColumns({{.header = L"Profiles", .width = profiles_.ClientWidth() - scrollBar}});
}

void CBrisgateDlg::SpreadProfileColumn() {
    profiles_.SetColumnWidths({profiles_.ClientWidth()});
}

void CBrisgateDlg::OnResized() {
    ruleList_.SpreadWidths();
    SpreadProfileColumn();
}

ui::Size CBrisgateDlg::MinimumTrackSize() const {
    const platform::ScreenMetrics& metrics = Screen().Metrics();
    const ui::Rect& button = saveAndExit_.Bounds();
    return {11 * button.width + 2 * metrics.VerticalScrollBarWidth(Dpi()),
            2 * (5 * button.height + metrics.VerticalScrollArrowHeight(Dpi()))};
}

int CBrisgateDlg::RunForm(ui::Dialog& form) {
    class Opened {
      public:
        explicit Opened(bool& flag) : flag_(flag) { flag_ = true; }
        ~Opened() { flag_ = false; }
        Opened(const Opened&) = delete;
        Opened& operator=(const Opened&) = delete;

      private:
        bool& flag_;
    };
    const Opened opened(formOpen_);
    return form.DoModal();
}

// Whoever has opened a form means to change something.
const wchar_t* CBrisgateDlg::ReasonToStay() const {
    const bool mayLose = changed_ || formOpen_ || (rules_.HasFocus() && ruleList_.HasNewChecks());
    return mayLose ? L"Some changes has not been saved." : nullptr;
}

void CBrisgateDlg::OpenProfile() {
    const auto row = profiles_.FirstSelected();
    if (!row) return;
    ruleList_.Empty();
    openedProfile_ = profileNames_.at(*row);
    const config::ServiceProfile& profile = configuration_.Profiles.at(*row);
    profileLabel_.SetText(L"Profile: " + profile.Name);
    csProfileLabel_.SetText(text::Format(L"CS profile's num: %d", profile.ZCSProfile.size()));
    EnableProfileControls(true);
    RefillRules();
}

config::ServiceProfile* CBrisgateDlg::OpenedProfile() {
    if (openedProfile_.empty()) return nullptr;
    const auto found = std::find_if(configuration_.Profiles.begin(), configuration_.Profiles.end(),
                                    [this](const auto& profile) { return profile.Name == openedProfile_; });
    return found == configuration_.Profiles.end() ? nullptr : &*found;
}

void CBrisgateDlg::RefillRules() {
    ruleList_.Empty();
    ruleList_.Fill(search_.Text());
    SpreadProfileColumn();
}

void CBrisgateDlg::Save() {
    if (CanSave()) Store();
}

bool CBrisgateDlg::CanSave() {
    const std::vector<config::Unreadable> found = config::FindUnreadable(configuration_);
    return found.empty() || errors::ConfirmRisk(Screen(), this, config::UnreadableQuestion(found));
}

void CBrisgateDlg::Store() {
    const ui::WaitCursor wait(Screen());
    const ui::Rect window = NormalRect();
    config::GlobalSettings& settings = configuration_.Settings;
    settings.WindowTop = window.y;
    settings.WindowBottom = window.y + window.height;
    settings.WindowLeft = window.x;
    settings.WindowRight = window.x + window.width;
    try {
        // A report takes the focus from the rule list, which may be a change of its own.
        if (config::SaveConfiguration(services_.Registry, this, configuration_)) {
            changed_ = false;
            ReasonToStayChanged();
        }
    } catch (const std::bad_alloc&) {
        changed_ = true;  // the registry holds a half of it
        throw;
    }
}

bool CBrisgateDlg::CanClose() {
    return !changed_ || errors::Confirm(Screen(), this, L"Some changes has not been saved. Exit without saving?");
}

void CBrisgateDlg::OnOK() {
    ApplyNewChecks();
    if (!CanSave()) return;
    Store();
    if (!CanClose()) return;
    ruleList_.Empty();
    EndDialog(ui::IdOk);
}

void CBrisgateDlg::OnCancel() {
    ApplyNewChecks();
    if (!CanClose()) return;
    ruleList_.Empty();
    EndDialog(ui::IdCancel);
}

}  // namespace app
