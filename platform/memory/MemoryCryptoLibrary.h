// A cryptographic library that is there when a test puts it there.
#pragma once

#include "platform/Machine.h"

namespace platform::memory {

// Missing at first.
class MemoryCryptoLibrary final : public CryptoLibrary {
  public:
    void Install(const kseal::Exports& exports) {
        exports_ = exports;
        error_ = code::Success;
    }
    // It is not found from now on, with this code.
    void Remove(Win32Code error = code::ModuleNotFound) { error_ = error; }

    const kseal::Exports* Exports(Win32Code& error) override {
        error = error_;
        return error == code::Success ? &exports_ : nullptr;
    }
    std::wstring WhatIsMissing() const override { return L"There is no library."; }

  private:
    kseal::Exports exports_;
    Win32Code error_ = code::ModuleNotFound;
};

}  // namespace platform::memory
