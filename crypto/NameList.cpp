#include "crypto/NameList.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace crypto {
namespace {

constexpr size_t blockLength = size_t{1} << 17;
constexpr size_t firstSlots = 64;

}  // namespace

NameList& NameList::operator=(NameList&& other) noexcept {
    names_ = std::exchange(other.names_, {});
    slots_ = std::exchange(other.slots_, {});
    blocks_ = std::exchange(other.blocks_, {});
    free_ = std::exchange(other.free_, nullptr);
    freeLength_ = std::exchange(other.freeLength_, 0);
    return *this;
}

bool NameList::Add(std::wstring_view name) {
    const size_t before = Size();
    return RowOf(name) == before;
}

size_t NameList::RowOf(std::wstring_view name) {
    if (names_.size() * 2 >= slots_.size()) Grow();
    const uint32_t hash = Hash(name);
    uint32_t& slot = slots_[SlotOf(name, hash)];
    if (slot == 0) {
        names_.push_back({Store(name), static_cast<uint32_t>(name.size()), hash});
        slot = static_cast<uint32_t>(names_.size());
    }
    return slot - 1;
}

void NameList::Clear() {
    *this = NameList();
}

std::optional<size_t> NameList::Find(std::wstring_view name) const {
    if (slots_.empty()) return std::nullopt;
    const uint32_t row = slots_[SlotOf(name, Hash(name))];
    if (row == 0) return std::nullopt;
    return row - 1;
}

uint32_t NameList::Hash(std::wstring_view name) {
    const uint64_t hash = std::hash<std::wstring_view>{}(name);
    return static_cast<uint32_t>(hash ^ (hash >> 32));
}

size_t NameList::SlotOf(std::wstring_view name, uint32_t hash) const {
    const size_t mask = slots_.size() - 1;
    size_t slot = hash & mask;
    while (slots_[slot] != 0) {
        const Name& candidate = names_[slots_[slot] - 1];
        if (candidate.hash == hash && candidate.Text() == name) break;
        slot = (slot + 1) & mask;
    }
    return slot;
}

const wchar_t* NameList::Store(std::wstring_view name) {
    if (name.size() > freeLength_) {
        const size_t length = std::max(blockLength, name.size());
        blocks_.push_back(std::make_unique_for_overwrite<wchar_t[]>(length));
        free_ = blocks_.back().get();
        freeLength_ = length;
    }
    const wchar_t* const stored = free_;
    free_ = std::copy(name.begin(), name.end(), free_);
    freeLength_ -= name.size();
    return stored;
}

void NameList::Grow() {
    std::vector<uint32_t> slots(std::max(firstSlots, slots_.size() * 2), 0);
    const size_t mask = slots.size() - 1;
    for (size_t row = 0; row < names_.size(); ++row) {
        size_t slot = names_[row].hash & mask;
        while (slots[slot] != 0) slot = (slot + 1) & mask;
        slots[slot] = static_cast<uint32_t>(row + 1);
    }
    slots_ = std::move(slots);
}

}  // namespace crypto
