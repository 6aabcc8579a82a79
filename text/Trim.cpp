#include "text/Trim.h"

namespace text {

std::wstring_view TrimRight(std::wstring_view text, std::wstring_view characters) {
    return text.substr(0, text.find_last_not_of(characters) + 1);
}

std::wstring JoinNonEmpty(const std::vector<std::wstring_view>& parts, std::wstring_view separator) {
    std::wstring result;
    for (const std::wstring_view part : parts) {
        if (part.empty()) continue;
        if (!result.empty()) result += separator;
        result += part;
    }
    return result;
}

}  // namespace text
