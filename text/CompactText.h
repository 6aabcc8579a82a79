// A text that takes as little room as it can, for records of which there are many.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace text {

// Stands in for std::wstring where most texts are empty: an empty one takes the room of a pointer, any other
// one also a block of its exact length. It is read as a std::wstring_view, which lasts until the text changes,
// and changed only as a whole.
class CompactText {
  public:
    CompactText() = default;
    template <std::convertible_to<std::wstring_view> Text>
    requires(!std::same_as<Text, CompactText>) CompactText(const Text& text) : block_(BlockOf(text)) {}
    CompactText(const CompactText& other) : block_(BlockOf(other)) {}
    CompactText(CompactText&&) noexcept = default;
    CompactText& operator=(const CompactText& other) {
        Block copy = BlockOf(other);  // of itself, too
        block_.swap(copy);
        return *this;
    }
    CompactText& operator=(CompactText&&) noexcept = default;
    ~CompactText() = default;

    operator std::wstring_view() const {
        if (block_ == nullptr) return {};
        size_t length = 0;
        std::memcpy(&length, block_.get(), sizeof length);
        return {block_.get() + lengthUnits, length};
    }

    bool empty() const { return block_ == nullptr; }
    void clear() { block_.reset(); }

    template <std::convertible_to<std::wstring_view> Text>
    friend bool operator==(const CompactText& one, const Text& other) {
        return std::wstring_view(one) == std::wstring_view(other);
    }

  private:
    using Block = std::unique_ptr<wchar_t[]>;  // the length in units, then the units

    static constexpr size_t lengthUnits = sizeof(size_t) / sizeof(wchar_t);

    static Block BlockOf(std::wstring_view text) {
        if (text.empty()) return nullptr;
        const size_t length = text.size();
        Block block = std::make_unique_for_overwrite<wchar_t[]>(lengthUnits + length);
        std::memcpy(block.get(), &length, sizeof length);
        text.copy(block.get() + lengthUnits, length);
        return block;
    }

    Block block_;  // null: empty
};

}  // namespace text
