#include "app/RuleList.h"

#include <algorithm>

#include "errors/MessageBoxes.h"
#include "ui/Dialog.h"

namespace app {

RuleList::RuleList(ui::ListView& view, ui::Dialog& owner, const config::Services& services, Rules rules)
    : view_(view),
      owner_(owner),
      services_(services),
      rules_(std::move(rules)) {
    view_.SetCells([this](size_t row, size_t column) { return Cell(row, column); });
    view_.OnRightClick([this](const ui::ListHit& hit) { ShowDetails(hit); });
    view_.OnDetails([this](size_t row) { ShowDetails({row, view_.Columns().size() - 1}); });
}

void RuleList::CreateColumns() {
    // The list is still empty: leave room for the scroll bar that its rows may bring.
    const std::vector<int> widths =
        WidthsWithin(view_.ClientWidth() - services_.Screen.Metrics().VerticalScrollBarWidth(owner_.Dpi()));
    std::vector<ui::Column> columns;
    for (const std::wstring_view header : RuleColumnHeaders())
        columns.push_back({.header = std::wstring(header), .width = widths[columns.size()]});
    view_.SetColumns(std::move(columns));
}

void RuleList::SpreadWidths() {
    view_.SetColumnWidths(WidthsWithin(view_.ClientWidth()));
}

std::vector<int> RuleList::WidthsWithin(int clientWidth) const {
    const int numberWidth = 3 * services_.Screen.Metrics().VerticalScrollBarWidth(owner_.Dpi());
    const int others = static_cast<int>(RuleColumnHeaders().size()) - 1;
    std::vector<int> widths{numberWidth};
    widths.resize(RuleColumnHeaders().size(), std::max(0, (clientWidth - numberWidth) / others));
    return widths;
}

void RuleList::Empty() {
    filled_ = false;
    listed_.clear();
    view_.SetRows(0);
}

void RuleList::Fill(std::wstring_view searchText) {
    const std::span<const config::Rule> rules = rules_();
    listed_ = ListedRules(rules, searchText);
    std::vector<bool> checks;
    checks.reserve(listed_.size());
    for (const size_t position : listed_) checks.push_back(rules[position].IsOn != 0);
    view_.SetRows(std::move(checks));
    filled_ = true;
    SpreadWidths();
}

bool RuleList::HasNewChecks() const {
    const std::span<const config::Rule> rules = rules_();
    for (size_t row = 0; row < listed_.size(); ++row)
        if (listed_[row] < rules.size() && view_.IsChecked(row) != (rules[listed_[row]].IsOn != 0)) return true;
    return false;
}

std::wstring RuleList::Cell(size_t row, size_t column) const {
    const std::span<const config::Rule> rules = rules_();
    if (row >= listed_.size() || listed_[row] >= rules.size()) return {};
    return RuleCell(rules[listed_[row]], listed_[row], static_cast<RuleColumn>(column));
}

void RuleList::ShowDetails(const ui::ListHit& hit) const {
    if (!hit.row || hit.column >= RuleColumnHeaders().size()) return;
    const std::span<const config::Rule> rules = rules_();
    const size_t position = listed_.at(*hit.row);
    if (position >= rules.size()) return;

    const std::wstring title(RuleColumnHeaders()[hit.column]);
    const auto column = static_cast<RuleColumn>(hit.column);
    if (column == RuleColumn::Extra) {
        using errors::WarningBox;
        WarningBox(services_.Screen, &owner_, WarningBox::Kind::Warning, ExtraDetails(rules[position]), title)
            .DoModal();
        return;
    }
    const std::wstring text = column == RuleColumn::Masks ? MaskDetails(rules[position]) : Cell(*hit.row, hit.column);
    services_.Screen.ShowMessageBox(&owner_, text, title, ui::box::Ok | ui::box::InformationIcon);
}

bool SwitchRules(const std::vector<bool>& checks, std::vector<config::Rule>& rules) {
    bool changed = false;
    for (size_t i = 0; i < rules.size(); ++i) {
        config::Rule& rule = rules[i];
        if (rule.Operation.empty()) continue;
        const bool checked = i >= checks.size() || checks[i];
        if (checked ? rule.IsOn == 1 : rule.IsOn == 0) continue;
        rule.IsOn = checked ? 1 : 0;
        changed = true;
    }
    return changed;
}

}  // namespace app
