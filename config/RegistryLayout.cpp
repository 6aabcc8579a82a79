#include "config/RegistryLayout.h"

namespace config {
namespace {

constexpr size_t unitSize = 2;  // bytes of a UTF-16 code unit

// Puts the text and a terminating zero at the front of the buffer and returns what is left of it.
std::span<std::byte> Put(std::wstring_view text, std::span<std::byte> buffer) {
    for (size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<uint32_t>(text[i]);
        buffer[2 * i] = static_cast<std::byte>(unit & 0xFF);
        buffer[2 * i + 1] = static_cast<std::byte>((unit >> 8) & 0xFF);
    }
    buffer[2 * text.size()] = buffer[2 * text.size() + 1] = std::byte{0};
    return buffer.subspan((text.size() + 1) * unitSize);
}

std::wstring Units(std::span<const std::byte> data) {
    std::wstring units;
    units.reserve(data.size() / unitSize);
    for (size_t at = 0; at + 1 < data.size(); at += unitSize)
        units +=
            static_cast<wchar_t>(std::to_integer<uint32_t>(data[at]) | std::to_integer<uint32_t>(data[at + 1]) << 8);
    return units;
}

bool IsString(platform::ValueType type) {
    return type == platform::ValueType::String || type == platform::ValueType::ExpandString;
}

bool EndsInZeros(std::wstring_view units, size_t count) {
    return units.size() >= count &&
           units.substr(units.size() - count).find_first_not_of(L'\0') == std::wstring_view::npos;
}

}  // namespace

Bytes EncodeString(std::wstring_view text) {
    Bytes bytes((text.size() + 1) * unitSize);
    Put(text, bytes);
    return bytes;
}

size_t EncodedListSize(const std::vector<std::wstring>& entries) {
    size_t units = 1;
    for (const std::wstring& entry : entries) units += entry.size() + 1;
    return units * unitSize;
}

void EncodeStringList(const std::vector<std::wstring>& entries, std::span<std::byte> buffer) {
    for (const std::wstring& entry : entries) buffer = Put(entry, buffer);
    Put({}, buffer);
}

std::optional<std::wstring> DecodeString(platform::ValueType type, std::span<const std::byte> data) {
    if (!IsString(type) || data.size() % unitSize != 0) return std::nullopt;
    if (data.empty()) return std::wstring();
    std::wstring text = Units(data);
    if (text.back() != L'\0') return std::nullopt;
    text.resize(text.find(L'\0'));
    return text;
}

std::optional<std::vector<std::wstring>> DecodeStringList(platform::ValueType type, std::span<const std::byte> data) {
    if (data.size() % unitSize != 0) return std::nullopt;
    const std::wstring units = Units(data);
    const bool list = type == platform::ValueType::StringList && EndsInZeros(units, 2);
    const bool single = IsString(type) && EndsInZeros(units, 1);
    if (!list && !single) return std::nullopt;

    std::vector<std::wstring> entries;
    for (size_t at = 0; at < units.size();) {
        const size_t end = units.find(L'\0', at);
        if (end == at) break;
        entries.push_back(units.substr(at, end - at));
        at = end + 1;
    }
    return entries;
}

}  // namespace config
