#include "crypto/LibraryFailure.h"

#include "errors/MessageBoxes.h"
#include "errors/WarningBox.h"
#include "text/Format.h"

namespace crypto {

void ShowLibraryFailure(const config::Services& services, ui::Dialog* owner, const LibraryFailure& failure) {
    const std::wstring text =
        text::Format(L"%s.\r\n%s - %s.\r\n\r\n%s", failure.operation, errors::CodeText(failure.code),
                     services.Errors.Description(failure.code), failure.detail);
    errors::WarningBox(services.Screen, owner, errors::WarningBox::Kind::Error, text).DoModal();
}

bool GoesOnAfter(const config::Services& services, const ui::Dialog& parent, const LibraryFailure& failure,
                 const std::wstring& question) {
    ShowLibraryFailure(services, nullptr, failure);
    const std::wstring text =
        text::Format(L"%s (0x%X).\r\n%s", services.Errors.Description(failure.code), failure.code, question);
    return errors::PlainMessageBox(services.Screen, &parent, text,
                                   ui::box::OkCancel | ui::box::ExclamationIcon) == ui::IdOk;
}

}  // namespace crypto
