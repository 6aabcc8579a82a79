#include "app/CertificateForms.h"

#include "certs/PreEncryptDlg.h"
#include "certs/SignerList.h"

namespace app {

std::optional<std::vector<config::CertificateRef>> CertificateForms::ChooseRecipients(
    ui::Dialog& owner, const config::ServiceProfile& profile, int storeProfile,
    const std::vector<config::CertificateRef>& recipients) {
    std::optional<std::vector<config::CertificateRef>> chosen;
    opener_.WithContext(
        owner, profile, storeProfile,
        [&](crypto::CertificateSearch& search, const crypto::PickerSettings& settings, bool ldapUsable) {
            certs::CPreEncryptDlg picker(services_, &owner, search, settings, recipients);
            picker.SetLdapUsable(ldapUsable);
            if (picker.DoModal() == ui::IdOk) chosen = picker.Result();
        });
    return chosen;
}

std::optional<std::vector<config::SignerListEntry>> CertificateForms::EditSignerLists(
    ui::Dialog& owner, const config::ServiceProfile& profile, int storeProfile,
    const std::vector<config::SignerListEntry>& lists) {
    certs::SignerList form(services_, &owner, opener_, profile, storeProfile, lists);
    if (form.DoModal() != ui::IdOk) return std::nullopt;
    return form.Lists();
}

}  // namespace app
