#include "editors/ProfileChecks.h"

#include <algorithm>

#include "config/CsProfileSettings.h"
#include "text/Format.h"
#include "text/Numbers.h"

namespace editors {
namespace {

constexpr size_t LongestName = 15;

std::optional<ProfileRefusal> CheckName(const std::wstring& name) {
    const auto refuse = [](std::wstring text) { return ProfileRefusal{ProfileField::Name, std::move(text)}; };
    if (name.empty()) return refuse(L"Please, type a name for profile.");
    if (name.size() > LongestName)
        return refuse(text::Format(L"Profile name cannot be longer than %d symbols.", LongestName));
    if (name.find_first_not_of(L' ') == std::wstring::npos)
        return refuse(L"Profile name cannot consist from spaces only.");
    return std::nullopt;
}

std::optional<ProfileRefusal> CheckIsNew(const std::wstring& name, std::span<const std::wstring> names) {
    if (std::find(names.begin(), names.end(), name) == names.end()) return std::nullopt;
    return ProfileRefusal{ProfileField::Name, text::Format(L"Profile '%s' allready exists.", name)};
}

}  // namespace

std::optional<ProfileRefusal> CheckTimeStampServer(bool isUsed, std::wstring_view server) {
    if (!isUsed || (!server.empty() && server != config::NoTimeStampServer)) return std::nullopt;
    return ProfileRefusal{ProfileField::TimeStampServer, L"Please, type TSP data."};
}

std::optional<ProfileRefusal> Validate(const ProfileForm& form, const std::wstring& nameBefore,
                                       std::span<const std::wstring> names) {
    if (auto refusal = CheckName(form.Name)) return refusal;
    if (form.HandlerTimeout == 0)
        return ProfileRefusal{ProfileField::HandlerTimeout, L"Please, choose handler timeout."};
    if (form.Name != nameBefore)
        if (auto refusal = CheckIsNew(form.Name, names)) return refusal;
    return CheckTimeStampServer(form.UsesTimeStampServer, form.TimeStampServer);
}

std::wstring RulesWithCertificatesOf(std::span<const config::Rule> rules, std::wstring_view csProfile) {
    std::wstring positions;
    for (size_t i = 0; i < rules.size(); ++i) {
        const config::Rule& rule = rules[i];
        if (rule.ZCSProfile != csProfile || (rule.Certificates.empty() && rule.SignerLists.empty())) continue;
        if (!positions.empty()) positions += L',';
        positions += text::Decimal(static_cast<int64_t>(i) + 1);
    }
    return positions;
}

}  // namespace editors
