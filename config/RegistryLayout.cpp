#include "config/RegistryLayout.h"

namespace config {
namespace {

constexpr size_t unitSize = 2;  // bytes of a UTF-16 code unit

// The text and a terminating zero.
std::span<std::byte> Put(std::wstring_view text, std::span<std::byte> buffer) {
    return PutUnits({L"\0", 1}, PutUnits(text, buffer));
}

std::wstring Units(std::span<const std::byte> data) {
    std::wstring units(data.size() / unitSize, L'\0');
    const std::byte* from = data.data();
    for (wchar_t& unit : units) {
        unit = static_cast<wchar_t>(std::to_integer<uint32_t>(from[0]) | std::to_integer<uint32_t>(from[1]) << 8);
        from += unitSize;
    }
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

std::span<std::byte> PutUnits(std::wstring_view units, std::span<std::byte> buffer) {
    std::byte* to = buffer.data();
    for (const wchar_t unit : units) {
        to[0] = static_cast<std::byte>(static_cast<uint32_t>(unit) & 0xFF);
        to[1] = static_cast<std::byte>(static_cast<uint32_t>(unit) >> 8 & 0xFF);
        to += unitSize;
    }
    return buffer.subspan(units.size() * unitSize);
}

Bytes EncodeString(std::wstring_view text) {
    Bytes bytes;
    EncodeString(text, bytes);
    return bytes;
}

void EncodeString(std::wstring_view text, Bytes& bytes) {
    bytes.resize((text.size() + 1) * unitSize);
    Put(text, bytes);
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
