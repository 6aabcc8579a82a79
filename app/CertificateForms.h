// Brings the rule editor together with the certificate picker and the form of signer lists.
#pragma once

#include <optional>
#include <vector>

#include "config/Services.h"
#include "crypto/ContextOpener.h"
#include "editors/CertificateActions.h"

namespace app {

class CertificateForms final : public editors::CertificateActions {
  public:
    // The opener has to outlive the object.
    CertificateForms(const config::Services& services, crypto::ContextOpener& opener)
        : services_(services),
          opener_(opener) {}

    std::optional<std::vector<config::CertificateRef>> ChooseRecipients(
        ui::Dialog& owner, const config::ServiceProfile& profile, int storeProfile,
        const std::vector<config::CertificateRef>& recipients) override;

    std::optional<std::vector<config::SignerListEntry>> EditSignerLists(
        ui::Dialog& owner, const config::ServiceProfile& profile, int storeProfile,
        const std::vector<config::SignerListEntry>& lists) override;

  private:
    const config::Services services_;
    crypto::ContextOpener& opener_;
};

}  // namespace app
