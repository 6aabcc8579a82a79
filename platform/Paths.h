// What can be seen of a path from its text alone.
#pragma once

#include <string_view>

namespace platform {

// Whether the path names a drive or a server, as a path does that means the same for every program.
inline bool NamesADriveOrServer(std::wstring_view path) {
    return path.find(L':') != std::wstring_view::npos || path.find(L"\\\\") != std::wstring_view::npos;
}

}  // namespace platform
