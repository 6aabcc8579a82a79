#include "certs/FilterDlg.h"

#include "certs/NameFields.h"
#include "certs/OwnerSearch.h"
#include "errors/MessageBoxes.h"
#include "text/Trim.h"

namespace certs {

CFilterDlg::CFilterDlg(ui::Screen& screen, ui::Dialog* owner, const std::wstring& sample, std::optional<size_t> row)
    : Dialog(screen, owner, {.size = {260, 100}, .guidePage = L"certificates"}, L"Filter"),
      row_(row) {
    sampleEdit_.SetText(sample);
}

void CFilterDlg::OnInitDialog() {
    std::vector<std::wstring> choices = OfferedFieldLabels();
    choices.emplace_back(L"<Search by entire name>");
    fieldList_.SetItems(std::move(choices));
    fieldList_.Select(row_);
    EnableOk();
}

std::optional<size_t> CFilterDlg::Field() const {
    return row_ < OfferedFieldCount() ? row_ : std::nullopt;
}

void CFilterDlg::EnableOk() {
    ok_.Enable(IsUsablePattern(sampleEdit_.Text()));
}

void CFilterDlg::OnOK() {
    const std::optional<size_t> chosen = fieldList_.Selected();
    if (!chosen) {
        errors::Warn(Screen(), this, L"Select field for filter");
        fieldList_.SetFocus();
        fieldList_.DropDown();
        return;
    }
    row_ = chosen;
    sample_ = text::Trim(sampleEdit_.Text(), L" ");
    EndDialog(ui::IdOk);
}

}  // namespace certs
