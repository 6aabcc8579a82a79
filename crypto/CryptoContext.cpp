#include "crypto/CryptoContext.h"

#include <new>
#include <utility>

#include "errors/MessageBoxes.h"
#include "text/Format.h"

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

FindResult::FindResult(const CryptoContext& context, const platform::kseal::CertFindRequest& request, Released released)
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

void ShowLibraryFailure(const config::Services& services, ui::Dialog* owner, const LibraryFailure& failure) {
    const std::wstring text =
        text::Format(L"%s.\r\n%s - %s.\r\n\r\n%s", failure.operation, errors::CodeText(failure.code),
                     services.Errors.Description(failure.code), failure.detail);
    errors::WarningBox(services.Screen, owner, errors::WarningBox::Kind::Error, text).DoModal();
}

bool AsksToContinue(const config::Services& services, const ui::Dialog& parent, const LibraryFailure& failure,
                    const std::wstring& question) {
    ShowLibraryFailure(services, nullptr, failure);
    const std::wstring text =
        text::Format(L"%s (0x%X).\r\n%s", services.Errors.Description(failure.code), failure.code, question);
    return errors::PlainMessageBox(services.Screen, &parent, text, ui::box::OkCancel | ui::box::ExclamationIcon) ==
           ui::IdOk;
}

}  // namespace crypto
