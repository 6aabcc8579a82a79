#include "crypto/RefreshCrl.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "config/RegistryLayout.h"
#include "text/Format.h"
#include "text/Numbers.h"

namespace crypto {
namespace {

constexpr std::wstring_view separator = L";;";
constexpr wchar_t stampsValue[] = L"LastCrlUpdate";

// The time of a stamp of this CS profile; nothing for any other text.
std::optional<int32_t> TimeOf(std::wstring_view stamp, std::wstring_view csProfile) {
    const size_t end = stamp.find(separator);
    if (end == std::wstring_view::npos || stamp.substr(0, end) != csProfile) return std::nullopt;
    const std::wstring_view rest = stamp.substr(end + separator.size());
    return text::LeadingNumber(rest.substr(0, rest.find(separator)));
}

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

bool RefreshCrl(const config::Services& services, const ui::Dialog& parent, const CryptoContext& context,
                const std::wstring& csProfile, int32_t periodHours) {
    const errors::ReportContext report{.owner = &parent};
    config::RegistryStore store = services.Registry.Another();
    if (!store.Open(config::ServiceHive, config::ServiceRoot, report)) return false;

    const int64_t now = services.Machine.Clock.SecondsSince1970();
    std::vector<std::wstring> stamps;
    const bool stampsKnown = store.ReadStringList(stampsValue, stamps, report);
    const CrlStampSearch found = FindCrlStamp(stamps, csProfile, periodHours, now);
    if (!found.due) return true;

    const Loaded loaded = LoadCrl(context);
    SetCrlStamp(stamps, found.position, csProfile, now);
    // Writing after a failed read would lose the stamps of all other CS profiles.
    if (stampsKnown) store.WritePlainList(stampsValue, stamps, report);

    if (loaded.code == 0 || loaded.diagnostic.empty()) return true;
    const LibraryFailure failure{.code = loaded.code,
                                 .operation = L"Connetion to CRL distribution point",
                                 .detail = services.Machine.CodePage.ToWide(loaded.diagnostic)};
    return AsksToContinue(services, parent, failure, L"Continue without loading CRL?");
}

CrlStampSearch FindCrlStamp(const std::vector<std::wstring>& stamps, std::wstring_view csProfile, int32_t periodHours,
                            int64_t now) {
    CrlStampSearch found;
    for (size_t i = 0; i < stamps.size(); ++i) {
        const std::optional<int32_t> last = TimeOf(stamps[i], csProfile);
        if (!last) continue;
        found.position = i;
        if (*last / 60 + int64_t{periodHours} * 60 > now / 60) found.due = false;
    }
    return found;
}

void SetCrlStamp(std::vector<std::wstring>& stamps, std::optional<size_t> position, std::wstring_view csProfile,
                 int64_t now) {
    std::wstring stamp = text::Format(L"%s;;%lld", csProfile, now);
    if (position) {
        stamps[*position] = std::move(stamp);
    } else {
        stamps.push_back(std::move(stamp));
    }
}

}  // namespace crypto
