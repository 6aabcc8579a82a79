#include "demo/CertificateQuery.h"

#include <algorithm>
#include <vector>

namespace demo {
namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The parts between commas, without blanks in front.
std::vector<std::string_view> Assertions(std::string_view name) {
    std::vector<std::string_view> assertions;
    for (;;) {
        name.remove_prefix(std::min(name.find_first_not_of(' '), name.size()));
        const size_t end = name.find(',');
        assertions.push_back(name.substr(0, end));
        if (end == std::string_view::npos) return assertions;
        name.remove_prefix(end + 1);
    }
}

}  // namespace

// On a mismatch the last asterisk takes one character more.
bool MatchesSample(std::string_view text, std::string_view sample) {
    size_t inText = 0;
    size_t inSample = 0;
    size_t asterisk = std::string_view::npos;
    size_t afterAsterisk = 0;
    while (inText < text.size()) {
        if (inSample < sample.size() && sample[inSample] == '*') {
            asterisk = inSample++;
            afterAsterisk = inText;
        } else if (inSample < sample.size() && Lower(sample[inSample]) == Lower(text[inText])) {
            ++inSample;
            ++inText;
        } else if (asterisk != std::string_view::npos) {
            inSample = asterisk + 1;
            inText = ++afterAsterisk;
        } else {
            return false;
        }
    }
    return sample.find_first_not_of('*', inSample) == std::string_view::npos;
}

bool MatchesQuery(std::string_view ownerName, std::string_view query) {
    if (query == "*=*" || MatchesSample(ownerName, query)) return true;
    const std::vector<std::string_view> own = Assertions(ownerName);
    const std::vector<std::string_view> wanted = Assertions(query);
    return std::all_of(wanted.begin(), wanted.end(), [&own](std::string_view sample) {
        return std::any_of(own.begin(), own.end(),
                           [sample](std::string_view assertion) { return MatchesSample(assertion, sample); });
    });
}

}  // namespace demo
