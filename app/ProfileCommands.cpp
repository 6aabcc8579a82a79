#include "app/ProfileCommands.h"

#include <algorithm>

namespace app {

void LeadRulesToFirstStoreProfile(config::ServiceProfile& profile, std::span<const std::wstring> removed) {
    if (profile.ZCSProfile.empty()) return;
    const std::wstring& first = profile.ZCSProfile.front();
    for (config::Rule& rule : profile.Rules)
        for (std::wstring* used : {&rule.ZCSProfile, &rule.ResignProfile})
            if (std::find(removed.begin(), removed.end(), *used) != removed.end()) *used = first;
}

}  // namespace app
