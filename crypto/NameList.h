// A string interner: distinct texts in the order in which they were added, made for a million owner names:
// the characters lie in large blocks, and a hash table of row numbers answers whether a name is already
// there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace crypto {

class NameList {
  public:
    NameList() = default;
    NameList(const NameList&) = delete;
    NameList& operator=(const NameList&) = delete;
    NameList(NameList&& other) noexcept { *this = std::move(other); }
    NameList& operator=(NameList&& other) noexcept;
    ~NameList() = default;

    // Adds the name at the end. False: an equal one (exact comparison) is already there.
    bool Add(std::wstring_view name);
    // The row of the name, which is added at the end unless an equal one is there.
    size_t RowOf(std::wstring_view name);
    void Clear();

    size_t Size() const { return names_.size(); }
    bool IsEmpty() const { return names_.empty(); }
    // Stays valid, and in its place, until Clear.
    std::wstring_view operator[](size_t row) const { return names_[row].Text(); }
    std::optional<size_t> Find(std::wstring_view name) const;
    bool Contains(std::wstring_view name) const { return Find(name).has_value(); }

  private:
    struct Name {
        const wchar_t* first;
        uint32_t length;
        uint32_t hash;
        std::wstring_view Text() const { return {first, length}; }
    };

    static uint32_t Hash(std::wstring_view name);
    // The place in slots_ that holds the name, or the free one where it belongs.
    size_t SlotOf(std::wstring_view name, uint32_t hash) const;
    const wchar_t* Store(std::wstring_view name);
    void Grow();

    std::vector<Name> names_;
    std::vector<uint32_t> slots_;  // row + 1; 0: free. Their number is a power of two, half of them free
    std::vector<std::unique_ptr<wchar_t[]>> blocks_;
    wchar_t* free_ = nullptr;  // in the last block
    size_t freeLength_ = 0;
};

}  // namespace crypto
