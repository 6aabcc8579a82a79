// The signer lists of a rule: shown, added, edited and deleted.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "config/Records.h"
#include "config/Services.h"
#include "crypto/CertificateSearch.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace certs {

class SignerList : public ui::Dialog {
  public:
    // csProfile: the one whose certificates are chosen, with its settings; empty when there is none.
    SignerList(const config::Services& services, ui::Dialog* owner, std::wstring csProfile,
               crypto::PickerSettings settings, std::vector<config::SignerListEntry> lists);

    // To be taken over when OK has ended the dialog.
    const std::vector<config::SignerListEntry>& Lists() const { return lists_; }

    ui::Size MinimumTrackSize() const override;

  private:
    void OnInitDialog() override;
    void OnResized() override { FitColumns(); }

    void FitColumns();
    void Refill();
    std::wstring Cell(size_t row, size_t column) const;
    void Add();
    void Edit();
    void Delete();
    void ShowMembers(const ui::ListHit& hit);
    // Nothing: the user gave up, or there was no context.
    std::optional<config::SignerListEntry> RunPicker(const config::SignerListEntry& list);

    const config::Services services_;
    const std::wstring csProfile_;
    const crypto::PickerSettings settings_;
    std::vector<config::SignerListEntry> lists_;
    std::vector<size_t> shown_;  // the list in each row: those without a name are not shown

    ui::ListView view_{*this, 1230, {7, 7, 276, 128, ui::GrowBoth}};
    ui::Button add_{*this, 1231, {7, 141, 50, 14, FollowBottom}, L"Add", [this] { Add(); }};
    ui::Button edit_{*this, 1232, {61, 141, 50, 14, FollowBottom}, L"Edit", [this] { Edit(); }};
    ui::Button delete_{*this, 1233, {115, 141, 50, 14, FollowBottom}, L"Delete", [this] { Delete(); }};
    ui::Button ok_{*this, ui::IdOk, {179, 141, 50, 14, ui::MoveBoth}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {233, 141, 50, 14, ui::MoveBoth}, L"Exit"};

    static constexpr ui::Follow FollowBottom{0, 100, 0, 0};
};

// The list's name and, numbered, its members.
std::wstring SignerListDetails(const config::SignerListEntry& list);

}  // namespace certs
