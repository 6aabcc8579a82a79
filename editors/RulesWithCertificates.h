// Which rules still hold certificates of a store profile that is about to go.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "config/Records.h"

namespace editors {

// The positions, from 1 on, of the rules that have certificates or signer lists of the store profile: "2,5".
std::wstring RulesWithCertificatesOf(std::span<const config::Rule> rules, std::wstring_view storeProfile);

}  // namespace editors
