// The lock of a running copy as two named mutexes of the system, one for its session and one for all of them.
#pragma once

#include "platform/Machine.h"

namespace platform::win32 {

class Win32InstanceLock final : public InstanceLock {
  public:
    Win32InstanceLock() = default;
    ~Win32InstanceLock() override { Release(); }
    Win32InstanceLock(const Win32InstanceLock&) = delete;
    Win32InstanceLock& operator=(const Win32InstanceLock&) = delete;

    // The handle with which another copy's mutex was found is kept open until the process ends, which it does
    // at once.
    bool IsHeldByAnother(const std::wstring& name) override;
    Win32Code Acquire(const std::wstring& name) override;
    void Release() override;

  private:
    void* mutex_ = nullptr;
    void* globalMutex_ = nullptr;
};

}  // namespace platform::win32
