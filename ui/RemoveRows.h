// Deleting what the user has selected in a list from the items that the list shows.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace ui {

// rows: ascending; those beyond the items are ignored. The other items keep their order.
template <class Item>
void RemoveRows(std::vector<Item>& items, const std::vector<size_t>& rows) {
    auto next = rows.begin();
    size_t kept = 0;
    for (size_t row = 0; row < items.size(); ++row) {
        if (next != rows.end() && *next == row) {
            ++next;
            continue;
        }
        if (kept != row) items[kept] = std::move(items[row]);
        ++kept;
    }
    items.resize(kept);
}

}  // namespace ui
