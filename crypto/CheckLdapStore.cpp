#include "crypto/CheckLdapStore.h"

#include "crypto/FindResult.h"
#include "crypto/LibraryFailure.h"

namespace crypto {
namespace {

platform::kseal::Code Probe(const CryptoContext& context) {
    platform::kseal::CertFindRequest request;
    request.SearchWord = 0xE04;
    request.Query = "CN=QQQ,C=RU";
    request.FieldsWanted = 4;
    return FindResult(context, request, FindResult::Released::Always).Code();
}

}  // namespace

bool CheckLdapStore(const config::Services& services, const ui::Dialog& parent, const CryptoContext& context,
                    bool& ldapUsable) {
    const platform::kseal::Code code = Probe(context);
    ldapUsable = code == 0 || code == platform::kseal::NothingFound;
    if (ldapUsable) return true;
    const LibraryFailure failure{.code = code,
                                 .operation = L"Conneting to network store (LDAP)",
                                 .detail = errors::ErrorStackText(services.Machine, context.Handle())};
    return GoesOnAfter(services, parent, failure, L"Continue without LDAP?");
}

}  // namespace crypto
