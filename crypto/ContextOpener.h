// Opening the cryptographic library for one command.
#pragma once

#include <functional>

#include "config/Records.h"
#include "crypto/CertificateSearch.h"
#include "crypto/PickerSettings.h"
#include "ui/Dialog.h"

namespace crypto {

class ContextOpener {
  public:
    // What to do with an open context. ldapUsable: network stores can be searched.
    using Command =
        std::function<void(CertificateSearch& search, const PickerSettings& settings, bool ldapUsable)>;

    virtual ~ContextOpener() = default;

    // Opens a context for the profile's store profile, runs the command and closes the context again,
    // whatever becomes of the command. The command does not run when there is no context, or the user gives
    // up on the way to it. storeProfile: an index of the profile's store profiles, or -1 when none is
    // selected.
    virtual void WithContext(ui::Dialog& parent, const config::ServiceProfile& profile, int storeProfile,
                             const Command& command) = 0;
};

}  // namespace crypto
