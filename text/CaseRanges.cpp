#include "text/CaseRanges.h"

#include <algorithm>

namespace text {

wchar_t Mapped(std::span<const CaseRange> ranges, wchar_t unit) {
    const auto range = std::lower_bound(ranges.begin(), ranges.end(), unit,
                                        [](const CaseRange& r, wchar_t c) { return r.last < c; });
    if (range == ranges.end() || unit < range->first || (unit - range->first) % range->step != 0) return unit;
    return static_cast<wchar_t>(unit + range->delta);
}

}  // namespace text
