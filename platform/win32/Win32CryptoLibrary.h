// The maker's cryptographic library, found when it is first needed: beside the program, else in the system
// folder.
#pragma once

#include "platform/Machine.h"
#include "platform/win32/Module.h"

namespace platform::win32 {

class Win32CryptoLibrary final : public CryptoLibrary {
  public:
    std::string ErrorText(LibraryCode code) const override;
    std::optional<LibraryErrorEntry> NextError(LibraryContext context) const override;

  private:
    void* Library() const;

    // Null until it was found; while it is missing, every use looks for it again. It is never unloaded,
    // because threads that it may have started would lose their code.
    mutable void* library_ = nullptr;
};

}  // namespace platform::win32
