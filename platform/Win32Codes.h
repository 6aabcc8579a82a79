// The system's result codes that the program itself tells apart.
#pragma once

#include <cstdint>

namespace platform {

using Win32Code = uint32_t;

namespace code {
inline constexpr Win32Code Success = 0;
inline constexpr Win32Code FileNotFound = 2;  // also: no such key or value
inline constexpr Win32Code PathNotFound = 3;
inline constexpr Win32Code AccessDenied = 5;
inline constexpr Win32Code InvalidHandle = 6;
inline constexpr Win32Code NotEnoughMemory = 8;
inline constexpr Win32Code InvalidData = 13;
inline constexpr Win32Code FileExists = 80;
inline constexpr Win32Code ModuleNotFound = 126;
inline constexpr Win32Code ProcedureNotFound = 127;
inline constexpr Win32Code BadImage = 193;
inline constexpr Win32Code MoreData = 234;
inline constexpr Win32Code NoMoreItems = 259;
inline constexpr Win32Code KeyDeleted = 1018;
}  // namespace code

}  // namespace platform
