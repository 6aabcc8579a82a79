// The main dialog: service profiles on the left, the rules of the opened profile on the right. It owns the
// whole configuration from loading to leaving.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/RuleList.h"
#include "config/Records.h"
#include "config/RedoRecord.h"
#include "config/Services.h"
#include "editors/EditorMemory.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace app {

class CBrisgateDlg : public ui::Dialog {
  public:
    explicit CBrisgateDlg(const config::Services& services);

    ui::Size MinimumTrackSize() const override;
    const wchar_t* ReasonToStay() const override;

  private:
    void OnInitDialog() override;
    void OnOK() override;      // save and exit
    void OnCancel() override;  // exit without saving
    void OnMenuCommand(int id) override;
    void OnSystemCommand(int id) override;
    void OnShortcut() override { ApplyNewChecks(); }
    void OnResized() override;

    // What the user can ask for in the menu bar.
    struct Command {
        int id;
        const wchar_t* menu;
        const wchar_t* text;
        void (CBrisgateDlg::*run)();
        ui::IconButton CBrisgateDlg::*profileButton = nullptr;  // that also asks for it, when it needs a profile

        constexpr bool NeedsProfile() const { return profileButton != nullptr; }
    };
    static std::span<const Command> Commands();
    void CreateMenus();
    void AddShortcuts();
    void InitWindow();
    bool Load();
    bool PutsOffUnfinishedSave(config::RedoRecord& unfinished);
    void RestorePlacement();
    void FillProfileList();
    void CreateProfileColumn();
    void SpreadProfileColumn();

    // Runs a form in which the user edits what the dialog owns.
    int RunForm(ui::Dialog& form);
    void OpenProfile();
    config::ServiceProfile* OpenedProfile();
    void EnableProfileControls(bool enabled);  // and commands
    void RefillRules();

    struct EditedProfile {
        config::ServiceProfile record;
        std::vector<std::wstring> removedCsProfiles;
    };
    // The record that comes back has no rules. The profile is as it was before.
    std::optional<EditedProfile> RunProfileEditor(config::ServiceProfile& profile);
    // A row to see beyond the last one means the last one.
    void ShowChangedProfiles(std::optional<size_t> selectedRow, size_t rowToSee);
    void AddProfile();
    void EditProfile();
    void DeleteProfile();
    void CloseProfile();

    // The first selected row as the rule at its position.
    struct ChosenRule {
        config::ServiceProfile& profile;
        size_t position;
    };
    std::optional<ChosenRule> FirstChosenRule();
    std::optional<config::Rule> RunRuleEditor(const config::ServiceProfile& profile, const config::Rule& rule);
    void ShowChangedRules();
    // Selects the row and brings it into view, where it exists: a search may hide it.
    void ShowRule(size_t row);
    void AddRule();
    void CopyRule();
    void EditRule();
    void DeleteRules();
    void MakeFirst();
    void MoveUp();
    void MoveDown();
    void MakeLast();
    void ApplyCheckBoxes();
    void ApplyNewChecks();
    void ExportRules();
    void ImportRules();

    void EditLogSettings();
    void EditExtensions();

    void Save();
    bool CanSave();
    void Store();
    bool CanClose();

    const config::Services services_;
    config::Configuration configuration_;
    std::vector<std::wstring> profileNames_;  // as the profile list shows them
    std::wstring openedProfile_;              // empty: none
    bool changed_ = false;                    // memory differs from the registry
    bool formOpen_ = false;                   // with edits that are not in memory yet
    editors::EditorMemory editorMemory_;

    // In even columns but for two texts, which would be cut off. The search caption has the room above its
    // field as far as the window's edge, and breaks into two lines when the window becomes narrow; the last
    // of the lower buttons is wider than the two that have moved left for it.
    ui::IconButton saveIcon_{*this, 1021, {7, 9, 32, 32}, ui::Icon::Save, L"Save", [this] { Save(); }};
    ui::IconButton logPath_{
        *this, 1022, {39, 9, 32, 32}, ui::Icon::LogSettings, L"Log path", [this] { EditLogSettings(); }};
    ui::IconButton addRule_{*this, 1023, {76, 9, 32, 32}, ui::Icon::RuleAdd, L"Add rule", [this] { AddRule(); }};
    ui::IconButton copyRule_{*this, 1037, {108, 9, 32, 32}, ui::Icon::RuleCopy, L"Copy rule", [this] { CopyRule(); }};
    ui::IconButton editRule_{*this, 1024, {140, 9, 32, 32}, ui::Icon::RuleEdit, L"Edit rule", [this] { EditRule(); }};
    ui::IconButton deleteRule_{
        *this, 1025, {172, 9, 32, 32}, ui::Icon::RuleDelete, L"Delete rule", [this] { DeleteRules(); }};
    ui::IconButton makeFirst_{
        *this, 1026, {204, 9, 32, 32}, ui::Icon::RuleFirst, L"Make first", [this] { MakeFirst(); }};
    ui::IconButton moveUp_{*this, 1027, {236, 9, 32, 32}, ui::Icon::RuleUp, L"Move up", [this] { MoveUp(); }};
    ui::IconButton moveDown_{*this, 1028, {268, 9, 32, 32}, ui::Icon::RuleDown, L"Move down", [this] { MoveDown(); }};
    ui::IconButton makeLast_{*this, 1029, {300, 9, 32, 32}, ui::Icon::RuleLast, L"Make last", [this] { MakeLast(); }};
    ui::IconButton addProfile_{
        *this, 1031, {337, 9, 32, 32}, ui::Icon::ProfileAdd, L"Add profile", [this] { AddProfile(); }};
    ui::IconButton editProfile_{
        *this, 1032, {369, 9, 32, 32}, ui::Icon::ProfileEdit, L"Edit profile", [this] { EditProfile(); }};
    ui::IconButton deleteProfile_{
        *this, 1033, {401, 9, 32, 32}, ui::Icon::ProfileDelete, L"Delete profile", [this] { DeleteProfile(); }};
    ui::IconButton exportRules_{
        *this, 1034, {433, 9, 32, 32}, ui::Icon::RulesExport, L"Export profile rules", [this] { ExportRules(); }};
    ui::IconButton importRules_{
        *this, 1035, {465, 9, 32, 32}, ui::Icon::RulesImport, L"Import profile rules", [this] { ImportRules(); }};
    ui::Label searchCaption_{*this, 1120, {506, 9, 107, 16, ui::GrowX}, L"Search by field \"Description\""};
    ui::Edit search_{*this, 1079, {506, 26, 100, 14, ui::GrowX}, {}, [this] { RefillRules(); }};
    ui::Edit profileLabel_{*this, 1041, {8, 43, 112, 14}, {.readOnly = true}};
    ui::Edit csProfileLabel_{*this, 1042, {133, 43, 473, 14, ui::GrowX}, {.readOnly = true}};
    ui::ListView profiles_{*this, 1001, {8, 60, 112, 90, ui::GrowY}, {.singleSelection = true}};
    ui::ListView rules_{*this, 1030, {133, 60, 473, 90, ui::GrowBoth}, {.checkBoxes = true}};
    ui::Button configurations_{*this, 1036, {21, 151, 12, 11}, L"Configurations", [this] { EditExtensions(); }};
    ui::Button openProfile_{*this, 1053, {7, 152, 12, 8}, L"Open profile", [this] { OpenProfile(); }};
    ui::Button save_{*this, 1000, {426, 167, 50, 19, ui::MoveBoth}, L"Save", [this] { Save(); }};
    ui::Button saveAndExit_{*this, ui::IdOk, {482, 167, 50, 19, ui::MoveBoth}, L"Save and exit"};
    ui::Button exit_{*this, ui::IdCancel, {538, 167, 68, 19, ui::MoveBoth}, L"Exit without saving"};

    RuleList ruleList_;
};

}  // namespace app
