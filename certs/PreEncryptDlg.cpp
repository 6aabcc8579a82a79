#include "certs/PreEncryptDlg.h"

#include <algorithm>

#include "certs/NameFields.h"
#include "errors/MessageBoxes.h"
#include "platform/Machine.h"
#include "text/Format.h"

namespace certs {
namespace {

bool HasName(const std::vector<config::SignerListEntry>& lists, const std::wstring& name) {
    return std::any_of(lists.begin(), lists.end(), [&name](const auto& list) { return list.Name == name; });
}

}  // namespace

CPreEncryptDlg::CPreEncryptDlg(const config::Services& services, ui::Dialog* owner, crypto::CertificateSearch& search,
                               crypto::PickerSettings settings, const std::vector<config::CertificateRef>& chosen)
    : Dialog(services.Screen, owner, {.size = {400, 290}, .guidePage = L"certificates", .resizable = true}),
      services_(services),
      search_(search),
      settings_(std::move(settings)),
      chosenNames_(chosen) {
    candidateView_.SetName(L"Subjects");
    chosenView_.SetName(L"Recipients");
}

void CPreEncryptDlg::EditSignerList(std::wstring name, std::vector<config::SignerListEntry> existing) {
    listMode_ = true;
    chosenView_.SetName(L"Signers");
    editedList_ = std::move(name);
    existingLists_ = std::move(existing);
}

void CPreEncryptDlg::OnInitDialog() {
    SetIcon(listMode_ ? ui::Icon::Signers : ui::Icon::Recipients);
    SetCaption(!listMode_ ? L"Add recipients" : editedList_.empty() ? L"Add list" : L"Edit list");
    for (ui::Control* ofLists : std::initializer_list<ui::Control*>{&nameLabel_, &name_}) {
        ofLists->Show(listMode_);
        ofLists->Enable(listMode_);
    }
    name_.SetText(editedList_);
    sortField_.SetItems(OfferedFieldLabels());
    sortField_.Select(0);
    Connect(candidates_, L"Subject");
    Connect(chosen_, listMode_ ? L"Signer" : L"Recipient");
    CreateColumns();
    RefillCandidates();
    RefillChosen();
    if (chosen_.rows.Count() == 0) fromLocalStore_.SetFocus();
}

// kind: what the names of the list are.
void CPreEncryptDlg::Connect(List& list, const std::wstring& kind) {
    list.view.SetCells([&list](size_t row, size_t) {
        return row < list.rows.Count() ? std::wstring(list.rows.Text(row)) : std::wstring();
    });
    list.view.OnHeaderClick([this, &list](size_t) { FlipAndSort(list); });
    const auto showName = [this, &list, kind](size_t row) {
        Screen().ShowMessageBox(this, NameInLines(list.rows.Text(row)), kind, ui::box::Ok | ui::box::InformationIcon);
    };
    list.view.OnDoubleClick([showName](const ui::ListHit& hit) {
        if (hit.row) showName(*hit.row);
    });
    list.view.OnDetails(showName);
}

void CPreEncryptDlg::CreateColumns() {
    candidateView_.SetColumns({{.header = L"Subjects"}});
    chosenView_.SetColumns({{.header = listMode_ ? L"Signers" : L"Recipients"}});
    FitColumns();
}

void CPreEncryptDlg::FitColumns() {
    const int scrollBar = Screen().Metrics().VerticalScrollBarWidth(Dpi());
    for (ui::ListView* view : {&candidateView_, &chosenView_})
        view->SetColumnWidths({std::max(0, view->ClientWidth() - scrollBar)});
}

ui::Size CPreEncryptDlg::MinimumTrackSize() const {
    const int dpi = static_cast<int>(Dpi());
    return {540 * dpi / 96, 434 * dpi / 96};
}

void CPreEncryptDlg::RefillCandidates() {
    Show(candidates_, candidateNames_.Listed(filter_.Text()));
}

void CPreEncryptDlg::RefillChosen() {
    Show(chosen_, chosenNames_.Listed());
}

// The view first: without memory for its rows the old ones stay, with their names.
void CPreEncryptDlg::Show(List& list, std::vector<NameId> names) {
    list.view.SetRows(names.size());
    list.rows.Show(std::move(names));
}

// The direction is what the header's arrow says; where there is none yet, upwards.
void CPreEncryptDlg::Sort(List& list) {
    const std::optional<size_t> field = sortField_.Selected();
    if (!field) return;
    const bool descending = list.view.Columns().front().arrow == ui::SortArrow::Down;
    const std::vector<uint32_t> order = list.rows.SortedOrder(Fields().at(*field).key, descending);
    std::vector<NameId> sorted = list.rows.InOrder(order);
    list.view.Reorder(order);
    list.rows.Show(std::move(sorted));
}

void CPreEncryptDlg::FlipAndSort(List& list) {
    const bool wasUp = list.view.Columns().front().arrow == ui::SortArrow::Up;
    list.view.SetSortArrow(0, wasUp ? ui::SortArrow::Down : ui::SortArrow::Up);
    Sort(list);
}

void CPreEncryptDlg::OnOK() {
    std::wstring name = name_.Text();
    if (listMode_ && !MayTakeName(name)) return;
    std::vector<config::CertificateRef> kept;
    for (size_t row = 0; row < chosen_.rows.Count(); ++row) {
        config::CertificateRef owner(chosen_.rows.Text(row));
        const Answer answer = Check(owner);
        if (answer == Answer::Stay) return;
        if (answer == Answer::Keep) kept.push_back(std::move(owner));
    }
    if (listMode_ && kept.empty()) return errors::Warn(Screen(), this, L"No users selected.");
    result_ = std::move(kept);
    listName_ = std::move(name);
    EndDialog(ui::IdOk);
}

bool CPreEncryptDlg::MayTakeName(const std::wstring& name) {
    if (name.empty()) {
        errors::Warn(Screen(), this, L"No list name");
    } else if (name != editedList_ && HasName(existingLists_, name)) {
        errors::Warn(Screen(), this, L"List with this name already exists");
    } else {
        return true;
    }
    name_.SetFocus();
    return false;
}

// Whether there is a certificate, and if not, whether the user wants to go on without this owner.
CPreEncryptDlg::Answer CPreEncryptDlg::Check(const config::CertificateRef& name) {
    crypto::OwnerCertificates found;
    {
        const ui::WaitCursor wait(Screen());
        if (!search_.FindCertificatesByName(*this, name, found)) return Answer::Stay;
    }
    if (!found.Texts.empty()) return Answer::Keep;
    const std::wstring question =
        text::Format(L"No certificates found for user %s.\r\nContinue to check other users?", std::wstring_view(name));
    return errors::Confirm(Screen(), this, question) ? Answer::Drop : Answer::Stay;
}

}  // namespace certs
