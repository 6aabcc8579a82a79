// Cutting and joining of texts.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace text {

// The text without any of the given characters at its end.
inline std::wstring_view TrimRight(std::wstring_view text, std::wstring_view characters) {
    const size_t last = text.find_last_not_of(characters);
    return last == std::wstring_view::npos ? std::wstring_view() : text.substr(0, last + 1);
}

// The same for both ends.
inline std::wstring_view Trim(std::wstring_view text, std::wstring_view characters) {
    const std::wstring_view cut = TrimRight(text, characters);
    return cut.substr(std::min(cut.find_first_not_of(characters), cut.size()));
}

// The non-empty ones of the parts with the separator between them.
inline std::wstring JoinNonEmpty(const std::vector<std::wstring_view>& parts, std::wstring_view separator) {
    std::wstring result;
    for (const std::wstring_view part : parts) {
        if (part.empty()) continue;
        if (!result.empty()) result += separator;
        result += part;
    }
    return result;
}

}  // namespace text
