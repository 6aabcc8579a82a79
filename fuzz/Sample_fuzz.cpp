// Any two texts as a sample and a value: the matching must agree with trying every way, step by step over all
// pairs of places.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "certs/OwnerSearch.h"
#include "fuzz/Text.h"

namespace {

// matches[v]: what has been read of the sample describes the first v characters of the value.
bool MatchesInSomeWay(const std::wstring& sample, const std::wstring& value) {
    std::vector<bool> matches(value.size() + 1, false);
    matches[0] = true;
    for (const wchar_t unit : sample) {
        std::vector<bool> next(value.size() + 1, false);
        for (size_t v = 0; v <= value.size(); ++v) {
            if (unit == L'*') {
                next[v] = matches[v] || (v > 0 && next[v - 1]);
            } else {
                next[v] = v > 0 && matches[v - 1] && value[v - 1] == unit;
            }
        }
        matches = next;
    }
    return matches[value.size()];
}

}  // namespace

// The first byte tells how long the sample is that follows; the rest is the value.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0 || size > 2048) return 0;
    const size_t length = data[0] < size - 1 ? data[0] : size - 1;
    const std::wstring sample = fuzz::WideText(data + 1, length);
    const std::wstring value = fuzz::WideText(data + 1 + length, size - 1 - length);
    if (certs::WildcardPattern(sample).Matches(value) != MatchesInSomeWay(sample, value)) std::abort();
    return 0;
}
