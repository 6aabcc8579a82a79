#include "crypto/CrlStamps.h"

#include "text/Format.h"
#include "text/Numbers.h"

namespace crypto {
namespace {

constexpr std::wstring_view separator = L";;";

// The time that a stamp of this store profile tells; nothing for any other text.
std::optional<int32_t> TimeOf(std::wstring_view stamp, std::wstring_view storeProfile) {
    const size_t end = stamp.find(separator);
    if (end == std::wstring_view::npos || stamp.substr(0, end) != storeProfile) return std::nullopt;
    const std::wstring_view rest = stamp.substr(end + separator.size());
    return text::LeadingNumber(rest.substr(0, rest.find(separator)));
}

}  // namespace

CrlStampSearch FindCrlStamp(const std::vector<std::wstring>& stamps, std::wstring_view storeProfile,
                            int32_t periodHours, int64_t now) {
    CrlStampSearch found;
    for (size_t i = 0; i < stamps.size(); ++i) {
        const std::optional<int32_t> last = TimeOf(stamps[i], storeProfile);
        if (!last) continue;
        found.position = i;
        if (*last / 60 + int64_t{periodHours} * 60 > now / 60) found.due = false;
    }
    return found;
}

void SetCrlStamp(std::vector<std::wstring>& stamps, std::optional<size_t> position,
                 std::wstring_view storeProfile, int64_t now) {
    std::wstring stamp = text::Format(L"%s;;%lld", storeProfile, now);
    if (position) {
        stamps[*position] = std::move(stamp);
    } else {
        stamps.push_back(std::move(stamp));
    }
}

}  // namespace crypto
