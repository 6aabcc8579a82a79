#include "crypto/OpenCryptoContext.h"

#include <string>

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
Initialized Initialize(const config::Services& services, ui::Dialog& parent, const std::wstring& csProfile,
                       uint32_t flags) {
    const std::string name = services.Machine.CodePage.ToAnsi(csProfile);
    AwaitDlg wait(services.Screen, parent);
    wait.OpenModeless();
    Initialized result;
    result.library = services.Machine.CryptoLibrary.Exports(result.code);
    if (result.library != nullptr) result.code = result.library->Initialize(name.c_str(), flags, &result.context);
    return result;
}

// Where there is no library, there is no error stack either.
std::wstring DetailOf(const platform::Machine& machine, const Initialized& failed) {
    return failed.library == nullptr ? machine.CryptoLibrary.WhatIsMissing() : errors::ErrorStackText(machine, nullptr);
}

std::optional<CryptoContext> Open(const config::Services& services, ui::Dialog& parent, const std::wstring& csProfile,
                                  uint32_t flags) {
    const Initialized result = Initialize(services, parent, csProfile, flags);
    if (result.code == 0 && result.context != nullptr)
        return CryptoContext(*result.library, result.context, services.Errors);
    ShowLibraryFailure(services, &parent,
                       {.code = result.code,
                        .operation = L"Cryptocontext initialization",
                        .detail = DetailOf(services.Machine, result)});
    return std::nullopt;
}

kseal::Code Probe(const CryptoContext& context) {
    kseal::CertFindRequest request;
    request.SearchWord = 0xE04;
    request.Query = "CN=QQQ,C=RU";
    request.FieldsWanted = 4;
    return FindResult(context, request, FindResult::Released::Always).Code();
}

}  // namespace

std::optional<OpenedContext> OpenCryptoContext(const config::Services& services, ui::Dialog& parent,
                                               const std::wstring& csProfile, const PickerSettings& settings) {
    const ui::WaitCursor wait(services.Screen);
    std::optional<CryptoContext> context = Open(services, parent, csProfile, ContextFlags(settings));
    if (!context) return std::nullopt;
    bool ldapUsable = settings.NotUseLDAP == 0;
    if (ldapUsable && !CheckLdapStore(services, parent, *context, ldapUsable)) return std::nullopt;
    const bool needsCrl = settings.NotLoadCrl == 0 && settings.CrlUpdatePeriod >= 1;
    if (needsCrl && !RefreshCrl(services, parent, *context, csProfile, settings.CrlUpdatePeriod)) return std::nullopt;
    return OpenedContext{std::move(*context), ldapUsable};
}

bool CheckLdapStore(const config::Services& services, const ui::Dialog& parent, const CryptoContext& context,
                    bool& ldapUsable) {
    const kseal::Code code = Probe(context);
    ldapUsable = code == 0 || code == kseal::NothingFound;
    if (ldapUsable) return true;
    const LibraryFailure failure{.code = code,
                                 .operation = L"Conneting to network store (LDAP)",
                                 .detail = errors::ErrorStackText(services.Machine, context.Handle())};
    return AsksToContinue(services, parent, failure, L"Continue without LDAP?");
}

uint32_t ContextFlags(const PickerSettings& settings) {
    uint32_t flags = 0x80000040;
    if (settings.NotCopyToLocal != 0) flags |= 0x20;
    if (settings.UseAIA != 0) flags |= 0x400;
    if (settings.NotUseLDAP != 0) flags |= 0x4;
    if (settings.NotLoadCrl != 0) flags |= 0x1;
    return flags;
}

// In the middle of the parent, halves of pixels cut off.
void AwaitDlg::OnInitDialog() {
    const ui::Rect parent = Parent()->NormalRect();
    ui::Rect own = NormalRect();
    own.x = parent.x + parent.width / 2 - own.width / 2;
    own.y = parent.y + parent.height / 2 - own.height / 2;
    SetNormalRect(own);
}

}  // namespace crypto
