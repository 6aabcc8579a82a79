// Upper case for comparing texts without regard to case, the same on every system and in every locale.
#pragma once

#include <string>
#include <string_view>

namespace text {

// The upper-case letter of a UTF-16 code unit where Unicode has a single one in the basic plane, else the
// unit itself.
wchar_t Upper(wchar_t unit);

std::wstring Upper(std::wstring_view text);

}  // namespace text
