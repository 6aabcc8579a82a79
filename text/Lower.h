// Lower case, the same on every system and in every locale.
#pragma once

#include <string>
#include <string_view>

namespace text {

// Each UTF-16 code unit becomes its lower-case letter where Unicode has a single one in the basic plane; the
// length stays the same.
std::wstring Lower(std::wstring_view text);

}  // namespace text
