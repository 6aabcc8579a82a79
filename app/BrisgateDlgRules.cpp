// The main dialog's commands on the rules of the opened profile. They work by row: the rule at a row's
// position is taken for the rule of that row, also while a search hides others.
#include <algorithm>

#include "app/BrisgateDlg.h"
#include "app/RuleCommands.h"
#include "editors/AddRule.h"
#include "errors/MessageBoxes.h"
#include "text/Format.h"
#include "ui/RemoveRows.h"

namespace app {

std::optional<CBrisgateDlg::ChosenRule> CBrisgateDlg::FirstChosenRule() {
    const std::optional<size_t> row = rules_.FirstSelected();
    if (!row) return std::nullopt;
    return ChosenRule{*OpenedProfile(), *row};  // without an opened profile there are no rows
}

// How every command ends that has changed the rules.
void CBrisgateDlg::ShowChangedRules() {
    changed_ = true;
    RefillRules();
    rules_.SetFocus();
}

void CBrisgateDlg::ShowRule(size_t row) {
    if (row >= rules_.RowCount()) return;
    rules_.SelectOnly(row);
    rules_.EnsureVisible(row);
}

std::optional<config::Rule> CBrisgateDlg::RunRuleEditor(const config::ServiceProfile& profile,
                                                        const config::Rule& rule) {
    const auto masks = [this, &profile] { return SuggestedMasks(configuration_.Settings, profile.Rules); };
    editors::CAddRule editor(services_, this, profile, masks, rule, editorMemory_);
    if (RunForm(editor) != ui::IdOk) return std::nullopt;
    return editor.Result();
}

void CBrisgateDlg::AddRule() {
    if (OpenedProfile() == nullptr) return;
    std::optional<config::Rule> rule = RunRuleEditor(*OpenedProfile(), {});
    if (!rule) return;
    std::vector<config::Rule>& rules = OpenedProfile()->Rules;
    rules.push_back(std::move(*rule));
    ShowChangedRules();
    ShowRule(rules.size() - 1);
}

void CBrisgateDlg::CopyRule() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    std::vector<config::Rule>& rules = chosen->profile.Rules;
    config::Rule copy = rules.at(chosen->position);
    rules.insert(rules.begin() + static_cast<std::ptrdiff_t>(chosen->position) + 1, std::move(copy));
    ShowChangedRules();
    ShowRule(chosen->position + 1);
}

void CBrisgateDlg::EditRule() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    const size_t position = chosen->position;
    std::optional<config::Rule> rule = RunRuleEditor(chosen->profile, chosen->profile.Rules.at(position));
    if (!rule) return;
    OpenedProfile()->Rules.at(position) = std::move(*rule);
    ShowChangedRules();
    ShowRule(position);
}

void CBrisgateDlg::DeleteRules() {
    const std::vector<size_t> rows = rules_.SelectedRows();
    if (rows.empty()) return;
    if (!errors::Confirm(Screen(), this, text::Format(L"Delete %d rule(s)?", rows.size()))) return;
    ui::RemoveRows(OpenedProfile()->Rules, rows);
    ShowChangedRules();
    if (rules_.RowCount() > 0) rules_.FocusRow(std::min(rows.front(), rules_.RowCount() - 1));
}

void CBrisgateDlg::MakeFirst() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    MoveRule(chosen->profile.Rules, chosen->position, 0);
    ShowChangedRules();
    ShowRule(0);
}

void CBrisgateDlg::MoveUp() {
    const auto chosen = FirstChosenRule();
    if (!chosen || chosen->position == 0) return;
    MoveRule(chosen->profile.Rules, chosen->position, chosen->position - 1);
    ShowChangedRules();
    ShowRule(chosen->position - 1);
}

void CBrisgateDlg::MoveDown() {
    const auto chosen = FirstChosenRule();
    if (!chosen || chosen->position + 1 >= rules_.RowCount()) return;
    MoveRule(chosen->profile.Rules, chosen->position, chosen->position + 1);
    ShowChangedRules();
    ShowRule(chosen->position + 1);
    // What it can be moved past next is seen too.
    rules_.EnsureVisible(std::min(chosen->position + 2, rules_.RowCount() - 1));
}

void CBrisgateDlg::MakeLast() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    MoveRule(chosen->profile.Rules, chosen->position, chosen->profile.Rules.size() - 1);
    ShowChangedRules();
    ShowRule(rules_.RowCount() - 1);
}

void CBrisgateDlg::ApplyCheckBoxes() {
    config::ServiceProfile* const profile = OpenedProfile();
    if (profile != nullptr && ruleList_.IsFilled() && SwitchRules(rules_.Checks(), profile->Rules)) changed_ = true;
}

// A command that comes while the list still has the keyboard must not lose a box that was just ticked. While
// a search hides rules, boxes are those of other rules: then they are taken over only when the list is left.
void CBrisgateDlg::ApplyNewChecks() {
    if (rules_.HasFocus() && search_.Text().empty()) ApplyCheckBoxes();
}

void CBrisgateDlg::ExportRules() {
    if (const config::ServiceProfile* const profile = OpenedProfile()) app::ExportRules(services_, this, *profile);
}

void CBrisgateDlg::ImportRules() {
    config::ServiceProfile* const profile = OpenedProfile();
    if (profile == nullptr || !app::ImportRules(services_, this, *profile)) return;
    ShowChangedRules();
    ShowRule(rules_.RowCount() - 1);
}

void CBrisgateDlg::AddShortcuts() {
    namespace key = ui::key;
    AddShortcut({.key = 'S', .control = true}, nullptr, save_);
    AddShortcut({.key = 'F', .control = true}, nullptr, [this] { search_.SetFocus(); });
    AddShortcut({.key = key::Insert}, &rules_, addRule_);
    AddShortcut({.key = key::F2}, &rules_, editRule_);
    AddShortcut({.key = 'D', .control = true}, &rules_, copyRule_);
    AddShortcut({.key = key::Up, .alt = true}, &rules_, moveUp_);
    AddShortcut({.key = key::Down, .alt = true}, &rules_, moveDown_);
    AddShortcut({.key = key::Home, .alt = true}, &rules_, makeFirst_);
    AddShortcut({.key = key::End, .alt = true}, &rules_, makeLast_);
    AddShortcut({.key = key::Insert}, &profiles_, addProfile_);
    AddShortcut({.key = key::F2}, &profiles_, editProfile_);
    AddShortcut({.key = key::Delete}, &profiles_, deleteProfile_);
}

}  // namespace app
