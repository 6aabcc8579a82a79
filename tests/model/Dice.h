// Chance from a seed, the same on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace tests::model {

class Dice {
  public:
    explicit Dice(uint32_t seed) : random_(seed) {}

    size_t Below(size_t limit) { return random_() % limit; }
    bool Chance(size_t percent) { return Below(100) < percent; }
    template <class T>
    const T& Pick(const std::vector<T>& choices) {
        return choices.at(Below(choices.size()));
    }

  private:
    std::mt19937 random_;
};

}  // namespace tests::model
