// What the fuzz targets share: a demand that ends the run when it is not met, and the input taken apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace fuzz {

inline void Require(bool condition) {
    if (!condition) std::abort();
}

// The input, taken from the front; zeros behind its end.
class Input {
  public:
    Input() = default;
    explicit Input(std::span<const uint8_t> bytes) : rest_(bytes) {}

    bool IsEmpty() const { return rest_.empty(); }
    std::span<const uint8_t> Rest() const { return rest_; }
    uint8_t Byte() {
        if (rest_.empty()) return 0;
        const uint8_t byte = rest_.front();
        rest_ = rest_.subspan(1);
        return byte;
    }
    uint32_t Word() {
        uint32_t word = 0;
        for (int i = 0; i < 4; ++i) word = word << 8 | Byte();
        return word;
    }

  private:
    std::span<const uint8_t> rest_;
};

}  // namespace fuzz
