// Fills the program's message texts, which are written as the user sees them: L"Delete %d rule(s)?".
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace text {

// One value for a place in a pattern: a text, or a whole number.
class Argument {
  public:
    Argument(std::wstring_view text) : text_(text) {}
    Argument(const std::wstring& text) : text_(text) {}
    Argument(const wchar_t* text) : text_(text) {}
    Argument(std::integral auto number) : number_(static_cast<int64_t>(number)), isNumber_(true) {}

    bool IsNumber() const { return isNumber_; }
    std::wstring_view Text() const { return text_; }
    int64_t Number() const { return number_; }

  private:
    std::wstring_view text_;
    int64_t number_ = 0;
    bool isNumber_ = false;
};

// Replaces each "%s", "%d", "%lld" and "%X" (upper-case hexadecimal, no leading zeros) of the pattern, in
// turn, by the next argument; "%%" gives one per cent sign. The texts put in are never read as patterns
// themselves. Throws std::invalid_argument when the pattern and the arguments do not fit, which is a
// programming error.
std::wstring FormatList(std::wstring_view pattern, std::initializer_list<Argument> arguments);

template <class... Arguments>
std::wstring Format(std::wstring_view pattern, const Arguments&... arguments) {
    return FormatList(pattern, {Argument(arguments)...});
}

}  // namespace text
