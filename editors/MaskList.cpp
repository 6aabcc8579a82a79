#include "editors/MaskList.h"

#include "editors/AddMask.h"
#include "errors/MessageBoxes.h"
#include "platform/Machine.h"
#include "text/Format.h"

namespace editors {

MaskList::MaskList(ui::ListView& view, ui::Dialog& owner, ui::Screen& screen,
                   std::vector<std::wstring>& masks, std::vector<std::wstring> suggestions)
    : view_(view),
      owner_(owner),
      screen_(screen),
      masks_(masks),
      suggestions_(std::move(suggestions)) {
    view_.SetCells([this](size_t row, size_t) { return row < masks_.size() ? masks_[row] : std::wstring(); });
    view_.OnDoubleClick([this](const ui::ListHit& hit) {
        if (hit.row) Edit();
    });
    view_.OnRightClick([this](const ui::ListHit& hit) { ShowWhole(hit); });
}

void MaskList::CreateColumn() {
    const int scrollBar = screen_.Metrics().VerticalScrollBarWidth(owner_.Dpi());
    view_.SetColumns({{.header = L"Masks", .width = view_.ClientWidth() - scrollBar}});
}

void MaskList::Refill() {
    view_.SetRows(masks_.size());
    view_.SetColumnWidths({view_.ClientWidth()});
}

void MaskList::Add() {
    AddMask dialog(screen_, &owner_, suggestions_);
    if (dialog.DoModal() != ui::IdOk) return;
    masks_.push_back(dialog.Mask());
    Refill();
}

void MaskList::Edit() {
    const auto row = view_.FirstSelected();
    if (!row) return;
    AddMask dialog(screen_, &owner_, suggestions_, masks_.at(*row));
    if (dialog.DoModal() != ui::IdOk) return;
    masks_.at(*row) = dialog.Mask();
    Refill();
}

void MaskList::Delete() {
    const size_t count = view_.SelectedRows().size();
    if (count == 0) return;
    if (!errors::Confirm(screen_, &owner_, text::Format(L"Delete %d mask(s)?", count))) return;
    std::vector<std::wstring> kept;
    for (size_t row = 0; row < masks_.size(); ++row)
        if (!view_.IsSelected(row)) kept.push_back(std::move(masks_[row]));
    masks_ = std::move(kept);
    Refill();
}

void MaskList::ShowWhole(const ui::ListHit& hit) const {
    if (!hit.row) return;
    // A mask may be longer than the column is wide.
    screen_.ShowMessageBox(&owner_, masks_.at(*hit.row), L"Mask", ui::box::Ok | ui::box::InformationIcon);
}

}  // namespace editors
