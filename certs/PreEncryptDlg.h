// The certificate picker: owner names gathered from the stores and from files above, the chosen ones below.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "certs/NameRows.h"
#include "certs/PickerNames.h"
#include "config/Records.h"
#include "config/RegistryLayout.h"
#include "config/Services.h"
#include "crypto/CertificateSearch.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace certs {

class CPreEncryptDlg : public ui::Dialog {
  public:
    // chosen: the names to begin with. The search has to outlive the dialog.
    CPreEncryptDlg(const config::Services& services, ui::Dialog* owner, crypto::CertificateSearch& search,
                   crypto::PickerSettings settings, const std::vector<config::CertificateRef>& chosen);

    // Before it opens: lets the members of a signer list be chosen instead of recipients. name: of the edited
    // list; empty for a new one. existing: all lists, the edited one among them.
    void EditSignerList(std::wstring name, std::vector<config::SignerListEntry> existing);
    void SetLdapUsable(bool usable) { fromLdap_.Enable(usable); }

    // As accepted by OK: every one of them has a certificate.
    const std::vector<config::CertificateRef>& Result() const { return result_; }
    const std::wstring& ListName() const { return listName_; }

    ui::Size MinimumTrackSize() const override;

  private:
    // A list view and what it shows.
    struct List {
        ui::ListView& view;
        NameRows rows;
    };

    void OnInitDialog() override;
    void OnOK() override;
    void OnResized() override { FitColumns(); }

    void Connect(List& list, const std::wstring& kind);
    void CreateColumns();
    void FitColumns();
    static void Show(List& list, std::vector<NameId> names);
    void RefillCandidates();
    void RefillChosen();
    void Sort(List& list);
    void FlipAndSort(List& list);

    void AddFromLocalStore();
    void AddFromGroup();
    void AddFromLdap();
    void SaveGroup();
    void CheckAll(bool checked);
    void DeleteAll();
    void Choose();  // the checked candidates
    void ExcludeOtherSigners();
    void RemoveChosen();  // the checked ones

    bool MayTakeName(const std::wstring& name);
    enum class Answer { Keep, Drop, Stay };
    Answer Check(const config::CertificateRef& name);

    const config::Services services_;
    crypto::CertificateSearch& search_;
    const crypto::PickerSettings settings_;
    bool listMode_ = false;
    std::wstring editedList_;
    std::vector<config::SignerListEntry> existingLists_;
    Candidates candidateNames_;
    ChosenNames chosenNames_;
    std::wstring groupsPath_;  // of the file opened or saved last
    // Of the last search in LDAP: the next one begins with them.
    std::wstring lastSample_;
    std::optional<size_t> lastRow_;
    std::vector<config::CertificateRef> result_;
    std::wstring listName_;

    ui::Label sortLabel_{*this, 1210, {7, 9, 50, 8}, L"Sort field:"};
    ui::ComboBox sortField_{*this, 1211, {60, 7, 333, 14, ui::GrowX}, [this] { Sort(candidates_); }};
    ui::Label filterLabel_{*this, 1212, {7, 27, 50, 8}, L"Filter"};
    ui::Edit filter_{*this, 1213, {60, 25, 333, 14, ui::GrowX}, {}, [this] { RefillCandidates(); }};

    ui::ListView candidateView_{
        *this, 1214, {7, 44, 303, 121, ui::GrowBoth}, {.checkBoxes = true, .sortableHeaders = true}};
    ui::Button fromLocalStore_{
        *this, 1215, {317, 44, 76, 14, FollowRight}, L"From local store", [this] { AddFromLocalStore(); }};
    ui::Button fromGroup_{*this, 1216, {317, 61, 76, 14, FollowRight}, L"From group", [this] { AddFromGroup(); }};
    ui::Button fromLdap_{*this, 1217, {317, 78, 76, 14, FollowRight}, L"From LDAP", [this] { AddFromLdap(); }};
    ui::Button selectAll_{*this, 1218, {317, 97, 76, 14, FollowRight}, L"Select all", [this] { CheckAll(true); }};
    ui::Button clear_{*this, 1219, {317, 114, 76, 14, FollowRight}, L"Clear", [this] { CheckAll(false); }};
    ui::Button deleteAll_{*this, 1220, {317, 131, 76, 14, FollowRight}, L"Delete all", [this] { DeleteAll(); }};
    ui::Button save_{*this, 1221, {317, 150, 76, 14, FollowRight}, L"Save", [this] { SaveGroup(); }};

    ui::IconButton choose_{
        *this, 1027, {168, 169, 28, 20, FollowMiddle}, ui::Icon::MoveDown, L"Add", [this] { Choose(); }};
    ui::IconButton remove_{
        *this, 1028, {204, 169, 28, 20, FollowMiddle}, ui::Icon::MoveUp, L"Remove", [this] {
            RemoveChosen(); }};

    ui::ListView chosenView_{
        *this, 1222, {7, 193, 303, 70, FollowBottom}, {.checkBoxes = true, .sortableHeaders = true}};

    ui::Label nameLabel_{*this, 1223, {7, 271, 50, 8, MoveDown}, L"List name:"};
    ui::Edit name_{
        *this, 1224, {60, 269, 222, 14, FollowBottom}, {.longest = config::LongestKeyName, .refused = L"\\"}};
    ui::Button ok_{*this, ui::IdOk, {289, 269, 50, 14, ui::MoveBoth}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {343, 269, 50, 14, ui::MoveBoth}, L"Exit"};

    List candidates_{candidateView_, NameRows(candidateNames_.Names())};
    List chosen_{chosenView_, NameRows(chosenNames_.Names())};

    static constexpr ui::Follow FollowRight{100, 0, 0, 0};
    static constexpr ui::Follow FollowMiddle{50, 100, 0, 0};
    static constexpr ui::Follow FollowBottom{0, 100, 100, 0};
    static constexpr ui::Follow MoveDown{0, 100, 0, 0};
};

}  // namespace certs
