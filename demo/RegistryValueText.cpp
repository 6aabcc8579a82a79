#include "demo/RegistryValueText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>

#include "demo/Utf8.h"

namespace demo {
namespace {

using platform::ValueType;

[[noreturn]] void Reject(const std::string& reason) {
    throw std::runtime_error(reason);
}

void AppendUnit(std::vector<std::byte>& data, wchar_t unit) {
    const auto number = static_cast<uint32_t>(unit);
    data.push_back(static_cast<std::byte>(number & 0xFF));
    data.push_back(static_cast<std::byte>(number >> 8 & 0xFF));
}

void AppendTerminated(std::vector<std::byte>& data, const std::wstring& text) {
    for (const wchar_t unit : text) AppendUnit(data, unit);
    AppendUnit(data, L'\0');
}

// The code units of a value; nothing when a byte is left over.
std::optional<std::wstring> Units(const std::vector<std::byte>& data) {
    if (data.size() % 2 != 0) return std::nullopt;
    std::wstring units;
    for (size_t i = 0; i < data.size(); i += 2) {
        units += static_cast<wchar_t>(std::to_integer<uint32_t>(data[i]) | std::to_integer<uint32_t>(data[i + 1]) << 8);
    }
    return units;
}

// Takes what stands before the closing quote off the text, whose opening quote is gone already; a doubled
// quote is a quote of the content.
std::wstring TakeQuoted(std::string_view& text) {
    std::string content;
    while (true) {
        const size_t quote = text.find('"');
        if (quote == std::string_view::npos) Reject("closing quote missing");
        content += text.substr(0, quote);
        text.remove_prefix(quote + 1);
        if (!text.starts_with('"')) break;
        content += '"';
        text.remove_prefix(1);
    }
    if (content.find('\0') != std::string::npos) Reject("NUL inside a text");
    const auto units = FromUtf8(content);
    if (!units) Reject("text is not UTF-8");
    return *units;
}

bool Take(std::string_view& text, std::string_view beginning) {
    if (!text.starts_with(beginning)) return false;
    text.remove_prefix(beginning.size());
    return true;
}

RegistryValue ParseText(std::string_view rest) {
    RegistryValue value{ValueType::String, {}};
    AppendTerminated(value.Data, TakeQuoted(rest));
    if (!rest.empty()) Reject("unexpected characters behind the closing quote");
    return value;
}

// rest: behind the opening brace.
RegistryValue ParseList(std::string_view rest) {
    RegistryValue value{ValueType::StringList, {}};
    if (rest != "}") {
        do {
            if (!Take(rest, " \"")) Reject("list entry must be a blank and a quoted text");
            const std::wstring entry = TakeQuoted(rest);
            if (entry.empty()) Reject("empty list entry");
            AppendTerminated(value.Data, entry);
        } while (Take(rest, ","));
        if (rest != " }") Reject("list must end with a blank and a brace");
    }
    AppendUnit(value.Data, L'\0');
    return value;
}

// rest: behind "hex(".
RegistryValue ParseBytes(std::string_view rest) {
    uint32_t type = 0;
    const auto afterType = std::from_chars(rest.data(), rest.data() + rest.size(), type);
    if (afterType.ec != std::errc()) Reject("type number missing");
    rest.remove_prefix(static_cast<size_t>(afterType.ptr - rest.data()));
    if (!Take(rest, "):")) Reject("\"):\" missing behind the type number");
    RegistryValue value{static_cast<ValueType>(type), {}};
    while (!rest.empty()) {
        uint8_t byte = 0;
        if (!Take(rest, " ") || rest.size() < 2) Reject("bytes must be pairs of hexadecimal digits");
        const auto afterByte = std::from_chars(rest.data(), rest.data() + 2, byte, 16);
        if (afterByte.ptr != rest.data() + 2) Reject("bytes must be pairs of hexadecimal digits");
        value.Data.push_back(static_cast<std::byte>(byte));
        rest.remove_prefix(2);
    }
    return value;
}

RegistryValue ParseInteger(std::string_view text) {
    int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec == std::errc::invalid_argument || result.ptr != end) Reject("neither text, list, integer nor bytes");
    if (result.ec != std::errc() || number < std::numeric_limits<int32_t>::min() ||
        number > std::numeric_limits<int32_t>::max()) {
        Reject("integer beyond 32 bits");
    }
    RegistryValue value{ValueType::Integer, {}};
    const auto bits = static_cast<uint32_t>(number);
    for (uint32_t shift = 0; shift < 32; shift += 8) value.Data.push_back(static_cast<std::byte>(bits >> shift & 0xFF));
    return value;
}

// With its quotes; nothing when the text cannot stand in a line.
std::optional<std::string> Quoted(std::wstring_view units) {
    const auto isControl = [](wchar_t unit) { return unit < 0x20 || unit == 0x7F; };
    if (std::any_of(units.begin(), units.end(), isControl)) return std::nullopt;
    const auto utf8 = ToUtf8(units);
    if (!utf8) return std::nullopt;
    std::string quoted = "\"";
    for (const char c : *utf8) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

std::optional<std::string> FormatText(const std::vector<std::byte>& data) {
    const auto units = Units(data);
    if (!units || units->empty() || units->find(L'\0') != units->size() - 1) return std::nullopt;
    return Quoted(std::wstring_view(*units).substr(0, units->size() - 1));
}

std::optional<std::string> FormatList(const std::vector<std::byte>& data) {
    const auto units = Units(data);
    if (!units || !units->ends_with(L'\0')) return std::nullopt;
    if (units->size() == 1) return "{}";
    std::string list;
    std::wstring_view rest(units->data(), units->size() - 1);
    while (!rest.empty()) {
        const size_t end = rest.find(L'\0');
        if (end == std::wstring_view::npos || end == 0) return std::nullopt;
        const auto entry = Quoted(rest.substr(0, end));
        if (!entry) return std::nullopt;
        list += (list.empty() ? "{ " : ", ") + *entry;
        rest.remove_prefix(end + 1);
    }
    return list + " }";
}

std::optional<std::string> FormatInteger(const std::vector<std::byte>& data) {
    if (data.size() != 4) return std::nullopt;
    uint32_t bits = 0;
    for (size_t i = 0; i < 4; ++i) bits |= std::to_integer<uint32_t>(data[i]) << (8 * i);
    return std::to_string(static_cast<int32_t>(bits));
}

std::string FormatBytes(const RegistryValue& value) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "hex(" + std::to_string(static_cast<uint32_t>(value.Type)) + "):";
    for (const std::byte byte : value.Data) {
        text += ' ';
        text += digits[std::to_integer<size_t>(byte >> 4)];
        text += digits[std::to_integer<size_t>(byte & std::byte{0x0F})];
    }
    return text;
}

}  // namespace

RegistryValue ParseRegistryValue(std::string_view text) {
    if (Take(text, "\"")) return ParseText(text);
    if (Take(text, "{")) return ParseList(text);
    if (Take(text, "hex(")) return ParseBytes(text);
    return ParseInteger(text);
}

std::string FormatRegistryValue(const RegistryValue& value) {
    std::optional<std::string> readable;
    if (value.Type == ValueType::String) readable = FormatText(value.Data);
    if (value.Type == ValueType::StringList) readable = FormatList(value.Data);
    if (value.Type == ValueType::Integer) readable = FormatInteger(value.Data);
    return readable ? *readable : FormatBytes(value);
}

}  // namespace demo
