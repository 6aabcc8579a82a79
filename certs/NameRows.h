// The rows of a list of names: which of the names are shown, and in which order.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "crypto/NameList.h"

namespace certs {

using NameId = uint32_t;  // the place of a name in its NameList

// The places of the keys in ascending or descending order of their character codes; equal keys keep their
// order. Takes time for each unit that has to be seen to tell the keys apart, and for sorting as many
// numbers.
std::vector<uint32_t> SortedOrder(std::span<const std::wstring_view> keys, bool descending);

class NameRows {
  public:
    // The names must outlive the rows; before they are cleared, the rows have to be.
    explicit NameRows(const crypto::NameList& names) : names_(names) {}

    size_t Count() const { return ids_.size(); }
    NameId Id(size_t row) const { return ids_[row]; }
    std::wstring_view Text(size_t row) const { return names_[ids_[row]]; }
    void Show(std::vector<NameId> ids) { ids_ = std::move(ids); }

    // The rows sorted by the value of the field and what follows it in the name, by character code; names
    // without the field come first (descending: last). Rows that do not differ in this keep their order.
    // Gives, for every place, the row that stands elsewhere now.
    std::vector<uint32_t> SortedOrder(std::wstring_view fieldKey, bool descending) const;
    // The names as they would stand in that order.
    std::vector<NameId> InOrder(const std::vector<uint32_t>& order) const;

    // The rows with a check mark, or those without.
    std::vector<NameId> Checked(const std::vector<bool>& checks, bool checked = true) const;

  private:
    const crypto::NameList& names_;
    std::vector<NameId> ids_;
};

}  // namespace certs
