// Any bytes as an exchange text. Whatever rules they give must come back when they are written and read
// again.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "config/ExchangeFormat.h"
#include "platform/memory/MemoryCodePage.h"

namespace {

using Texts = std::vector<std::wstring>;

// An empty list and one whose only entry is "0" look alike; where empty entries in front are left out, a
// carriage return can come to stand behind a line feed, which ends the record.
bool IsWrittenAsSomethingElse(const Texts& entries) {
    return entries == Texts{L"0"} || (!entries.empty() && entries.front().starts_with(L'\r'));
}

bool CanBeWritten(const config::Rule& rule) {
    return !IsWrittenAsSomethingElse(rule.Masks) && !IsWrittenAsSomethingElse(rule.Certificates);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const platform::memory::MemoryCodePage codePage;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const config::ExchangedRules read = config::ParseExchangeText(bytes, codePage);
    if (!read.rules.empty() && !read.anyRecord) std::abort();

    const std::string written = config::ExchangeText(read.rules, codePage);
    const config::ExchangedRules again = config::ParseExchangeText(written, codePage);
    if (!std::all_of(read.rules.begin(), read.rules.end(), CanBeWritten)) return 0;
    if (again.rules != read.rules) std::abort();
    if (config::ExchangeText(again.rules, codePage) != written) std::abort();
    return 0;
}
