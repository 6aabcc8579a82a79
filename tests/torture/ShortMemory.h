// Letting the program's own memory run out: in this program the operator new can be told to throw.
#pragma once

#include <cstddef>
#include <limits>

namespace tests::torture {

// While one lives, what this thread allocates is counted, and from the first of the chosen numbers on up to
// the last one it is not to be had. Harness code neither counts nor fails. There is one at a time.
class ShortMemory {
  public:
    static constexpr size_t Never = std::numeric_limits<size_t>::max();

    explicit ShortMemory(size_t firstToFail = Never, size_t lastToFail = Never);
    ~ShortMemory();
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;

    size_t Counted() const;
    size_t Bytes() const;  // of all that was asked for, given back or not
    size_t Refused() const;
};

// What runs while one lives is no part of the program: it always gets its memory.
class Harness {
  public:
    Harness();
    ~Harness();
    Harness(const Harness&) = delete;
    Harness& operator=(const Harness&) = delete;

  private:
    const bool before_;
};

// Within harness code: what runs while one lives is the program again.
class Product {
  public:
    Product();
    ~Product();
    Product(const Product&) = delete;
    Product& operator=(const Product&) = delete;

  private:
    const bool before_;
};

// What nobody can reach any more was never given back. False where no sanitizer looks.
bool AnythingLeaked();

}  // namespace tests::torture
