// Items found by name without regard to case and listed in alphabetical order, as the registry keeps keys and
// values.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "text/Case.h"

namespace platform::memory {

// Names without regard to case.
struct Alphabetical {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const {
        const auto [left, right] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t x, wchar_t y) {
            return x == y || text::Upper(x) == text::Upper(y);
        });
        return right != b.end() && (left == a.end() || text::Upper(*left) < text::Upper(*right));
    }
};

template <class Item>
class NamedItems {
  public:
    NamedItems() = default;
    NamedItems(const NamedItems&) = delete;
    NamedItems& operator=(const NamedItems&) = delete;
    ~NamedItems() = default;

    bool Empty() const { return items_.empty(); }

    // Null when there is no item of that name. Valid until the item is removed.
    Item* Find(std::wstring_view name) {
        const auto found = items_.find(name);
        return found == items_.end() ? nullptr : &found->second;
    }

    // The item must not exist yet.
    Item& Add(std::wstring_view name, Item item) {
        hasLast_ = false;
        return items_.emplace(name, std::move(item)).first->second;
    }

    void Remove(std::wstring_view name) {
        hasLast_ = false;
        if (const auto found = items_.find(name); found != items_.end()) items_.erase(found);
    }

    // The index-th item in alphabetical order, null after the last one. Whoever counts upwards pays one step
    // an item, because the place of the last answer is remembered.
    Item* At(uint32_t index) {
        if (index >= items_.size()) return nullptr;
        if (!hasLast_ || index < lastIndex_ / 2) {
            last_ = items_.begin();
            lastIndex_ = 0;
            hasLast_ = true;
        }
        std::advance(last_, static_cast<std::ptrdiff_t>(index) - static_cast<std::ptrdiff_t>(lastIndex_));
        lastIndex_ = index;
        return &last_->second;
    }

  private:
    using Items = std::map<std::wstring, Item, Alphabetical>;
    Items items_;
    typename Items::iterator last_;
    uint32_t lastIndex_ = 0;
    bool hasLast_ = false;
};

}  // namespace platform::memory
