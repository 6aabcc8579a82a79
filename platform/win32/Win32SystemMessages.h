// The message tables of this system.
#pragma once

#include "platform/Machine.h"

namespace platform::win32 {

class Win32SystemMessages final : public SystemMessages {
  public:
    std::wstring SystemText(Win32Code code) const override;
    std::wstring InternetText(Win32Code code) const override;
};

}  // namespace platform::win32
