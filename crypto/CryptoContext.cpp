#include "crypto/CryptoContext.h"

#include <new>
#include <utility>

namespace crypto {

CryptoContext::CryptoContext(CryptoContext&& other) noexcept
    : library_(other.library_),
      context_(std::exchange(other.context_, nullptr)),
      reporter_(other.reporter_) {}

CryptoContext::~CryptoContext() {
    try {
        Close();
    } catch (const std::bad_alloc&) {
        // The context is closed; that it could not be said how is no reason to end the program.
    }
}

void CryptoContext::Close() {
    if (context_ == nullptr) return;
    const platform::kseal::Code code = library_->Uninitialize(std::exchange(context_, nullptr));
    if (code == 0) return;
    reporter_->ErrorReport({.owner = nullptr, .mode = errors::ReportMode::Collect},
                           {.code = code, .operation = L"Cryptocontext uninitialization", .argument = {}});
}

}  // namespace crypto
