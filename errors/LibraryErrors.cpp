#include "errors/LibraryErrors.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace errors {
namespace {

namespace kseal = platform::kseal;

// A text that the library handed out and wants back.
using LibraryText = std::unique_ptr<char, kseal::FreeMemFunction*>;

std::string Copy(const LibraryText& text) {
    return text == nullptr ? std::string() : std::string(text.get());
}

std::optional<LibraryErrorEntry> TakeLibraryError(const kseal::Exports& library, kseal::Context context) {
    char* errorText = nullptr;
    char* sourceFile = nullptr;
    char* data = nullptr;
    int32_t line = 0;
    if (library.GetErrorLineEx(context, &errorText, &sourceFile, &line, &data) != 0) return std::nullopt;
    const LibraryText ownedText(errorText, library.FreeMem);
    const LibraryText ownedFile(sourceFile, library.FreeMem);
    const LibraryText ownedData(data, library.FreeMem);
    return LibraryErrorEntry{Copy(ownedText), Copy(ownedFile), line, Copy(ownedData)};
}

}  // namespace

std::string LibraryErrorText(platform::CryptoLibrary& library, uint32_t code) {
    platform::Win32Code error = platform::code::Success;
    const kseal::Exports* const exports = library.Exports(error);
    if (exports == nullptr) return {};
    std::array<char, 1024> buffer{};
    exports->GetErrorText(code, buffer.data(), static_cast<uint32_t>(buffer.size()));
    return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
}

std::vector<LibraryErrorEntry> TakeLibraryErrors(platform::CryptoLibrary& library, platform::kseal::Context context) {
    std::vector<LibraryErrorEntry> entries;
    platform::Win32Code error = platform::code::Success;
    const kseal::Exports* const exports = library.Exports(error);
    if (exports == nullptr) return entries;
    while (entries.size() < MostLibraryErrors) {
        auto entry = TakeLibraryError(*exports, context);
        if (!entry) break;
        entries.push_back(std::move(*entry));
    }
    return entries;
}

}  // namespace errors
