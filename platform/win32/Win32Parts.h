// The small parts of this machine: clock, screen metrics, memory, guide.
#pragma once

#include "platform/Machine.h"

namespace platform::win32 {

class Win32Clock final : public Clock {
  public:
    int64_t SecondsSince1970() const override;
};

class Win32ScreenMetrics final : public ScreenMetrics {
  public:
    int VerticalScrollBarWidth(uint32_t dpi) const override;
    int VerticalScrollArrowHeight(uint32_t dpi) const override;
};

class Win32Memory final : public Memory {
  public:
    std::unique_ptr<std::byte[]> Allocate(size_t bytes, Win32Code& error) override;
};

// As pages beside the program, in the folder "guide".
class Win32Guide final : public Guide {
  public:
    Win32Code Show(const std::wstring& page) override;
};

}  // namespace platform::win32
