// How a context comes to be opened for the certificate picker, with all that the user has to know meanwhile.
#pragma once

#include <optional>

#include "config/Services.h"
#include "crypto/ContextSettings.h"
#include "crypto/CryptoContext.h"

namespace crypto {

struct OpenedContext {
    CryptoContext Context;
    bool LdapUsable;  // for searches in the network store
};

// Shows the wait dialog over the parent, opens the context of the store profile, probes the network store and
// refreshes the revocation lists, each as far as the settings want it. Nothing: the command is to be
// abandoned, for a reason that has been shown.
std::optional<OpenedContext> OpenCryptoContext(const config::Services& services, ui::Dialog& parent,
                                               const ContextSettings& settings);

// What the library is told of the settings.
uint32_t ContextFlags(const PickerSettings& settings);

}  // namespace crypto
