#include "tests/torture/ShortMemory.h"

#include <dlfcn.h>

#include <new>
#include <utility>

namespace tests::torture {
namespace {

struct State {
    bool active = false;
    bool harness = false;
    size_t counted = 0;
    size_t bytes = 0;
    size_t refused = 0;
    size_t first = ShortMemory::Never;
    size_t last = ShortMemory::Never;
};

thread_local State state;

bool Refuses(size_t size) {
    if (!state.active || state.harness) return false;
    state.bytes += size;
    const size_t number = state.counted++;
    if (number < state.first || number > state.last) return false;
    ++state.refused;
    return true;
}

// The allocation function that would have been called without this file: a sanitizer's, where there is one.
template <class Function>
Function* Original(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

ShortMemory::ShortMemory(size_t firstToFail, size_t lastToFail) {
    state = {.active = true, .harness = state.harness, .first = firstToFail, .last = lastToFail};
}

ShortMemory::~ShortMemory() {
    state.active = false;
}

size_t ShortMemory::Counted() const {
    return state.counted;
}

size_t ShortMemory::Bytes() const {
    return state.bytes;
}

size_t ShortMemory::Refused() const {
    return state.refused;
}

bool AnythingLeaked() {
    static auto* const check = Original<int()>("__lsan_do_recoverable_leak_check");
    return check != nullptr && check() != 0;
}

Harness::Harness() : before_(std::exchange(state.harness, true)) {}

Harness::~Harness() {
    state.harness = before_;
}

Product::Product() : before_(std::exchange(state.harness, false)) {}

Product::~Product() {
    state.harness = before_;
}

}  // namespace tests::torture

using tests::torture::Original;
using tests::torture::Refuses;

void* operator new(size_t size) {
    static auto* const original = Original<void*(size_t)>("_Znwm");
    if (Refuses(size)) throw std::bad_alloc();
    return original(size);
}

void* operator new[](size_t size) {
    static auto* const original = Original<void*(size_t)>("_Znam");
    if (Refuses(size)) throw std::bad_alloc();
    return original(size);
}

void* operator new(size_t size, const std::nothrow_t& tag) noexcept {
    static auto* const original = Original<void*(size_t, const std::nothrow_t&)>("_ZnwmRKSt9nothrow_t");
    return Refuses(size) ? nullptr : original(size, tag);
}

void* operator new[](size_t size, const std::nothrow_t& tag) noexcept {
    static auto* const original = Original<void*(size_t, const std::nothrow_t&)>("_ZnamRKSt9nothrow_t");
    return Refuses(size) ? nullptr : original(size, tag);
}
