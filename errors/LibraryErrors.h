// What the cryptographic library says about its failures, as far as there is a library.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Machine.h"

namespace errors {

// One entry of the library's error stack; texts in the ANSI code page.
struct LibraryErrorEntry {
    std::string errorText;
    std::string sourceFile;
    int32_t line = 0;
    std::string data;
    bool operator==(const LibraryErrorEntry&) const = default;
};

// In the ANSI code page; empty when the library has no text for the code.
std::string LibraryErrorText(platform::CryptoLibrary& library, uint32_t code);

// A library that never comes to an end of its stack is not asked for more entries than this.
inline constexpr size_t MostLibraryErrors = 1000;

// Takes all entries off the library's error stack.
std::vector<LibraryErrorEntry> TakeLibraryErrors(platform::CryptoLibrary& library, platform::kseal::Context context);

}  // namespace errors
