// The picker's buttons: where candidates come from, and how they are chosen.
#include "certs/FilterDlg.h"
#include "certs/GroupsFile.h"
#include "certs/OwnerSearch.h"
#include "certs/PreEncryptDlg.h"
#include "errors/MessageBoxes.h"

namespace certs {

void CPreEncryptDlg::AddFromLocalStore() {
    const ui::WaitCursor wait(Screen());
    crypto::NameList found;
    if (!search_.FindAllLocalNames(*this, found)) return;
    for (size_t i = 0; i < found.Size(); ++i) candidateNames_.Add(found[i]);
    groupsPath_.clear();
    RefillCandidates();
}

void CPreEncryptDlg::AddFromLdap() {
    CFilterDlg form(Screen(), this, lastSample_, lastRow_);
    if (form.DoModal() != ui::IdOk) return;
    lastSample_ = form.Sample();
    lastRow_ = form.Row();
    const OwnerSearch wanted(form.Field(), form.Sample());
    bool anyMeant = false;
    {
        const ui::WaitCursor wait(Screen());
        crypto::NameList found;
        if (!search_.FindOwnerNames(*this, wanted.Pattern(), found)) return;
        for (size_t i = 0; i < found.Size(); ++i) {
            if (!wanted.IsMeant(found[i])) continue;
            candidateNames_.Add(found[i]);
            anyMeant = true;
        }
    }
    if (!anyMeant) return errors::Warn(Screen(), this, L"No certificates found for your request");
    groupsPath_.clear();
    RefillCandidates();
}

void CPreEncryptDlg::AddFromGroup() {
    const auto path = Screen().PickFile(this, GroupsFileToOpen(groupsPath_, settings_.GroupFilesFolder));
    if (!path) return;
    groupsPath_ = *path;
    const ui::WaitCursor wait(Screen());
    const auto add = [this](std::wstring_view name) { candidateNames_.Add(name); };
    if (ReadGroupsFile(services_, this, *path, add)) RefillCandidates();
}

void CPreEncryptDlg::SaveGroup() {
    std::vector<std::wstring_view> names;
    for (const NameId id : candidates_.rows.Checked(candidateView_.Checks()))
        names.push_back(candidateNames_.Names()[id]);
    if (names.empty()) return errors::Warn(Screen(), this, listMode_ ? L"No signers selected." : L"No users selected.");
    const auto path = Screen().PickFile(this, GroupsFileToSave(groupsPath_, settings_.GroupFilesFolder));
    if (!path) return;
    groupsPath_ = *path;
    const ui::WaitCursor wait(Screen());
    static_cast<void>(WriteGroupsFile(services_, this, *path, names));  // a failure has been reported
}

void CPreEncryptDlg::CheckAll(bool checked) {
    candidateView_.SetChecks(std::vector<bool>(candidates_.rows.Count(), checked));
}

void CPreEncryptDlg::DeleteAll() {
    if (candidates_.rows.Count() == 0) return;
    if (!errors::Confirm(Screen(), this, L"Delete all list items?")) return;
    Show(candidates_, {});
    candidateNames_.Clear();
    groupsPath_.clear();
}

void CPreEncryptDlg::Choose() {
    for (const NameId id : candidates_.rows.Checked(candidateView_.Checks()))
        chosenNames_.Add(candidateNames_.Names()[id]);
    ExcludeOtherSigners();
    RefillChosen();
}

void CPreEncryptDlg::ExcludeOtherSigners() {
    const std::wstring removals = chosenNames_.ExcludeSignersOf(existingLists_, editedList_);
    if (removals.empty()) return;
    using errors::WarningBox;
    WarningBox(Screen(), this, WarningBox::Kind::Warning,
               L"Following signers are used in other lists and had been excluded:\r\n\r\n" + removals)
        .DoModal();
}

// The rows that stay keep the order in which they are shown.
void CPreEncryptDlg::RemoveChosen() {
    const std::vector<NameId> removed = chosen_.rows.Checked(chosenView_.Checks());
    Show(chosen_, chosen_.rows.Checked(chosenView_.Checks(), false));
    chosenNames_.RemoveEvery(removed);
}

}  // namespace certs
