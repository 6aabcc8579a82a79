#include "certs/NameRows.h"

#include "certs/KeySort.h"
#include "certs/NameParts.h"

namespace certs {

std::vector<uint32_t> NameRows::Sort(std::wstring_view fieldKey, bool descending) {
    std::vector<std::wstring_view> keys;
    keys.reserve(ids_.size());
    for (size_t row = 0; row < ids_.size(); ++row) keys.push_back(SortKey(Text(row), fieldKey));
    std::vector<uint32_t> order = SortedOrder(keys, descending);
    std::vector<NameId> sorted;
    sorted.reserve(order.size());
    for (const uint32_t row : order) sorted.push_back(ids_[row]);
    ids_ = std::move(sorted);
    return order;
}

std::vector<NameId> NameRows::Checked(const std::vector<bool>& checks, bool checked) const {
    std::vector<NameId> ids;
    for (size_t row = 0; row < ids_.size(); ++row)
        if (checks[row] == checked) ids.push_back(ids_[row]);
    return ids;
}

}  // namespace certs
