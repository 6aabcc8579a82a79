#include "app/RuleCommands.h"

#include <algorithm>
#include <ranges>
#include <unordered_set>

namespace app {

std::vector<std::wstring> SuggestedMasks(const config::GlobalSettings& settings,
                                         std::span<const config::Rule> rules) {
    std::unordered_set<std::wstring> known;
    const auto offer = [&known](std::vector<std::wstring>& masks, const std::wstring& mask) {
        if (!mask.empty() && known.insert(mask).second) masks.push_back(mask);
    };
    std::vector<std::wstring> ofExtensions;
    for (const std::wstring* extension : {&settings.SigExt, &settings.DsigExt, &settings.EncExt,
                                          &settings.B64Ext, &settings.HashExt, &settings.VerifyFileExt})
        offer(ofExtensions, L"*." + *extension);
    for (const std::wstring& extension : settings.ExtExt) offer(ofExtensions, L"*." + extension);

    std::vector<std::wstring> masks;  // of the rules, the last one first: a mask stands where it is used last
    for (const config::Rule& rule : rules | std::views::reverse)
        for (const std::wstring& mask : rule.Masks | std::views::reverse) offer(masks, mask);
    std::reverse(masks.begin(), masks.end());
    masks.insert(masks.end(), ofExtensions.begin(), ofExtensions.end());
    return masks;
}

void MoveRule(std::vector<config::Rule>& rules, size_t from, size_t to) {
    const auto at = [&rules](size_t position) {
        return rules.begin() + static_cast<std::ptrdiff_t>(position);
    };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
}

}  // namespace app
