// What the library found in one search. It belongs to the library and goes back there exactly once.
#pragma once

#include <span>

#include "crypto/CryptoContext.h"

namespace crypto {

class FindResult {
  public:
    enum class Released { AfterSuccess, Always };

    // Searches. The context must outlive the result.
    FindResult(const CryptoContext& context, const platform::kseal::CertFindRequest& request,
               Released released = Released::AfterSuccess);
    ~FindResult();
    FindResult(const FindResult&) = delete;
    FindResult& operator=(const FindResult&) = delete;

    platform::kseal::Code Code() const { return code_; }
    // None after a failure.
    std::span<const platform::kseal::CertEntry> Entries() const;

  private:
    const CryptoContext& context_;
    const Released released_;
    platform::kseal::CertFindResult result_;
    const platform::kseal::Code code_;
};

}  // namespace crypto
