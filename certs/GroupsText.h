// The content of a user groups file: one owner name a line.
#pragma once

#include <functional>
#include <string_view>

namespace certs {

// Tells of each line that can be an owner name, in order: it ends with a line end, and something in it is
// assigned ("CN=..."). A zero byte ends the text. The lines lie in the text.
void ReadGroupLines(std::string_view bytes, const std::function<void(std::string_view line)>& take);

}  // namespace certs
