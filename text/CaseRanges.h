// How upper and lower case are told: tables of Unicode's simple one-to-one mappings within the basic plane.
#pragma once

#include <cstdint>
#include <span>

namespace text {

// Each first, first + step, ... up to last becomes the other case by adding delta.
struct CaseRange {
    uint16_t first;
    uint16_t last;
    uint16_t step;
    int32_t delta;
};

// ranges: ascending. A unit that is in none of them stays as it is.
wchar_t Mapped(std::span<const CaseRange> ranges, wchar_t unit);

}  // namespace text
