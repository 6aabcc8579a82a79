#include "certs/NameRows.h"

#include "certs/KeySort.h"
#include "certs/NameParts.h"

namespace certs {

std::vector<uint32_t> NameRows::SortedOrder(std::wstring_view fieldKey, bool descending) const {
    std::vector<std::wstring_view> keys;
    keys.reserve(ids_.size());
    for (size_t row = 0; row < ids_.size(); ++row) keys.push_back(SortKey(Text(row), fieldKey));
    return certs::SortedOrder(keys, descending);
}

std::vector<NameId> NameRows::InOrder(const std::vector<uint32_t>& order) const {
    std::vector<NameId> sorted;
    sorted.reserve(order.size());
    for (const uint32_t row : order) sorted.push_back(ids_[row]);
    return sorted;
}

std::vector<NameId> NameRows::Checked(const std::vector<bool>& checks, bool checked) const {
    std::vector<NameId> ids;
    for (size_t row = 0; row < ids_.size(); ++row)
        if (checks[row] == checked) ids.push_back(ids_[row]);
    return ids;
}

}  // namespace certs
