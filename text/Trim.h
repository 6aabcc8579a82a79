// Cutting and joining of texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace text {

// The text without any of the given characters at its ends.
std::wstring_view Trim(std::wstring_view text, std::wstring_view characters);
// The same for its end alone.
std::wstring_view TrimRight(std::wstring_view text, std::wstring_view characters);

// The non-empty ones of the parts with the separator between them.
std::wstring JoinNonEmpty(const std::vector<std::wstring_view>& parts, std::wstring_view separator);

}  // namespace text
