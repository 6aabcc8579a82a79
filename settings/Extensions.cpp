#include "settings/Extensions.h"

#include <algorithm>

#include "text/Upper.h"

namespace settings {

using config::GlobalSettings;

const std::array<Extension, ExtensionCount>& Extensions() {
    static constexpr std::array<Extension, ExtensionCount> extensions{{
        {&GlobalSettings::SigExt, L"Please, choose extension for files with attached signature."},
        {&GlobalSettings::DsigExt, L"Please, choose extension for files with detached signature."},
        {&GlobalSettings::EncExt, L"Please, choose extension for encrypted files."},
        {&GlobalSettings::B64Ext, L"Please, choose extension for b64 files."},
        {&GlobalSettings::HashExt, L"Please, choose extension for hash files."},
        {&GlobalSettings::VerifyFileExt,
         L"Please, choose extension for files with signature verification report."},
        {&GlobalSettings::ZIPArchiveExt, L""},
        {&GlobalSettings::GZIPArchiveExt, L""},
    }};
    return extensions;
}

std::optional<size_t> FirstMissing(const GlobalSettings& settings) {
    for (size_t i = 0; i < ExtensionCount; ++i) {
        const Extension& extension = Extensions().at(i);
        if (!extension.whenEmpty.empty() && (settings.*extension.setting).empty()) return i;
    }
    return std::nullopt;
}

bool HoldsExtension(const std::vector<std::wstring>& extensions, std::wstring_view extension) {
    const std::wstring upper = text::Upper(extension);
    return std::any_of(extensions.begin(), extensions.end(),
                       [&upper](const std::wstring& held) { return text::Upper(held) == upper; });
}

}  // namespace settings
