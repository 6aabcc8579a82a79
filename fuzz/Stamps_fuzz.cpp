// Any texts as the list of times at which revocation lists were refreshed, any period and any time of day,
// beside a plain statement of when a refresh is due.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "crypto/RefreshCrl.h"
#include "fuzz/Input.h"
#include "fuzz/Text.h"
#include "text/Numbers.h"

namespace {

using fuzz::Require;
using Texts = std::vector<std::wstring>;

Texts Pieces(const std::wstring& text, const std::wstring& separator) {
    Texts pieces(1);
    for (size_t i = 0; i < text.size();) {
        if (text.compare(i, separator.size(), separator) == 0) {
            pieces.emplace_back();
            i += separator.size();
        } else {
            pieces.back() += text[i++];
        }
    }
    return pieces;
}

crypto::CrlStampSearch Find(const Texts& stamps, const std::wstring& name, int32_t period, int64_t now) {
    crypto::CrlStampSearch found;
    for (size_t i = 0; i < stamps.size(); ++i) {
        const Texts pieces = Pieces(stamps[i], L";;");
        if (pieces.size() < 2 || pieces[0] != name) continue;
        found.position = i;
        const int64_t minute = text::LeadingNumber(pieces[1]) / 60;
        if (minute + int64_t{60} * period > now / 60) found.due = false;
    }
    return found;
}

void Check(Texts stamps, const std::wstring& name, int32_t period, int64_t now) {
    const crypto::CrlStampSearch expected = Find(stamps, name, period, now);
    const crypto::CrlStampSearch found = crypto::FindCrlStamp(stamps, name, period, now);
    Require(found.due == expected.due && found.position == expected.position);

    const Texts before = stamps;
    crypto::SetCrlStamp(stamps, found.position, name, now);
    const size_t place = found.position.value_or(before.size());
    Require(stamps.size() == std::max(before.size(), place + 1));
    Require(stamps[place] == name + L";;" + text::Decimal(now));
    for (size_t i = 0; i < before.size(); ++i) Require(i == place || stamps[i] == before[i]);
    // Stamped now, nothing is due for as long as the period holds: unless the name itself is cut.
    const bool kept = now >= 0 && now <= std::numeric_limits<int32_t>::max() && period > 0;
    const bool whole = (name + L";").find(L";;") == std::wstring::npos;
    if (kept && whole) Require(!crypto::FindCrlStamp(stamps, name, period, now).due);
}

}  // namespace

// Four bytes of period, eight of time, then lines: the CS profile and the stamps.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::Input input({data, size});
    const auto period = static_cast<int32_t>(input.Word());
    const uint64_t high = input.Word();
    const auto now = static_cast<int64_t>(high << 32 | input.Word());
    const auto rest = input.Rest();
    Texts lines = Pieces(fuzz::WideText(rest.data(), rest.size()), L"\n");
    const std::wstring name = lines.front();
    lines.erase(lines.begin());
    Check(lines, name, period, now);
    return 0;
}
