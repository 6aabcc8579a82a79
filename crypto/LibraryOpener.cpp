#include "crypto/LibraryOpener.h"

#include "crypto/LibrarySearch.h"
#include "crypto/OpenCryptoContext.h"

namespace crypto {

void LibraryOpener::WithContext(ui::Dialog& parent, const config::ServiceProfile& profile, int storeProfile,
                                const Command& command) {
    const ui::WaitCursor wait(services_.Screen);  // closing the context may take long, too
    const ContextSettings settings = SettingsOf(profile, storeProfile);
    const auto opened = OpenCryptoContext(services_, parent, settings);
    if (!opened) return;
    LibrarySearch search(services_, opened->Context, settings.Picker);
    command(search, settings.Picker, opened->LdapUsable);
}

}  // namespace crypto
