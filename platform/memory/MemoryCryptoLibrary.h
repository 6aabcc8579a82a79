// A cryptographic library that says what it was told to say.
#pragma once

#include <deque>
#include <map>
#include <string>

#include "platform/Machine.h"

namespace platform::memory {

// Knows no text and has no entry until it is given some.
class MemoryCryptoLibrary final : public CryptoLibrary {
  public:
    void SetErrorText(LibraryCode code, std::string text) { texts_[code] = std::move(text); }
    // Puts an entry behind those that wait in the context's error stack.
    void AddError(LibraryContext context, LibraryErrorEntry entry) {
        errors_[context].push_back(std::move(entry));
    }
    size_t WaitingErrors(LibraryContext context) const;

    std::string ErrorText(LibraryCode code) const override;
    std::optional<LibraryErrorEntry> NextError(LibraryContext context) const override;

  private:
    std::map<LibraryCode, std::string> texts_;
    // Taking an entry changes the library's state, not that of its user.
    mutable std::map<LibraryContext, std::deque<LibraryErrorEntry>> errors_;
};

}  // namespace platform::memory
