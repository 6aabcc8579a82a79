#include "config/RuleOrder.h"

#include <algorithm>
#include <utility>

#include "text/Numbers.h"

namespace config {

uint64_t RuleKeyNumber(std::wstring_view name) {
    const size_t blank = name.rfind(L' ');
    return blank == std::wstring_view::npos ? 0 : text::LeadingDigits(name.substr(blank + 1));
}

void OrderRuleKeys(std::vector<std::wstring>& names) {
    if (names.size() < 3) return;
    using Numbered = std::pair<uint64_t, std::wstring>;
    std::vector<Numbered> numbered;
    numbered.reserve(names.size());
    for (std::wstring& name : names) numbered.emplace_back(RuleKeyNumber(name), std::move(name));

    // Each pass carries a name at most one place forward, so only a name that has to come from the last place
    // to the first one falls short. A stable sort and this one exchange give the same in n log n steps.
    const uint64_t last = numbered.back().first;
    const bool lastIsSmallest = std::all_of(numbered.begin(), numbered.end() - 1,
                                            [last](const Numbered& name) { return name.first > last; });
    std::stable_sort(numbered.begin(), numbered.end(),
                     [](const Numbered& a, const Numbered& b) { return a.first < b.first; });
    if (lastIsSmallest) std::swap(numbered[0], numbered[1]);

    for (size_t i = 0; i < names.size(); ++i) names[i] = std::move(numbered[i].second);
}

}  // namespace config
