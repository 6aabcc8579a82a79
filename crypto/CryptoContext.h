// An open context of the cryptographic library: certificate stores, ready for searching. Whoever opens one
// closes it, so it is owned by this one object and closed when that goes.
#pragma once

#include "errors/ErrorReport.h"
#include "platform/Machine.h"

namespace crypto {

class CryptoContext {
  public:
    // Takes a context over that the library has opened. Library and reporter must outlive it.
    CryptoContext(const platform::kseal::Exports& library, platform::kseal::Context context,
                  const errors::ErrorReporter& reporter)
        : library_(&library),
          context_(context),
          reporter_(&reporter) {}
    ~CryptoContext();
    CryptoContext(const CryptoContext&) = delete;
    CryptoContext& operator=(const CryptoContext&) = delete;
    CryptoContext(CryptoContext&& other) noexcept;
    CryptoContext& operator=(CryptoContext&&) = delete;

    // A failure is reported and forgotten: nothing is lost by it. A second Close does nothing.
    void Close();

    const platform::kseal::Exports& Library() const { return *library_; }
    // For calls of the library, and for reports, which show its error stack. Null once closed.
    platform::kseal::Context Handle() const { return context_; }

  private:
    const platform::kseal::Exports* library_;
    platform::kseal::Context context_;
    const errors::ErrorReporter* reporter_;
};

}  // namespace crypto
