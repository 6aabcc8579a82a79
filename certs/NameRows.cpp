#include "certs/NameRows.h"

#include <algorithm>

#include "certs/NameFields.h"

namespace certs {
namespace {

constexpr size_t packedUnits = 4;

// Sorting is an MSD radix sort on prefixes of eight bytes: the first units of a text as one number that
// compares as they do.
uint64_t Packed(std::wstring_view text) {
    uint64_t packed = 0;
    for (size_t i = 0; i < packedUnits; ++i)
        packed = packed << 16 | (i < text.size() ? static_cast<uint16_t>(text[i]) : 0U);
    return packed;
}

struct KeyedRow {
    uint64_t next = 0;  // the units that are compared next
    std::wstring_view key;
    uint32_t row;

    // The key without so many units at its beginning.
    std::wstring_view Rest(size_t units) const { return key.substr(std::min(units, key.size())); }
};

// Rows whose keys agree in the first units, as far as they are so long.
struct Group {
    size_t first;
    size_t end;
    size_t agreed;
};

// Texts are looked at once for every few units in which they differ from their neighbours; what is sorted are
// numbers.
class KeySorter {
  public:
    KeySorter(std::span<const std::wstring_view> keys, bool descending) : descending_(descending) {
        rows_.reserve(keys.size());
        for (const std::wstring_view key : keys)
            rows_.push_back({.key = key, .row = static_cast<uint32_t>(rows_.size())});
        waiting_.push_back({0, keys.size(), 0});
    }

    std::vector<uint32_t> Sort() {
        while (!waiting_.empty()) {
            const Group group = waiting_.back();
            waiting_.pop_back();
            const size_t agreed = group.agreed + CommonBeginning(group);
            for (KeyedRow& row : Rows(group)) row.next = Packed(row.Rest(agreed));
            SortByNext(group);
            Split(group, agreed + packedUnits);
        }
        std::vector<uint32_t> order;
        order.reserve(rows_.size());
        for (const KeyedRow& row : rows_) order.push_back(row.row);
        return order;
    }

  private:
    std::span<KeyedRow> Rows(const Group& group) {
        return std::span(rows_).subspan(group.first, group.end - group.first);
    }
    // Units in which all keys agree further on. Those that have ended come before the others anyway.
    size_t CommonBeginning(const Group& group) {
        std::wstring_view common;
        for (const KeyedRow& row : Rows(group)) {
            const std::wstring_view rest = row.Rest(group.agreed);
            if (rest.empty()) continue;
            if (common.empty()) common = rest;
            const auto end = std::mismatch(common.begin(), common.end(), rest.begin(), rest.end()).first;
            common = common.substr(0, static_cast<size_t>(end - common.begin()));
            if (common.empty()) break;
        }
        return common.size();
    }

    void SortByNext(const Group& group) {
        const std::span<KeyedRow> rows = Rows(group);
        std::sort(rows.begin(), rows.end(), [this](const KeyedRow& a, const KeyedRow& b) {
            return a.next != b.next ? (a.next < b.next) != descending_ : a.row < b.row;
        });
    }

    // Puts those that still agree on the waiting list.
    void Split(const Group& group, size_t agreed) {
        for (size_t first = group.first; first != group.end;) {
            size_t end = first + 1;
            while (end < group.end && rows_[end].next == rows_[first].next) ++end;
            const Group equal{first, end, agreed};
            first = end;
            if (equal.end - equal.first == 1) continue;
            const std::span<KeyedRow> rows = Rows(equal);
            if (std::any_of(rows.begin(), rows.end(), [&](const auto& r) { return !r.Rest(agreed).empty(); })) {
                waiting_.push_back(equal);
            } else {
                SortByLength(rows);
            }
        }
    }

    // Of keys that differ in nothing else, as far as they go.
    void SortByLength(std::span<KeyedRow> rows) {
        std::sort(rows.begin(), rows.end(), [this](const KeyedRow& a, const KeyedRow& b) {
            const size_t aLength = a.key.size();
            const size_t bLength = b.key.size();
            return aLength != bLength ? (aLength < bLength) != descending_ : a.row < b.row;
        });
    }

    const bool descending_;
    std::vector<KeyedRow> rows_;
    std::vector<Group> waiting_;
};

}  // namespace

std::vector<uint32_t> SortedOrder(std::span<const std::wstring_view> keys, bool descending) {
    return KeySorter(keys, descending).Sort();
}

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
