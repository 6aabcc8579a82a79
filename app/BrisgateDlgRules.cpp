// The main dialog's commands on the rules of the opened profile. They work by row: the rule at a row's
// position is taken for the rule of that row, also while a search hides others.
#include <algorithm>

#include "app/BrisgateDlg.h"
#include "app/ProfileExchange.h"
#include "app/RuleCommands.h"
#include "editors/AddRule.h"
#include "errors/MessageBoxes.h"
#include "text/Format.h"

namespace app {

std::optional<CBrisgateDlg::ChosenRule> CBrisgateDlg::FirstChosenRule() {
    config::ServiceProfile* const profile = OpenedProfile();
    const std::optional<size_t> row = rules_.FirstSelected();
    if (profile == nullptr || !row || *row >= profile->Rules.size()) return std::nullopt;
    return ChosenRule{profile->Rules, *row};
}

// How every command ends that has changed the rules.
void CBrisgateDlg::ShowChangedRules(std::optional<size_t> selectedRow, std::optional<size_t> rowToSee) {
    RefillRules();
    rules_.SetFocus();
    if (selectedRow && rules_.RowCount() > 0) {
        const size_t lastRow = rules_.RowCount() - 1;
        rules_.SelectOnly(std::min(*selectedRow, lastRow));
        rules_.EnsureVisible(std::min(rowToSee.value_or(*selectedRow), lastRow));
    }
    changed_ = true;
}

std::optional<config::Rule> CBrisgateDlg::RunRuleEditor(const config::ServiceProfile& profile,
                                                        const config::Rule& rule) {
    editors::CAddRule editor(services_, this, profile, SuggestedMasks(configuration_.Settings, profile.Rules),
                             rule, editorMemory_, certificates_);
    if (editor.DoModal() != ui::IdOk) return std::nullopt;
    return editor.Result();
}

void CBrisgateDlg::AddRule() {
    config::ServiceProfile* const profile = OpenedProfile();
    if (profile == nullptr) return;
    std::optional<config::Rule> rule = RunRuleEditor(*profile, {});
    if (!rule) return;
    profile->Rules.push_back(std::move(*rule));
    ShowChangedRules(profile->Rules.size() - 1);
}

void CBrisgateDlg::CopyRule() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    config::Rule copy = chosen->rules[chosen->position];
    chosen->rules.insert(chosen->rules.begin() + static_cast<std::ptrdiff_t>(chosen->position) + 1,
                         std::move(copy));
    ShowChangedRules(chosen->position + 1);
}

void CBrisgateDlg::EditRule() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    std::optional<config::Rule> rule = RunRuleEditor(*OpenedProfile(), chosen->rules[chosen->position]);
    if (!rule) return;
    chosen->rules[chosen->position] = std::move(*rule);
    ShowChangedRules(chosen->position);
}

void CBrisgateDlg::DeleteRules() {
    config::ServiceProfile* const profile = OpenedProfile();
    const std::vector<size_t> rows = rules_.SelectedRows();
    if (profile == nullptr || rows.empty()) return;
    if (!errors::Confirm(Screen(), this, text::Format(L"Delete %d rule(s)?", rows.size()))) return;
    RemoveRules(profile->Rules, rows);
    ShowChangedRules(std::nullopt);
}

void CBrisgateDlg::MakeFirst() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    MoveRule(chosen->rules, chosen->position, 0);
    ShowChangedRules(0);
}

void CBrisgateDlg::MoveUp() {
    const auto chosen = FirstChosenRule();
    if (!chosen || chosen->position == 0) return;
    MoveRule(chosen->rules, chosen->position, chosen->position - 1);
    ShowChangedRules(chosen->position - 1);
}

void CBrisgateDlg::MoveDown() {
    const auto chosen = FirstChosenRule();
    if (!chosen || chosen->position + 1 >= rules_.RowCount()) return;
    MoveRule(chosen->rules, chosen->position, chosen->position + 1);
    ShowChangedRules(chosen->position + 1,
                     chosen->position + 2);  // what it can be moved behind next is seen too
}

void CBrisgateDlg::MakeLast() {
    const auto chosen = FirstChosenRule();
    if (!chosen) return;
    MoveRule(chosen->rules, chosen->position, chosen->rules.size() - 1);
    ShowChangedRules(chosen->rules.size() - 1);
}

void CBrisgateDlg::TakeCheckBoxes() {
    config::ServiceProfile* const profile = OpenedProfile();
    if (profile != nullptr && SwitchRules(rules_.Checks(), profile->Rules)) changed_ = true;
}

void CBrisgateDlg::ExportRules() {
    if (const config::ServiceProfile* const profile = OpenedProfile())
        app::ExportRules(services_, this, *profile);
}

void CBrisgateDlg::ImportRules() {
    config::ServiceProfile* const profile = OpenedProfile();
    if (profile == nullptr || !app::ImportRules(services_, this, *profile)) return;
    ShowChangedRules(profile->Rules.size());
}

}  // namespace app
