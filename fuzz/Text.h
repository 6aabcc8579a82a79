// The fuzzer's bytes as texts of the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

// One unit for each byte; those of the upper half become letters of a cased alphabet beyond ASCII.
inline std::wstring WideText(const uint8_t* data, size_t size) {
    std::wstring text;
    for (size_t i = 0; i < size; ++i)
        text += static_cast<wchar_t>(data[i] < 0x80 ? data[i] : 0x0400 + (data[i] - 0x80));
    return text;
}

}  // namespace fuzz
