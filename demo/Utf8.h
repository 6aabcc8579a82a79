// UTF-8 and UTF-16, strictly and the same on every system.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace demo {

// As UTF-16 code units. Nothing for ill-formed input: stray or missing continuation bytes, longer forms than
// needed, surrogates, and numbers beyond Unicode.
std::optional<std::wstring> FromUtf8(std::string_view utf8);

// From UTF-16 code units. Nothing when a surrogate stands without its partner.
std::optional<std::string> ToUtf8(std::wstring_view units);

}  // namespace demo
