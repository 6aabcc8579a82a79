// Lengths as the system takes them.
#pragma once

#include <windows.h>

#include <cstddef>
#include <limits>

namespace platform::win32 {

// Of all the paths that the system has, with its NUL.
inline constexpr DWORD LongestPath = 0x8000;

// What does not fit into 32 bits becomes the largest that does: the system refuses it, or tells how much it
// did.
inline DWORD Length(size_t bytes) {
    constexpr size_t largest = std::numeric_limits<DWORD>::max();
    return static_cast<DWORD>(bytes < largest ? bytes : largest);
}

}  // namespace platform::win32
