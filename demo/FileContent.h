// A whole file at once.
#pragma once

#include <string>

#include "platform/Machine.h"

namespace demo {

// The file's bytes. Throws std::runtime_error that tells the system's code.
std::string FileContent(platform::Files& files, const std::wstring& path);

}  // namespace demo
