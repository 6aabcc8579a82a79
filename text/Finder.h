// Looks for one text in many others by the algorithm of Knuth, Morris and Pratt: in time linear in what it
// reads, whatever the texts are.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace text {

template <class Unit>
class Finder {
  public:
    static constexpr size_t NotFound = std::basic_string_view<Unit>::npos;

    explicit Finder(std::basic_string_view<Unit> wanted) : wanted_(wanted), fallbacks_(wanted.size()) {
        for (size_t i = 1, matched = 0; i < wanted_.size(); ++i) {
            matched = Extended(matched, wanted_[i]);
            fallbacks_[i] = matched;
        }
    }

    size_t Length() const { return wanted_.size(); }

    // The first place at which the wanted text stands in the other one. The empty text stands everywhere.
    size_t FindIn(std::basic_string_view<Unit> other) const {
        if (wanted_.empty()) return 0;
        const Unit* const end = other.data() + other.size();
        size_t matched = 0;
        for (const Unit* unit = other.data(); unit != end; ++unit) {
            if (matched == 0) {  // nothing to remember: run to the next beginning
                unit = std::find(unit, end, wanted_.front());
                if (unit == end) return NotFound;
                matched = 1;
            } else {
                matched = Extended(matched, *unit);
            }
            if (matched == wanted_.size()) return static_cast<size_t>(unit - other.data()) + 1 - wanted_.size();
        }
        return NotFound;
    }

    bool IsIn(std::basic_string_view<Unit> other) const { return FindIn(other) != NotFound; }

  private:
    // How much of the wanted text ends at a unit, when so much of it ended before that unit.
    size_t Extended(size_t matched, Unit unit) const {
        while (matched > 0 && wanted_[matched] != unit) matched = fallbacks_[matched - 1];
        return wanted_[matched] == unit ? matched + 1 : 0;
    }

    std::basic_string<Unit> wanted_;
    std::vector<size_t> fallbacks_;  // for each beginning, the longest shorter one that it ends with
};

}  // namespace text
