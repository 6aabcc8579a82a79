#include "demo/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace demo {
namespace {

constexpr uint32_t firstHighSurrogate = 0xD800;
constexpr uint32_t firstLowSurrogate = 0xDC00;
constexpr uint32_t behindSurrogates = 0xE000;
constexpr uint32_t firstOfTwoUnits = 0x10000;
constexpr uint32_t behindUnicode = 0x110000;

bool IsSurrogate(uint32_t c) {
    return c >= firstHighSurrogate && c < behindSurrogates;
}

// How a first byte says how many bytes follow, and the smallest character that needs so many.
struct Form {
    uint32_t mask;
    uint32_t mark;
    size_t following;
    uint32_t smallest;
};

constexpr Form forms[] = {
    {0x80, 0x00, 0, 0x0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, firstOfTwoUnits}};

uint32_t ByteAt(std::string_view utf8, size_t index) {
    return static_cast<unsigned char>(utf8[index]);
}

// Takes one character off the front; nothing when it is ill-formed.
std::optional<uint32_t> TakeCharacter(std::string_view& utf8) {
    const uint32_t first = ByteAt(utf8, 0);
    for (const Form& form : forms) {
        if ((first & form.mask) != form.mark) continue;
        if (utf8.size() <= form.following) return std::nullopt;
        uint32_t c = first & ~form.mask;
        for (size_t i = 1; i <= form.following; ++i) {
            const uint32_t next = ByteAt(utf8, i);
            if ((next & 0xC0) != 0x80) return std::nullopt;
            c = c << 6 | (next & 0x3F);
        }
        if (c < form.smallest || c >= behindUnicode || IsSurrogate(c)) return std::nullopt;
        utf8.remove_prefix(form.following + 1);
        return c;
    }
    return std::nullopt;
}

// Takes one character off the front; nothing when its surrogates are not a pair.
std::optional<uint32_t> TakeCharacter(std::wstring_view& units) {
    const auto first = static_cast<uint32_t>(units[0]);
    units.remove_prefix(1);
    if (first >= firstOfTwoUnits) return std::nullopt;
    if (!IsSurrogate(first)) return first;
    if (first >= firstLowSurrogate || units.empty()) return std::nullopt;
    const auto second = static_cast<uint32_t>(units[0]);
    if (second < firstLowSurrogate || second >= behindSurrogates) return std::nullopt;
    units.remove_prefix(1);
    return firstOfTwoUnits + ((first - firstHighSurrogate) << 10) + (second - firstLowSurrogate);
}

void Append(std::wstring& units, uint32_t c) {
    if (c < firstOfTwoUnits) {
        units += static_cast<wchar_t>(c);
        return;
    }
    const uint32_t offset = c - firstOfTwoUnits;
    units += static_cast<wchar_t>(firstHighSurrogate + (offset >> 10));
    units += static_cast<wchar_t>(firstLowSurrogate + (offset & 0x3FF));
}

void Append(std::string& utf8, uint32_t c) {
    size_t following = 0;
    while (following < 3 && c >= forms[following + 1].smallest) ++following;
    utf8 += static_cast<char>(forms[following].mark | c >> (6 * following));
    for (; following > 0; --following) {
        utf8 += static_cast<char>(0x80 | ((c >> (6 * (following - 1))) & 0x3F));
    }
}

template <class Result, class View>
std::optional<Result> Convert(View text) {
    Result result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::optional<uint32_t> c = TakeCharacter(text);
        if (!c) return std::nullopt;
        Append(result, *c);
    }
    return result;
}

}  // namespace

std::optional<std::wstring> FromUtf8(std::string_view utf8) {
    return Convert<std::wstring>(utf8);
}

std::optional<std::string> ToUtf8(std::wstring_view units) {
    return Convert<std::string>(units);
}

}  // namespace demo
