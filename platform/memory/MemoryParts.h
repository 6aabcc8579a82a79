// The small in-memory parts of a machine: clock, instance lock, screen metrics, memory, guide.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>

#include "platform/Machine.h"

namespace platform::memory {

// Stands still until it is set.
class MemoryClock final : public Clock {
  public:
    void Set(int64_t secondsSince1970) { now_ = secondsSince1970; }
    void Advance(int64_t seconds) { now_ += seconds; }

    int64_t SecondsSince1970() const override { return now_; }

  private:
    int64_t now_ = 1'700'000'000;
};

class MemoryInstanceLock final : public InstanceLock {
  public:
    // Another running copy takes or leaves its lock of this name.
    void HoldByAnother(std::wstring name) { other_ = std::move(name); }
    void LeaveByAnother() { other_.reset(); }
    // Every Acquire from now on answers this code; 0: none fails.
    void FailAcquire(Win32Code code) { fault_ = code; }
    // The lock that the program holds now.
    const std::optional<std::wstring>& Held() const { return held_; }

    bool IsHeldByAnother(const std::wstring& name) override { return other_ == name; }
    Win32Code Acquire(const std::wstring& name) override;
    void Release() override { held_.reset(); }

  private:
    std::optional<std::wstring> other_;
    std::optional<std::wstring> held_;
    Win32Code fault_ = code::Success;
};

// On an unscaled monitor 17 pixels of width and 19 of height: two numbers, so that neither passes for the
// other.
class MemoryScreenMetrics final : public ScreenMetrics {
  public:
    int VerticalScrollBarWidth(uint32_t dpi) const override { return Scaled(17, dpi); }
    int VerticalScrollArrowHeight(uint32_t dpi) const override { return Scaled(19, dpi); }

  private:
    static int Scaled(uint32_t pixels, uint32_t dpi) { return static_cast<int>((pixels * dpi + 48) / 96); }
};

class MemoryMemory final : public Memory {
  public:
    // Blocks of more bytes than this are not to be had; 0: none at all.
    void SetLimit(size_t bytes) { limit_ = bytes; }
    void NoLimit() { limit_ = std::numeric_limits<size_t>::max(); }

    std::unique_ptr<std::byte[]> Allocate(size_t bytes, Win32Code& error) override;

  private:
    size_t limit_ = std::numeric_limits<size_t>::max();
};

// Remembers what was shown.
class MemoryGuide final : public Guide {
  public:
    // Every Show from now on answers this code; 0: none fails.
    void Fail(Win32Code code) { fault_ = code; }
    const std::wstring& Shown() const { return shown_; }

    Win32Code Show(const std::wstring& page) override {
        if (fault_ == code::Success) shown_ = page;
        return fault_;
    }

  private:
    std::wstring shown_;
    Win32Code fault_ = code::Success;
};

}  // namespace platform::memory
