// When the revocation lists of each store profile were last refreshed: texts "NAME;;SECONDS", with the
// seconds since 1970.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace crypto {

struct CrlStampSearch {
    bool due = true;                 // no stamp of the store profile is younger than the period
    std::optional<size_t> position;  // of its last stamp
};

// periodHours: how long a refresh holds, counted in whole minutes.
CrlStampSearch FindCrlStamp(const std::vector<std::wstring>& stamps, std::wstring_view storeProfile,
                            int32_t periodHours, int64_t now);

// Puts the stamp in place of the one at the position, or at the end.
void SetCrlStamp(std::vector<std::wstring>& stamps, std::optional<size_t> position,
                 std::wstring_view storeProfile, int64_t now);

}  // namespace crypto
