// The ANSI code page of this process.
#pragma once

#include "platform/Machine.h"

namespace platform::win32 {

// Throws std::bad_alloc for texts of 2^31 characters and more, which the system cannot convert: the command
// ends, and the user hears of it.
class Win32CodePage final : public CodePage {
  public:
    std::wstring ToWide(std::string_view ansi) const override;
    std::string ToAnsi(std::wstring_view wide) const override;
};

}  // namespace platform::win32
