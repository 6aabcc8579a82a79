// How the rule editor has certificates chosen, without knowing the cryptographic library.
#pragma once

#include <optional>
#include <vector>

#include "config/Records.h"
#include "ui/Dialog.h"

namespace editors {

// storeProfile: an index of the profile's store profiles, or -1 when none is selected. Each answers the whole
// new list, or nothing when the user gave up or a failure, which has been reported, ended the command.
class CertificateActions {
  public:
    virtual ~CertificateActions() = default;

    virtual std::optional<std::vector<config::CertificateRef>> ChooseRecipients(
        ui::Dialog& owner, const config::ServiceProfile& profile, int storeProfile,
        const std::vector<config::CertificateRef>& recipients) = 0;

    virtual std::optional<std::vector<config::SignerListEntry>> EditSignerLists(
        ui::Dialog& owner, const config::ServiceProfile& profile, int storeProfile,
        const std::vector<config::SignerListEntry>& lists) = 0;
};

}  // namespace editors
