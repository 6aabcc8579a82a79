// What has to be right before the profile editor accepts its form, and which rules still hold certificates of
// a CS profile that is about to go.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "config/Records.h"

namespace editors {

struct ProfileForm {
    std::wstring Name{};
    int32_t HandlerTimeout = 0;  // seconds
    bool UsesTimeStampServer = false;
    std::wstring TimeStampServer{};  // of the CS profile that is shown
};

enum class ProfileField { Name, HandlerTimeout, TimeStampServer };

// Why a form is not accepted.
struct ProfileRefusal {
    ProfileField field = ProfileField::Name;  // the one to be put right
    std::wstring text;
    bool operator==(const ProfileRefusal&) const = default;
};

// A server is to be used and none is named: there is no text, or the one that stands for none.
std::optional<ProfileRefusal> CheckTimeStampServer(bool isUsed, std::wstring_view server);

// The first check that the form fails; nothing when it passes them all. nameBefore: empty for a new profile.
// names: those of all profiles.
std::optional<ProfileRefusal> Validate(const ProfileForm& form, const std::wstring& nameBefore,
                                       std::span<const std::wstring> names);

// The positions, from 1 on, of the rules that have certificates or signer lists of the CS profile: "2,5".
std::wstring RulesWithCertificatesOf(std::span<const config::Rule> rules, std::wstring_view csProfile);

}  // namespace editors
