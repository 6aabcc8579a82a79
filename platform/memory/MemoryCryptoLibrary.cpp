#include "platform/memory/MemoryCryptoLibrary.h"

#include <utility>

namespace platform::memory {

size_t MemoryCryptoLibrary::WaitingErrors(LibraryContext context) const {
    const auto found = errors_.find(context);
    return found == errors_.end() ? 0 : found->second.size();
}

std::string MemoryCryptoLibrary::ErrorText(LibraryCode code) const {
    const auto found = texts_.find(code);
    return found == texts_.end() ? std::string() : found->second;
}

std::optional<LibraryErrorEntry> MemoryCryptoLibrary::NextError(LibraryContext context) const {
    const auto found = errors_.find(context);
    if (found == errors_.end() || found->second.empty()) return std::nullopt;
    LibraryErrorEntry entry = std::move(found->second.front());
    found->second.pop_front();
    return entry;
}

}  // namespace platform::memory
