// Bytes of registry values, spelled out in tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tests {

// The code units, low byte first, exactly as given: nothing is terminated.
inline std::vector<std::byte> Units(std::wstring_view units) {
    std::vector<std::byte> bytes;
    for (const wchar_t unit : units) {
        bytes.push_back(static_cast<std::byte>(static_cast<uint32_t>(unit) & 0xFF));
        bytes.push_back(static_cast<std::byte>(static_cast<uint32_t>(unit) >> 8 & 0xFF));
    }
    return bytes;
}

// One byte more, so that the last code unit is a half one.
inline std::vector<std::byte> AndAByte(std::vector<std::byte> bytes, uint8_t last = 0) {
    bytes.push_back(static_cast<std::byte>(last));
    return bytes;
}

}  // namespace tests
