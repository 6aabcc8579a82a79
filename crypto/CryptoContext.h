// An open context of the cryptographic library, what is found in it, and how its failures are shown.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "config/Services.h"

namespace crypto {

// Certificate stores, ready for searching. Whoever opens a context closes it, so it is owned by this one
// object and closed when that goes.
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

// What the library found in one search. It belongs to the library and goes back there exactly once.
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

// A failure of the library while a context is opened.
struct LibraryFailure {
    uint32_t code = 0;       // of the library, or of the system when there is no library
    std::wstring operation;  // what was being done
    std::wstring detail;     // what else is known, in lines of its own
};

// Shows the failure with everything known about it. owner: none, or the dialog in front of which it appears.
void ShowLibraryFailure(const config::Services& services, ui::Dialog* owner, const LibraryFailure& failure);

// Shows the failure in a box without an owner, then asks the question after the failure's description. True:
// the user wants to go on.
bool AsksToContinue(const config::Services& services, const ui::Dialog& parent, const LibraryFailure& failure,
                    const std::wstring& question);

}  // namespace crypto
