#include "crypto/OpenCryptoContext.h"

#include <string>

#include "crypto/AwaitDlg.h"
#include "crypto/CheckLdapStore.h"
#include "crypto/LibraryFailure.h"
#include "crypto/RefreshCrl.h"

namespace crypto {
namespace {

namespace kseal = platform::kseal;

struct Initialized {
    const kseal::Exports* library = nullptr;
    kseal::Context context = nullptr;
    uint32_t code = 0;
};

// A library that is missing is a failure to initialise it, too. Looking for it may take a while as well.
Initialized Initialize(const config::Services& services, ui::Dialog& parent,
                       const ContextSettings& settings) {
    const uint32_t flags = ContextFlags(settings.Picker);
    const std::string name = services.Machine.CodePage.ToAnsi(settings.ZCSProfile);
    AwaitDlg wait(services.Screen, parent);
    wait.OpenModeless();
    Initialized result;
    result.library = services.Machine.CryptoLibrary.Exports(result.code);
    if (result.library != nullptr)
        result.code = result.library->Initialize(name.c_str(), flags, &result.context);
    return result;
}

// Where there is no library, there is no error stack either.
std::wstring DetailOf(const platform::Machine& machine, const Initialized& failed) {
    return failed.library == nullptr ? machine.CryptoLibrary.WhatIsMissing()
                                     : errors::ErrorStackText(machine, nullptr);
}

std::optional<CryptoContext> Open(const config::Services& services, ui::Dialog& parent,
                                  const ContextSettings& settings) {
    const Initialized result = Initialize(services, parent, settings);
    if (result.code == 0 && result.context != nullptr)
        return CryptoContext(*result.library, result.context, services.Errors);
    ShowLibraryFailure(services, &parent,
                       {.code = result.code,
                        .operation = L"Cryptocontext initialization",
                        .detail = DetailOf(services.Machine, result)});
    return std::nullopt;
}

}  // namespace

std::optional<OpenedContext> OpenCryptoContext(const config::Services& services, ui::Dialog& parent,
                                               const ContextSettings& settings) {
    const ui::WaitCursor wait(services.Screen);
    std::optional<CryptoContext> context = Open(services, parent, settings);
    if (!context) return std::nullopt;
    bool ldapUsable = settings.Picker.NotUseLDAP == 0;
    if (ldapUsable && !CheckLdapStore(services, parent, *context, ldapUsable)) return std::nullopt;
    const bool wantsCrl = settings.Picker.NotLoadCrl == 0 && settings.CrlUpdatePeriod >= 1;
    if (wantsCrl && !RefreshCrl(services, parent, settings, *context)) return std::nullopt;
    return OpenedContext{std::move(*context), ldapUsable};
}

uint32_t ContextFlags(const PickerSettings& settings) {
    uint32_t flags = 0x80000040;
    if (settings.NotCopyToLocal != 0) flags |= 0x20;
    if (settings.UseAIA != 0) flags |= 0x400;
    if (settings.NotUseLDAP != 0) flags |= 0x4;
    if (settings.NotLoadCrl != 0) flags |= 0x1;
    return flags;
}

}  // namespace crypto
