// Puts a function of a test in the place of one that this program imports from the system, so that the test
// sees with which arguments it is called.
#pragma once

#include <windows.h>

#include <bit>

namespace tests {

class ImportHook {
  public:
    using AnyFunction = void (*)();

    // Throws when the program does not import a function of this name.
    template <class Function>
    ImportHook(const char* name, Function* replacement)
        : ImportHook(SlotOf(name), std::bit_cast<AnyFunction>(replacement)) {}
    ~ImportHook() { Set(real_); }
    ImportHook(const ImportHook&) = delete;
    ImportHook& operator=(const ImportHook&) = delete;

    template <class Function>
    Function* Real() const {
        return std::bit_cast<Function*>(real_);
    }

  private:
    ImportHook(AnyFunction* slot, AnyFunction replacement) : slot_(slot), real_(*slot) { Set(replacement); }

    static AnyFunction* SlotOf(const char* name);
    void Set(AnyFunction function) const;

    AnyFunction* const slot_;
    const AnyFunction real_;
};

}  // namespace tests
