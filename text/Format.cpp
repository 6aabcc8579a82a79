#include "text/Format.h"

#include <stdexcept>

#include "text/Numbers.h"

namespace text {
namespace {

enum class Place { None, Percent, Text, Decimal, Hexadecimal };

struct Conversion {
    Place place;
    size_t length;  // characters of the pattern that it takes up
};

Conversion ConversionAt(std::wstring_view rest) {
    if (rest.starts_with(L"%%")) return {Place::Percent, 2};
    if (rest.starts_with(L"%s")) return {Place::Text, 2};
    if (rest.starts_with(L"%d")) return {Place::Decimal, 2};
    if (rest.starts_with(L"%lld")) return {Place::Decimal, 4};
    if (rest.starts_with(L"%X")) return {Place::Hexadecimal, 2};
    return {Place::None, 0};
}

std::wstring Render(Place place, const Argument& argument) {
    if (argument.IsNumber() != (place != Place::Text)) throw std::invalid_argument("Format: wrong kind of argument");
    if (place == Place::Text) return std::wstring(argument.Text());
    return place == Place::Decimal ? Decimal(argument.Number()) : Hexadecimal(static_cast<uint64_t>(argument.Number()));
}

}  // namespace

std::wstring FormatList(std::wstring_view pattern, std::initializer_list<Argument> arguments) {
    std::wstring result;
    const Argument* next = arguments.begin();
    for (size_t at = 0; at < pattern.size();) {
        if (pattern[at] != L'%') {
            result += pattern[at++];
            continue;
        }
        const auto [place, length] = ConversionAt(pattern.substr(at));
        if (place == Place::None) throw std::invalid_argument("Format: unknown conversion");
        at += length;
        if (place == Place::Percent) {
            result += L'%';
            continue;
        }
        if (next == arguments.end()) throw std::invalid_argument("Format: too few arguments");
        result += Render(place, *next++);
    }
    if (next != arguments.end()) throw std::invalid_argument("Format: too many arguments");
    return result;
}

}  // namespace text
