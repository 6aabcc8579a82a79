// Whole numbers as text and back, free of locale and of overflow.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace text {

// In place of std::to_wstring, which brings formatted output along: nothing else in the program needs that,
// and it would be 16 KB larger.
std::wstring Decimal(int64_t number);
std::wstring Hexadecimal(uint64_t number);  // upper case, no leading zeros, "0" for 0

// The value of the digits 0-9 at the front of the text; 0 when there are none; stops growing at the largest
// uint64_t.
uint64_t LeadingDigits(std::wstring_view text);

// The number at the front of the text: optional blanks, an optional sign, digits; 0 when there is none.
// A value beyond 32 bits becomes the nearest one that fits.
int32_t LeadingNumber(std::wstring_view text);

}  // namespace text
