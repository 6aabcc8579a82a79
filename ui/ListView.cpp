#include "ui/ListView.h"

#include <algorithm>

#include "ui/Dialog.h"
#include "ui/Window.h"

namespace ui {

ListView::ListView(Dialog& owner, int id, const Place& place, const ListStyle& style)
    : Control(owner, id, place, {}),
      style_(style) {}

void ListView::SetColumns(std::vector<Column> columns) {
    chosenWidths_.reserve(columns.size());
    columns_ = std::move(columns);
    NoteWidths();
    Changed(Aspect::Columns);
}

void ListView::SetColumnWidths(const std::vector<int>& pixels) {
    for (size_t i = 0; i < columns_.size(); ++i) columns_[i].width = pixels.at(i);
    NoteWidths();
    Changed(Aspect::Columns);
}

void ListView::UserResizedColumn(size_t column, int width) {
    columns_[column].width = width;
    NoteWidths();
}

void ListView::NoteWidths() {
    chosenDpi_ = Owner().Dpi();
    chosenWidths_.clear();
    for (const Column& column : columns_) chosenWidths_.push_back(column.width);
}

void ListView::FollowDpi(uint32_t dpi) {
    for (size_t i = 0; i < columns_.size(); ++i) columns_[i].width = Scaled(chosenWidths_[i], dpi, chosenDpi_);
    Changed(Aspect::Columns);
}

void ListView::SetSortArrow(size_t column, SortArrow arrow) {
    for (size_t i = 0; i < columns_.size(); ++i) columns_[i].arrow = i == column ? arrow : SortArrow::None;
    Changed(Aspect::Columns);
}

int ListView::ClientWidth() const {
    return Owner().ClientWidthOf(*this);
}

void ListView::SetRows(size_t count) {
    SetRows(std::vector<bool>(count));
}

void ListView::SetRows(std::vector<bool> checks) {
    std::vector<bool> selection(checks.size());
    rowCount_ = checks.size();
    checks_ = std::move(checks);
    selection_ = std::move(selection);
    focusedRow_.reset();
    scrollTarget_ = 0;
    Changed(Aspect::Rows);
}

void ListView::RefreshRows() {
    Changed(Aspect::RowChecks);
}

void ListView::Reorder(std::span<const uint32_t> order) {
    std::vector<bool> checks(rowCount_);
    std::vector<bool> selection(rowCount_);
    const std::optional<size_t> focused = focusedRow_;
    for (size_t row = 0; row < rowCount_; ++row) {
        checks[row] = checks_[order[row]];
        selection[row] = selection_[order[row]];
        if (focused == order[row]) focusedRow_ = row;
    }
    checks_ = std::move(checks);
    selection_ = std::move(selection);
    Changed(Aspect::Selection);
    Changed(Aspect::RowChecks);
}

void ListView::SetChecks(std::vector<bool> checks) {
    checks_ = std::move(checks);
    checks_.resize(rowCount_);
    Changed(Aspect::RowChecks);
}

std::optional<size_t> ListView::FirstSelected() const {
    const auto first = std::find(selection_.begin(), selection_.end(), true);
    if (first == selection_.end()) return std::nullopt;
    return static_cast<size_t>(first - selection_.begin());
}

std::vector<size_t> ListView::SelectedRows() const {
    std::vector<size_t> rows;
    for (size_t row = 0; row < rowCount_; ++row)
        if (selection_[row]) rows.push_back(row);
    return rows;
}

void ListView::SelectOnly(size_t row) {
    selection_.assign(rowCount_, false);
    selection_.at(row) = true;
    focusedRow_ = row;
    Changed(Aspect::Selection);
}

void ListView::SelectAll() {
    selection_.assign(rowCount_, true);
    Changed(Aspect::Selection);
}

bool ListView::AreAllSelected() const {
    return std::find(selection_.begin(), selection_.end(), false) == selection_.end();
}

void ListView::FocusRow(size_t row) {
    focusedRow_ = row;
    Changed(Aspect::Selection);
}

void ListView::EnsureVisible(size_t row) {
    scrollTarget_ = row;
    Changed(Aspect::Scroll);
}

void ListView::UserSelected(size_t first, size_t last, bool selected) {
    const auto at = [this](size_t row) { return selection_.begin() + static_cast<std::ptrdiff_t>(row); };
    if (first < rowCount_ && first <= last) std::fill(at(first), at(std::min(last, rowCount_ - 1) + 1), selected);
    if (selected && first == last && first < rowCount_ && onSelect_) onSelect_(first);
}

void ListView::UserToggledCheck(size_t row) {
    checks_.at(row) = !checks_.at(row);
    Changed(Aspect::RowChecks);
}

// One row decides, all selected rows get the same.
void ListView::TurnChecksOver(size_t deciding) {
    const bool checked = !checks_.at(deciding);
    for (const size_t row : SelectedRows()) checks_[row] = checked;
    checks_[deciding] = checked;
    Changed(Aspect::RowChecks);
}

bool ListView::UserPressed(const KeyChord& chord) {
    if (chord == KeyChord{.key = 'A', .control = true} && !style_.singleSelection) {
        SelectAll();
        return true;
    }
    if (chord == KeyChord{.key = key::Space} && style_.checkBoxes && focusedRow_) {
        TurnChecksOver(*focusedRow_);
        return true;
    }
    const bool asksForDetails =
        chord == KeyChord{.key = key::Menu} || chord == KeyChord{.key = key::F10, .shift = true};
    if (!asksForDetails || !onDetails_ || !focusedRow_) return false;
    onDetails_(*focusedRow_);
    return true;
}

void ListView::UserClicked(const ListHit& hit) {
    if (onClick_) onClick_(hit);
}

void ListView::UserDoubleClicked(const ListHit& hit) {
    if (onDoubleClick_) onDoubleClick_(hit);
}

void ListView::UserRightClicked(const ListHit& hit) {
    if (onRightClick_) onRightClick_(hit);
}

void ListView::UserPressedKey(int virtualKey) {
    if (onKeyDown_) onKeyDown_(virtualKey);
}

void ListView::UserClickedHeader(size_t column) {
    if (onHeaderClick_) onHeaderClick_(column);
}

}  // namespace ui
