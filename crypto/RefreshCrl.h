// Fresh certificate revocation lists.
#pragma once

#include "config/Services.h"
#include "crypto/ContextSettings.h"
#include "crypto/CryptoContext.h"

namespace crypto {

// Has the library load the revocation lists from their distribution points when the last time is longer ago
// than the period, and notes the time in the registry whether it succeeded or not: a failed refresh is not
// tried again before the next period. False: a failure, which has been shown, ends the command.
bool RefreshCrl(const config::Services& services, const ui::Dialog& parent, const ContextSettings& settings,
                const CryptoContext& context);

}  // namespace crypto
