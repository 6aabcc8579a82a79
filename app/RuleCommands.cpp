#include "app/RuleCommands.h"

#include <algorithm>
#include <ranges>
#include <unordered_set>

namespace app {

std::vector<std::wstring> SuggestedMasks(const config::GlobalSettings& settings,
                                         std::span<const config::Rule> rules) {
    std::vector<std::wstring> masks;
    std::unordered_set<std::wstring> known;
    const auto offer = [&](const std::wstring& mask) {
        if (!mask.empty() && known.insert(mask).second) masks.push_back(mask);
    };
    for (const std::wstring* extension : {&settings.SigExt, &settings.DsigExt, &settings.EncExt,
                                          &settings.B64Ext, &settings.HashExt, &settings.VerifyFileExt})
        offer(L"*." + *extension);
    for (const std::wstring& extension : settings.ExtExt) offer(L"*." + extension);

    // Each further one goes to the front; from the last to the first, so that they end in the order of the
    // rules.
    const auto firstOfRules = static_cast<std::ptrdiff_t>(masks.size());
    for (const config::Rule& rule : rules | std::views::reverse)
        for (const std::wstring& mask : rule.Masks | std::views::reverse) offer(mask);
    std::reverse(masks.begin() + firstOfRules, masks.end());
    std::rotate(masks.begin(), masks.begin() + firstOfRules, masks.end());
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

void RemoveRules(std::vector<config::Rule>& rules, const std::vector<size_t>& positions) {
    auto next = positions.begin();
    size_t kept = 0;
    for (size_t position = 0; position < rules.size(); ++position) {
        if (next != positions.end() && *next == position) {
            ++next;
            continue;
        }
        if (kept != position) rules[kept] = std::move(rules[position]);
        ++kept;
    }
    rules.resize(kept);
}

}  // namespace app
