#include "crypto/RefreshCrl.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "config/RegistryLayout.h"
#include "crypto/CrlStamps.h"
#include "crypto/LibraryFailure.h"

namespace crypto {
namespace {

constexpr wchar_t stampsValue[] = L"LastCrlUpdate";

struct Loaded {
    platform::kseal::Code code = 0;
    std::string diagnostic;  // in the ANSI code page
};

Loaded LoadCrl(const CryptoContext& context) {
    std::array<char, 1024> buffer{};
    platform::kseal::CrlControlBlock block;
    block.BufferLength = static_cast<uint32_t>(buffer.size());
    block.Buffer = buffer.data();
    const platform::kseal::Code code =
        context.Library().Ctrl(context.Handle(), platform::kseal::LoadCrlControl, &block);
    return {code, {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')}};
}

}  // namespace

bool RefreshCrl(const config::Services& services, const ui::Dialog& parent, const ContextSettings& settings,
                const CryptoContext& context) {
    const errors::ReportContext report{.owner = &parent};
    config::RegistryStore store = services.Registry.Another();
    if (!store.Open(config::ServiceHive, config::ServiceRoot, report)) return false;

    const int64_t now = services.Machine.Clock.SecondsSince1970();
    std::vector<std::wstring> stamps;
    const bool stampsKnown = store.ReadStringList(stampsValue, stamps, report);
    const CrlStampSearch found = FindCrlStamp(stamps, settings.ZCSProfile, settings.CrlUpdatePeriod, now);
    if (!found.due) return true;

    const Loaded loaded = LoadCrl(context);
    SetCrlStamp(stamps, found.position, settings.ZCSProfile, now);
    // Writing after a failed read would lose the stamps of all other store profiles.
    if (stampsKnown) store.WritePlainList(stampsValue, stamps, report);

    if (loaded.code == 0 || loaded.diagnostic.empty()) return true;
    const LibraryFailure failure{.code = loaded.code,
                                 .operation = L"Connetion to CRL distribution point",
                                 .detail = services.Machine.CodePage.ToWide(loaded.diagnostic)};
    return GoesOnAfter(services, parent, failure, L"Continue without loading CRL?");
}

}  // namespace crypto
