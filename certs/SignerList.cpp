#include "certs/SignerList.h"

#include <algorithm>
#include <unordered_set>

#include "certs/PreEncryptDlg.h"
#include "crypto/LibrarySearch.h"
#include "crypto/OpenCryptoContext.h"
#include "errors/MessageBoxes.h"
#include "platform/Machine.h"
#include "text/Format.h"
#include "text/Numbers.h"

namespace certs {

SignerList::SignerList(const config::Services& services, ui::Dialog* owner, std::wstring csProfile,
                       crypto::PickerSettings settings, std::vector<config::SignerListEntry> lists)
    : Dialog(services.Screen, owner, {.size = {290, 162}, .guidePage = L"certificates", .resizable = true},
             L"Signer lists"),
      services_(services),
      csProfile_(std::move(csProfile)),
      settings_(std::move(settings)),
      lists_(std::move(lists)) {
    view_.SetName(Caption());
    view_.SetCells([this](size_t row, size_t column) { return Cell(row, column); });
    view_.OnDoubleClick([this](const ui::ListHit& hit) { ShowMembers(hit); });
    view_.OnDetails([this](size_t row) { ShowMembers({row, 0}); });
    AddShortcut({.key = ui::key::Insert}, &view_, add_);
    AddShortcut({.key = ui::key::F2}, &view_, edit_);
    AddShortcut({.key = ui::key::Delete}, &view_, delete_);
}

void SignerList::OnInitDialog() {
    SetIcon(ui::Icon::Signers);
    view_.SetColumns({{.header = L"List name"}, {.header = L"Signers"}});
    FitColumns();
    Refill();
}

void SignerList::FitColumns() {
    const int scrollBar = Screen().Metrics().VerticalScrollBarWidth(Dpi());
    const int half = std::max(0, view_.ClientWidth() - scrollBar) / 2;
    view_.SetColumnWidths({half, half});
}

ui::Size SignerList::MinimumTrackSize() const {
    const int dpi = static_cast<int>(Dpi());
    return {150 * dpi / 96, 75 * dpi / 96};
}

void SignerList::Refill() {
    view_.SetRows(0);  // the rows that follow may not be had
    shown_.clear();
    for (size_t i = 0; i < lists_.size(); ++i)
        if (!lists_[i].Name.empty()) shown_.push_back(i);
    view_.SetRows(shown_.size());
}

std::wstring SignerList::Cell(size_t row, size_t column) const {
    if (row >= shown_.size() || shown_[row] >= lists_.size()) return {};
    const config::SignerListEntry& list = lists_[shown_[row]];
    return column == 0 ? list.Name : text::Decimal(static_cast<int64_t>(list.Signers.size()));
}

void SignerList::Add() {
    auto added = RunPicker({});
    if (!added) return;
    lists_.push_back(std::move(*added));
    Refill();
}

void SignerList::Edit() {
    const auto row = view_.FirstSelected();
    if (!row) return;
    const size_t position = shown_.at(*row);
    auto edited = RunPicker(lists_.at(position));
    if (!edited || position >= lists_.size()) return;
    lists_[position] = std::move(*edited);
    Refill();
}

std::optional<config::SignerListEntry> SignerList::RunPicker(const config::SignerListEntry& list) {
    const ui::WaitCursor wait(Screen());  // closing the context may take long, too
    const auto opened = crypto::OpenCryptoContext(services_, *this, csProfile_, settings_);
    if (!opened) return std::nullopt;
    crypto::LibrarySearch search(services_, opened->Context, settings_);
    CPreEncryptDlg picker(services_, this, search, settings_, list.Signers);
    picker.EditSignerList(list.Name, lists_);
    picker.SetLdapUsable(opened->LdapUsable);
    if (picker.DoModal() != ui::IdOk) return std::nullopt;
    return config::SignerListEntry{picker.ListName(), picker.Result()};
}

void SignerList::Delete() {
    const std::vector<size_t> rows = view_.SelectedRows();
    if (rows.empty()) return;
    if (!errors::Confirm(Screen(), this, text::Format(L"Delete %d list(s)?", rows.size()))) return;
    std::unordered_set<std::wstring> names;
    for (const size_t row : rows) names.insert(lists_.at(shown_.at(row)).Name);
    std::erase_if(lists_, [&names](const auto& list) { return names.contains(list.Name); });
    Refill();
}

void SignerList::ShowMembers(const ui::ListHit& hit) {
    if (!hit.row) return;
    using errors::WarningBox;
    WarningBox(Screen(), this, WarningBox::Kind::Information, SignerListDetails(lists_.at(shown_.at(*hit.row))),
               L"Signer list")
        .DoModal();
}

std::wstring SignerListDetails(const config::SignerListEntry& list) {
    std::wstring details = L"List name: " + list.Name;
    for (size_t i = 0; i < list.Signers.size(); ++i)
        details += text::Format(L"\r\n\r\nSigner %d:\r\n%s", i + 1, list.Signers[i]);
    return details;
}

}  // namespace certs
