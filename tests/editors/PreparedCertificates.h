// A user of the certificate forms who leaves them with what a test has prepared. The forms themselves have no
// windows, so that this takes no time on a real desktop either; everything else opens as ever.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "certs/PreEncryptDlg.h"
#include "certs/SignerList.h"
#include "demo/StandInLibrary.h"
#include "tests/support/World.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {

class PreparedCertificates final : public ui::Screen, private ui::memory::User {
  public:
    // Puts the stand-in in the place of the world's library.
    explicit PreparedCertificates(World& world);

    // What the user leaves the forms with; nothing: he gives up. Signer lists need names and signers of their
    // own.
    std::optional<std::vector<config::CertificateRef>> recipients;
    std::optional<std::vector<config::SignerListEntry>> signerLists;
    // As many as are asked for.
    static std::vector<config::CertificateRef> Recipients(size_t count);
    static std::vector<config::SignerListEntry> SignerLists(size_t count);

    // What the forms showed when they opened, and over which dialog that was.
    std::vector<config::CertificateRef> givenRecipients;
    std::vector<config::SignerListEntry> givenLists;
    const ui::Dialog* lastOwner = nullptr;
    // The CS profiles that contexts were opened for.
    std::vector<std::string> OpenedFor() const;

    int RunModal(ui::Dialog& dialog) override;
    void OpenModeless(ui::Dialog& dialog) override { forms_.OpenModeless(dialog); }
    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override;
    std::optional<std::wstring> PickFolder(const ui::Dialog* owner, const std::wstring& folder) override {
        return real_.PickFolder(owner, folder);
    }
    std::optional<std::wstring> PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) override {
        return real_.PickFile(owner, picker);
    }
    void ShowWaitCursor(bool shown) override { real_.ShowWaitCursor(shown); }
    const platform::ScreenMetrics& Metrics() const override { return real_.Metrics(); }

  private:
    void DialogOpened(ui::Dialog& dialog) override;
    int BoxOpened(const std::wstring&, const std::wstring&, uint32_t) override { return ui::IdYes; }
    std::optional<std::wstring> FolderPickerOpened() override { return std::nullopt; }
    std::optional<std::wstring> FilePickerOpened(ui::FilePickerKind) override { return std::nullopt; }

    void EditLists(certs::SignerList& form);
    void Pick(certs::CPreEncryptDlg& picker, const std::vector<config::CertificateRef>& names);

    ui::Screen& real_;
    ui::memory::MemoryScreen forms_;
    demo::StandInLibrary library_;
    const config::SignerListEntry* addedList_ = nullptr;  // whose signers are picked next
    bool inForms_ = false;
};

}  // namespace tests
