#include "tests/editors/PreparedCertificates.h"

#include "tests/support/Ids.h"
#include "ui/ListView.h"

namespace tests {
namespace {

template <class C>
C& Get(const ui::Dialog& dialog, int id) {
    return dynamic_cast<C&>(dialog.Find(id));
}

void Click(const ui::Dialog& dialog, int id) {
    if (auto* button = dynamic_cast<ui::Button*>(&dialog.Find(id))) return button->UserClicked();
    Get<ui::IconButton>(dialog, id).UserClicked();
}

void CheckAll(const ui::Dialog& dialog, int list) {
    auto& view = Get<ui::ListView>(dialog, list);
    view.SetChecks(std::vector<bool>(view.RowCount(), true));
}

std::vector<std::wstring> FirstColumn(const ui::Dialog& dialog, int list) {
    const auto& view = Get<ui::ListView>(dialog, list);
    std::vector<std::wstring> cells;
    for (size_t row = 0; row < view.RowCount(); ++row) cells.push_back(view.CellText(row, 0));
    return cells;
}

}  // namespace

PreparedCertificates::PreparedCertificates(World& world)
    : real_(world.Screen()),
      forms_(world.Machine().ScreenMetrics, *this) {
    world.CryptoLibrary().Install(demo::StandInLibrary::Exports());
}

std::vector<config::CertificateRef> PreparedCertificates::Recipients(size_t count) {
    std::vector<config::CertificateRef> names;
    for (size_t i = 0; i < count; ++i) names.push_back(L"CN=Anna " + std::to_wstring(i));
    return names;
}

std::vector<config::SignerListEntry> PreparedCertificates::SignerLists(size_t count) {
    std::vector<config::SignerListEntry> lists;
    for (size_t i = 0; i < count; ++i)
        lists.push_back({L"list " + std::to_wstring(i), {L"CN=Dora " + std::to_wstring(i)}});
    return lists;
}

std::vector<std::string> PreparedCertificates::OpenedFor() const {
    const std::string opening = "Initialize \"";
    std::vector<std::string> names;
    for (const std::string& call : library_.Calls())
        if (call.starts_with(opening)) names.push_back(call.substr(opening.size(), call.rfind('"') - opening.size()));
    return names;
}

int PreparedCertificates::RunModal(ui::Dialog& dialog) {
    const bool isForm = dynamic_cast<certs::CPreEncryptDlg*>(&dialog) != nullptr ||
                        dynamic_cast<certs::SignerList*>(&dialog) != nullptr;
    if (!isForm) return real_.RunModal(dialog);
    const bool wasInForms = std::exchange(inForms_, true);
    const int result = forms_.RunModal(dialog);
    inForms_ = wasInForms;
    return result;
}

int PreparedCertificates::ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                                         uint32_t flags) {
    return inForms_ ? forms_.ShowMessageBox(owner, text, caption, flags)
                    : real_.ShowMessageBox(owner, text, caption, flags);
}

void PreparedCertificates::DialogOpened(ui::Dialog& dialog) {
    if (auto* form = dynamic_cast<certs::SignerList*>(&dialog)) return EditLists(*form);
    auto& picker = dynamic_cast<certs::CPreEncryptDlg&>(dialog);
    if (addedList_ != nullptr) {
        Get<ui::Edit>(picker, pickid::Name).UserTyped(addedList_->Name);
        return Pick(picker, addedList_->Signers);
    }
    givenRecipients = FirstColumn(picker, pickid::Chosen);
    lastOwner = picker.Parent();
    if (!recipients) return picker.UserPressedCancel();
    Pick(picker, *recipients);
}

void PreparedCertificates::EditLists(certs::SignerList& form) {
    givenLists = form.Lists();
    lastOwner = form.Parent();
    if (!signerLists) return form.UserPressedCancel();
    Get<ui::ListView>(form, signersid::List).SelectAll();
    Click(form, signersid::Delete);
    for (const config::SignerListEntry& list : *signerLists) {
        addedList_ = &list;
        Click(form, signersid::Add);
    }
    addedList_ = nullptr;
    form.UserPressedOk();
}

void PreparedCertificates::Pick(certs::CPreEncryptDlg& picker, const std::vector<config::CertificateRef>& names) {
    CheckAll(picker, pickid::Chosen);
    Click(picker, pickid::Remove);
    demo::StandInOwners owners;
    for (const std::wstring& name : names)
        owners.Certificates.push_back({.OwnerName = std::string(name.begin(), name.end())});
    library_.Serve(owners);
    Click(picker, pickid::FromLocalStore);
    CheckAll(picker, pickid::Candidates);
    Click(picker, pickid::Choose);
    picker.UserPressedOk();
}

}  // namespace tests
