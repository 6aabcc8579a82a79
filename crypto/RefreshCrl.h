// Fresh certificate revocation lists, and when those of each CS profile were last refreshed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/Services.h"
#include "crypto/CryptoContext.h"

namespace crypto {

// Has the library load the revocation lists from their distribution points when the last time is longer ago
// than the period (in hours), and notes the time in the registry whether it succeeded or not: a failed
// refresh is not tried again before the next period. False: a failure, which has been shown, ends the
// command.
bool RefreshCrl(const config::Services& services, const ui::Dialog& parent, const CryptoContext& context,
                const std::wstring& csProfile, int32_t periodHours);

// The times lie in texts "NAME;;SECONDS", with the seconds since 1970.
struct CrlStampSearch {
    bool due = true;                 // no stamp of the CS profile is younger than the period
    std::optional<size_t> position;  // of its last stamp
};

// periodHours: how long a refresh holds, counted in whole minutes.
CrlStampSearch FindCrlStamp(const std::vector<std::wstring>& stamps, std::wstring_view csProfile, int32_t periodHours,
                            int64_t now);

// Puts the stamp in place of the one at the position, or at the end.
void SetCrlStamp(std::vector<std::wstring>& stamps, std::optional<size_t> position, std::wstring_view csProfile,
                 int64_t now);

}  // namespace crypto
