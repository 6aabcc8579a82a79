// Whether the network store (LDAP) answers.
#pragma once

#include "config/Services.h"
#include "crypto/CryptoContext.h"

namespace crypto {

// Asks the network store for something that it does not have. False: it failed and the user gives up; true
// with ldapUsable false: the user goes on without it.
bool CheckLdapStore(const config::Services& services, const ui::Dialog& parent, const CryptoContext& context,
                    bool& ldapUsable);

}  // namespace crypto
