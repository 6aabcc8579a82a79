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
    // whatever becomes of the command. False: there was no context, or the user gave up on the way to it; the
    // command did not run. storeProfile: an index of the profile's store profiles, or -1 when none is
    // selected.
    virtual bool WithContext(ui::Dialog& parent, const config::ServiceProfile& profile, int storeProfile,
                             const Command& command) = 0;
};

}  // namespace crypto
