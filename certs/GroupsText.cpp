#include "certs/GroupsText.h"

#include <algorithm>

namespace certs {

void ReadGroupLines(std::string_view bytes, const std::function<void(std::string_view line)>& take) {
    constexpr std::string_view lineEnd = "\r\n";
    std::string_view rest = bytes.substr(0, std::min(bytes.find('\0'), bytes.size()));
    for (size_t end = rest.find(lineEnd); end != std::string_view::npos; end = rest.find(lineEnd)) {
        const std::string_view line = rest.substr(0, end);
        if (line.find('=') != std::string_view::npos) take(line);
        rest.remove_prefix(end + lineEnd.size());
    }
}

}  // namespace certs
