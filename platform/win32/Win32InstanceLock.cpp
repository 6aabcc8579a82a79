#include "platform/win32/Win32InstanceLock.h"

#include <windows.h>

namespace platform::win32 {
namespace {

constexpr DWORD fullAccess = 0x1F0001;
static_assert(fullAccess == MUTEX_ALL_ACCESS);

}  // namespace

bool Win32InstanceLock::IsHeldByAnother(const std::wstring& name) {
    return OpenMutexW(fullAccess, FALSE, name.c_str()) != nullptr;
}

Win32Code Win32InstanceLock::Acquire(const std::wstring& name) {
    Release();
    mutex_ = CreateMutexW(nullptr, TRUE, name.c_str());
    return mutex_ != nullptr ? code::Success : GetLastError();
}

void Win32InstanceLock::Release() {
    if (mutex_ == nullptr) return;
    ReleaseMutex(mutex_);
    CloseHandle(mutex_);
    mutex_ = nullptr;
}

}  // namespace platform::win32
