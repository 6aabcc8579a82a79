#include "crypto/FindResult.h"

namespace crypto {

FindResult::FindResult(const CryptoContext& context, const platform::kseal::CertFindRequest& request,
                       Released released)
    : context_(context),
      released_(released),
      code_(context.Library().FindCert(context.Handle(), &request, &result_)) {}

FindResult::~FindResult() {
    if (code_ != 0 && released_ != Released::Always) return;
    context_.Library().FreeFindResult(context_.Handle(), &result_);
}

std::span<const platform::kseal::CertEntry> FindResult::Entries() const {
    if (code_ != 0 || result_.Entries == nullptr) return {};
    return {result_.Entries, result_.Count};
}

}  // namespace crypto
