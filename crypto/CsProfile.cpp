#include "crypto/CsProfile.h"

namespace crypto {

std::vector<std::wstring> CsProfileNames(const std::vector<CsProfile>& profiles) {
    std::vector<std::wstring> names;
    names.reserve(profiles.size());
    for (const CsProfile& profile : profiles) names.push_back(profile.ProfileName);
    return names;
}

}  // namespace crypto
