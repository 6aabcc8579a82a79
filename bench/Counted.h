// While one lives, callgrind counts instructions, if the benchmark runs under it: what grows with the size of a list is
// then told from what the end of a cache costs.
#pragma once

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_TOGGLE_COLLECT
#define RUNNING_ON_VALGRIND 0
#endif

namespace bench {

class Counted {
  public:
    Counted() { CALLGRIND_TOGGLE_COLLECT; }
    ~Counted() { CALLGRIND_TOGGLE_COLLECT; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
};

// How many rounds to measure: counted, one is like the others.
inline int Rounds(int timed) {
    return RUNNING_ON_VALGRIND != 0 ? 1 : timed;
}

}  // namespace bench
