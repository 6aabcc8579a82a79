#include "editors/MaskList.h"

#include "errors/MessageBoxes.h"
#include "platform/Machine.h"
#include "text/Format.h"
#include "ui/RemoveRows.h"

namespace editors {

AddMask::AddMask(ui::Screen& screen, ui::Dialog* owner, std::vector<std::wstring> suggestions, std::wstring mask)
    : Dialog(screen, owner, {.size = {200, 50}, .guidePage = L"rules"}, L"Mask") {
    combo_.SetItems(std::move(suggestions));
    combo_.SetText(std::move(mask));
    combo_.SetName(Caption());
}

void AddMask::OnOK() {
    if (combo_.Text().empty()) {
        errors::Warn(Screen(), this, L"No Mask selected.");
        combo_.SetFocus();
        return;
    }
    mask_ = combo_.Text();
    EndDialog(ui::IdOk);
}

MaskList::MaskList(ui::ListView& view, ui::Dialog& owner, ui::Screen& screen, std::vector<std::wstring>& masks,
                   MaskSuggestions suggestions)
    : view_(view),
      owner_(owner),
      screen_(screen),
      masks_(masks),
      suggestions_(std::move(suggestions)) {
    view_.SetCells([this](size_t row, size_t) { return row < masks_.size() ? masks_[row] : std::wstring(); });
    view_.OnDoubleClick([this](const ui::ListHit& hit) {
        if (hit.row) Edit();
    });
    view_.OnKeyDown([this](int virtualKey) {
        if (virtualKey == ui::key::Delete) Delete();
    });
    view_.OnRightClick([this](const ui::ListHit& hit) { ShowWhole(hit); });
    view_.OnDetails([this](size_t row) { ShowWhole({row, 0}); });
}

void MaskList::CreateColumn() {
    const int scrollBar = screen_.Metrics().VerticalScrollBarWidth(owner_.Dpi());
    view_.SetColumns({{.header = L"Masks", .width = view_.ClientWidth() - scrollBar}});
}

void MaskList::Refill() {
    view_.SetRows(0);  // the rows that follow may not be had
    view_.SetRows(masks_.size());
    view_.SetColumnWidths({view_.ClientWidth()});
}

void MaskList::Add() {
    AddMask dialog(screen_, &owner_, suggestions_());
    if (dialog.DoModal() != ui::IdOk) return;
    masks_.push_back(dialog.Mask());
    Refill();
}

void MaskList::Edit() {
    const auto row = view_.FirstSelected();
    if (!row) return;
    AddMask dialog(screen_, &owner_, suggestions_(), masks_.at(*row));
    if (dialog.DoModal() != ui::IdOk) return;
    masks_.at(*row) = dialog.Mask();
    Refill();
}

void MaskList::Delete() {
    const std::vector<size_t> rows = view_.SelectedRows();
    if (rows.empty()) return;
    if (!errors::Confirm(screen_, &owner_, text::Format(L"Delete %d mask(s)?", rows.size()))) return;
    ui::RemoveRows(masks_, rows);
    Refill();
}

void MaskList::ShowWhole(const ui::ListHit& hit) const {
    if (!hit.row) return;
    // A mask may be longer than the column is wide.
    screen_.ShowMessageBox(&owner_, masks_.at(*hit.row), L"Mask", ui::box::Ok | ui::box::InformationIcon);
}

}  // namespace editors
