// A list in report view: columns, and rows whose cells are asked for only when they are drawn. Selection and
// check marks are kept here, so that a list of a million rows costs the texts of the few that are seen.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "ui/Control.h"

namespace ui {

// The direction in which the rows are sorted by a column. The numbers are those of the pictures that its
// header shows.
enum class SortArrow { None = -1, Down = 0, Up = 1 };

struct Column {
    std::wstring header;
    int width = 0;  // pixels
    SortArrow arrow = SortArrow::None;
    bool operator==(const Column&) const = default;
};

struct ListStyle {
    bool singleSelection = false;
    bool checkBoxes = false;
    bool sortableHeaders = false;  // headers look and act like buttons
};

// Where the user clicked. No row: beside or below the rows.
struct ListHit {
    std::optional<size_t> row;
    size_t column = 0;
};

class ListView : public Control {
  public:
    using Cell = std::function<std::wstring(size_t row, size_t column)>;
    using HitHandler = std::function<void(const ListHit& hit)>;

    ListView(Dialog& owner, int id, const Place& place, const ListStyle& style = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    const ListStyle& Style() const { return style_; }

    const std::vector<Column>& Columns() const { return columns_; }
    void SetColumns(std::vector<Column> columns);
    void SetColumnWidths(const std::vector<int>& pixels);
    void FollowDpi(uint32_t dpi) override;
    void SetSortArrow(size_t column, SortArrow arrow);  // of this column; every other column loses its arrow

    // Pixels inside the border, without the vertical scroll bar when one is shown.
    int ClientWidth() const;

    // Where cells come from; the model behind it must outlive the rows.
    void SetCells(Cell cell) { cell_ = std::move(cell); }
    std::wstring CellText(size_t row, size_t column) const { return cell_(row, column); }

    size_t RowCount() const { return rowCount_; }
    // Shows this many rows: none selected, none checked, scrolled to the top.
    void SetRows(size_t count);
    // The same with check marks, one for each row.
    void SetRows(std::vector<bool> checks);
    // Draws the rows anew because their cells changed.
    void RefreshRows();
    // The same rows in another order: each keeps its check mark and its selection. order: for every place the
    // row that stood elsewhere before.
    void Reorder(std::span<const uint32_t> order);

    bool IsChecked(size_t row) const { return checks_[row]; }
    const std::vector<bool>& Checks() const { return checks_; }
    void SetChecks(std::vector<bool> checks);

    bool IsSelected(size_t row) const { return selection_[row]; }
    std::optional<size_t> FirstSelected() const;
    std::vector<size_t> SelectedRows() const;  // ascending
    bool AreAllSelected() const;
    void SelectOnly(size_t row);  // also gives it the list's own focus mark
    void SelectAll();
    std::optional<size_t> FocusedRow() const { return focusedRow_; }

    void FocusRow(size_t row);  // gives it the list's own focus mark; the selection stays as it is

    void EnsureVisible(size_t row);
    // The row that EnsureVisible last asked for.
    size_t ScrollTarget() const { return scrollTarget_; }

    // A single row that the user has selected, by the mouse or by a key; heard before a click on it.
    void OnSelect(std::function<void(size_t row)> handler) { onSelect_ = std::move(handler); }
    void OnClick(HitHandler handler) { onClick_ = std::move(handler); }
    void OnDoubleClick(HitHandler handler) { onDoubleClick_ = std::move(handler); }
    void OnRightClick(HitHandler handler) { onRightClick_ = std::move(handler); }
    void OnKeyDown(std::function<void(int virtualKey)> handler) { onKeyDown_ = std::move(handler); }
    // The menu key or Shift+F10: shows what a click shows that no key can stand for.
    void OnDetails(std::function<void(size_t row)> handler) { onDetails_ = std::move(handler); }
    void OnHeaderClick(std::function<void(size_t column)> handler) { onHeaderClick_ = std::move(handler); }

    // The user's hands. A click first changes the selection (reported through UserSelected), then is heard.
    void UserSelected(size_t first, size_t last, bool selected);  // rows first..last, both included
    void UserFocusedRow(std::optional<size_t> row) { focusedRow_ = row; }
    void UserToggledCheck(size_t row);
    bool UserPressed(const KeyChord& chord) override;
    void UserClicked(const ListHit& hit);
    void UserDoubleClicked(const ListHit& hit);
    void UserRightClicked(const ListHit& hit);
    void UserPressedKey(int virtualKey);
    void UserClickedHeader(size_t column);
    void UserResizedColumn(size_t column, int width);

  private:
    void TurnChecksOver(size_t deciding);
    void NoteWidths();

    const ListStyle style_;
    std::vector<Column> columns_;
    // The widths as somebody last chose them, and at which resolution.
    std::vector<int> chosenWidths_;
    uint32_t chosenDpi_ = 96;
    Cell cell_;
    size_t rowCount_ = 0;
    std::vector<bool> checks_;
    std::vector<bool> selection_;
    std::optional<size_t> focusedRow_;
    size_t scrollTarget_ = 0;
    std::function<void(size_t)> onSelect_;
    HitHandler onClick_;
    HitHandler onDoubleClick_;
    HitHandler onRightClick_;
    std::function<void(int)> onKeyDown_;
    std::function<void(size_t)> onDetails_;
    std::function<void(size_t)> onHeaderClick_;
};

}  // namespace ui
