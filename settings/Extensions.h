// The file name extensions that the service gives its results, and what is asked of them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/Records.h"

namespace settings {

struct Extension {
    std::wstring config::GlobalSettings::*setting;
    std::wstring_view whenEmpty;  // what the user is told; no text: it may be empty
};

inline constexpr size_t ExtensionCount = 8;

// In the order in which they are shown and checked.
const std::array<Extension, ExtensionCount>& Extensions();

// The first extension, by its index in Extensions, that must not be empty and is; nothing else is asked of
// them.
std::optional<size_t> FirstMissing(const config::GlobalSettings& settings);

// Without regard to case.
bool HoldsExtension(const std::vector<std::wstring>& extensions, std::wstring_view extension);

}  // namespace settings
