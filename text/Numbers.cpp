#include "text/Numbers.h"

#include <algorithm>
#include <limits>

namespace text {
namespace {

std::wstring InBase(uint64_t number, uint64_t base) {
    std::wstring digits;
    do {
        digits += L"0123456789ABCDEF"[number % base];
        number /= base;
    } while (number != 0);
    std::reverse(digits.begin(), digits.end());
    return digits;
}

}  // namespace

std::wstring Decimal(int64_t number) {
    if (number >= 0) return InBase(static_cast<uint64_t>(number), 10);
    return L"-" + InBase(~static_cast<uint64_t>(number) + 1, 10);
}

std::wstring Hexadecimal(uint64_t number) {
    return InBase(number, 16);
}

uint64_t LeadingDigits(std::wstring_view text) {
    constexpr uint64_t largest = std::numeric_limits<uint64_t>::max();
    uint64_t value = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9') break;
        const auto digit = static_cast<uint64_t>(c - L'0');
        if (value > (largest - digit) / 10) return largest;
        value = value * 10 + digit;
    }
    return value;
}

int32_t LeadingNumber(std::wstring_view text) {
    constexpr uint64_t largest = std::numeric_limits<int32_t>::max();
    text.remove_prefix(std::min(text.find_first_not_of(L' '), text.size()));
    const bool negative = text.starts_with(L'-');
    if (negative || text.starts_with(L'+')) text.remove_prefix(1);
    const uint64_t digits = LeadingDigits(text);
    if (!negative) return static_cast<int32_t>(std::min(digits, largest));
    return static_cast<int32_t>(-static_cast<int64_t>(std::min(digits, largest + 1)));
}

}  // namespace text
