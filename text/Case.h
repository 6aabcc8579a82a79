// Upper and lower case, the same on every system and in every locale.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace text {

namespace detail {
// The answers for the alphabets that most texts are written in: up to Cyrillic and Armenian.
extern const std::array<uint16_t, 0x600> UpperOfLow;
wchar_t UpperOfHigh(wchar_t unit);
}  // namespace detail

// The upper-case letter of a UTF-16 code unit where Unicode has a single one in the basic plane, else the
// unit itself. For comparing texts without regard to case.
inline wchar_t Upper(wchar_t unit) {
    const auto index = static_cast<size_t>(unit);
    return index < detail::UpperOfLow.size() ? static_cast<wchar_t>(detail::UpperOfLow[index])
                                             : detail::UpperOfHigh(unit);
}

// Of each unit; the length stays the same.
std::wstring Upper(std::wstring_view text);
// The same for lower case.
std::wstring Lower(std::wstring_view text);

}  // namespace text
