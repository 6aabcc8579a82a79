// The rule list of the main dialog: which rules of the opened profile it shows, and what a right click shows
// of them.
#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "app/RuleTexts.h"
#include "config/Services.h"
#include "ui/ListView.h"

namespace app {

class RuleList {
  public:
    using Rules = std::function<std::span<const config::Rule>()>;

    // rules: gives the rules of the opened profile at any time; none when no profile is open.
    RuleList(ui::ListView& view, ui::Dialog& owner, const config::Services& services, Rules rules);

    void CreateColumns();
    void SpreadWidths();

    void Empty();
    // The rows stand for rules: it has been filled since it was emptied.
    bool IsFilled() const { return filled_; }
    // The user has ticked or cleared a box, and its rule does not know yet.
    bool HasNewChecks() const;
    // Shows the rules that pass the search, with their check boxes as the rules are switched on and off.
    void Fill(std::wstring_view searchText);

  private:
    void ShowDetails(const ui::ListHit& hit) const;
    std::vector<int> WidthsWithin(int clientWidth) const;
    std::wstring Cell(size_t row, size_t column) const;

    ui::ListView& view_;
    ui::Dialog& owner_;
    const config::Services& services_;
    const Rules rules_;
    std::vector<size_t> listed_;  // for each row the position of its rule
    bool filled_ = false;
};

// Switches each rule on or off as the check box of the row at its position says; a row that is not there
// counts as checked, and a rule without an operation is left alone. True when a rule has changed. Kept: a
// search hides rows, and the boxes then belong to other rules than those shown beside them.
[[nodiscard]] bool SwitchRules(const std::vector<bool>& checks, std::vector<config::Rule>& rules);

}  // namespace app
