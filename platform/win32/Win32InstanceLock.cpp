#include "platform/win32/Win32InstanceLock.h"

#include <windows.h>

#include <sddl.h>

namespace platform::win32 {
namespace {

constexpr DWORD fullAccess = 0x1F0001;
static_assert(fullAccess == MUTEX_ALL_ACCESS);

// Copies in the same session know each other by the plain name, those in other sessions by this one. In the
// session of the services the two are one object.
std::wstring InAllSessions(const std::wstring& name) {
    return L"Global\\" + name;
}

// One that may not be opened is there all the same.
bool Exists(const std::wstring& name) {
    return OpenMutexW(fullAccess, FALSE, name.c_str()) != nullptr || GetLastError() == ERROR_ACCESS_DENIED;
}

// Full access for administrators, whoever has made it, and for the system.
class AdministratorsAccess {
  public:
    AdministratorsAccess() {
        ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:(A;;GA;;;BA)(A;;GA;;;SY)", SDDL_REVISION_1,
                                                             &attributes_.lpSecurityDescriptor, nullptr);
    }
    ~AdministratorsAccess() { LocalFree(attributes_.lpSecurityDescriptor); }
    AdministratorsAccess(const AdministratorsAccess&) = delete;
    AdministratorsAccess& operator=(const AdministratorsAccess&) = delete;

    SECURITY_ATTRIBUTES* Attributes() { return &attributes_; }

  private:
    SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
};

void ReleaseAndClose(void*& mutex) {
    if (mutex == nullptr) return;
    ReleaseMutex(mutex);
    CloseHandle(mutex);
    mutex = nullptr;
}

}  // namespace

bool Win32InstanceLock::IsHeldByAnother(const std::wstring& name) {
    return Exists(name) || Exists(InAllSessions(name));
}

Win32Code Win32InstanceLock::Acquire(const std::wstring& name) {
    Release();
    mutex_ = CreateMutexW(nullptr, TRUE, name.c_str());
    if (mutex_ == nullptr) return GetLastError();
    AdministratorsAccess access;
    globalMutex_ = CreateMutexW(access.Attributes(), TRUE, InAllSessions(name).c_str());
    if (globalMutex_ != nullptr) return code::Success;
    const Win32Code error = GetLastError();
    Release();
    return error;
}

void Win32InstanceLock::Release() {
    ReleaseAndClose(globalMutex_);
    ReleaseAndClose(mutex_);
}

}  // namespace platform::win32
