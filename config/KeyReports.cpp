#include "config/KeyReports.h"

namespace config {

bool KeyReports::Opened(platform::Win32Code code, platform::RootKey root, const std::wstring& path) const {
    return Report(code, L"Create (open) register key %s", root, path);
}

bool KeyReports::Searched(platform::Win32Code code, platform::RootKey root, const std::wstring& path) const {
    return Report(code, L"Search register key %s subkeys", root, path);
}

bool KeyReports::Deleted(platform::Win32Code code, platform::RootKey root, const std::wstring& path) const {
    return Report(code, L"Delete register key %s", root, path);
}

bool KeyReports::Report(platform::Win32Code code, const wchar_t* operation, platform::RootKey root,
                        const std::wstring& path) const {
    if (code == platform::code::Success) return true;
    const std::wstring shown = DisplayPath(root, path);
    reporter_.ErrorReport({.owner = owner_}, {.code = code, .operation = operation, .argument = shown});
    return false;
}

}  // namespace config
