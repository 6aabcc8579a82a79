// How a context comes to be opened for the certificate picker, with all that the user has to know meanwhile.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "config/Services.h"
#include "crypto/CertificateSearch.h"
#include "crypto/CryptoContext.h"
#include "errors/MessageBoxes.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace crypto {

struct OpenedContext {
    CryptoContext Context;
    bool LdapUsable;  // for searches in the network store
};

// Shows the wait dialog over the parent, opens the context of the CS profile, probes the network store and
// refreshes the revocation lists, each as far as the settings want it. Nothing: the command is to be
// abandoned, for a reason that has been shown. csProfile: its name; empty when there is none.
std::optional<OpenedContext> OpenCryptoContext(const config::Services& services, ui::Dialog& parent,
                                               const std::wstring& csProfile, const PickerSettings& settings);

// Asks the network store for something that it does not have. False: it failed and the user gives up; true
// with ldapUsable false: the user goes on without it.
bool CheckLdapStore(const config::Services& services, const ui::Dialog& parent, const CryptoContext& context,
                    bool& ldapUsable);

// What the library is given of the settings.
uint32_t ContextFlags(const PickerSettings& settings);

// Shown while the library opens a context, which blocks the program for a while.
class AwaitDlg : public ui::Dialog {
  public:
    AwaitDlg(ui::Screen& screen, ui::Dialog& parent)
        : Dialog(screen, &parent, {.size = {190, 34}, .systemMenu = false}, errors::ProgramTitle) {}

  private:
    void OnInitDialog() override;

    ui::Label text_{
        *this, 1150, {7, 8, 176, 18}, L"Please, wait, cryptocontext initialization can take up to 30 seconds."};
};

}  // namespace crypto
