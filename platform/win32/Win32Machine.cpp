#include "platform/win32/Win32Machine.h"

#include <windows.h>

#include <sddl.h>
#include <shellapi.h>

#include <chrono>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

#include "platform/win32/Module.h"
#include "platform/win32/Resolution.h"

namespace platform::win32 {

Win32Machine::Win32Machine() {
    LoadFromSystemOnly();
}

namespace {

int CharacterCount(size_t characters) {
    if (characters > static_cast<size_t>(std::numeric_limits<int>::max())) {
        throw std::bad_alloc();
    }
    return static_cast<int>(characters);
}

// What the page lacks becomes its default character and never a look-alike, which could be another file's or
// another owner's name. Pages that have every character refuse to be told so.
DWORD ConversionFlags() {
    constexpr UINT Gb18030 = 54936;
    const UINT page = GetACP();
    return page == CP_UTF8 || page == Gb18030 ? 0 : WC_NO_BEST_FIT_CHARS;
}

}  // namespace

std::wstring Win32CodePage::ToWide(std::string_view ansi) const {
    const int length = CharacterCount(ansi.size());
    std::wstring wide(ansi.size(), L'\0');  // no code page makes more units than there are bytes
    const int units = MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, wide.data(), length);
    wide.resize(static_cast<size_t>(units));
    return wide;
}

std::string Win32CodePage::ToAnsi(std::wstring_view wide) const {
    const int length = CharacterCount(wide.size());
    const DWORD flags = ConversionFlags();
    const int needed = WideCharToMultiByte(CP_ACP, flags, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, flags, wide.data(), length, ansi.data(), needed, nullptr, nullptr);
    return ansi;
}

namespace {

struct FreeLocal {
    void operator()(wchar_t* memory) const { LocalFree(memory); }
};

// In the neutral language: the user's, or else the system's choice. Places for inserts stay as they are.
std::wstring MessageText(DWORD table, const void* module, Win32Code code) {
    wchar_t* text = nullptr;
    const DWORD flags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | table;
    // With ALLOCATE_BUFFER the system takes the address of a pointer in place of the buffer.
    const DWORD length =
        FormatMessageW(flags, module, code, LANG_NEUTRAL, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const std::unique_ptr<wchar_t, FreeLocal> owner(text);
    return std::wstring(std::wstring_view(text, length));
}

}  // namespace

std::wstring Win32SystemMessages::SystemText(Win32Code code) const {
    return MessageText(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code);
}

std::wstring Win32SystemMessages::InternetText(Win32Code code) const {
    const Module wininet = LoadResources(SystemFolder() + L"\\wininet.dll");
    return MessageText(FORMAT_MESSAGE_FROM_HMODULE, wininet.get(), code);
}

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

}  // namespace

bool Win32InstanceLock::IsHeldByAnother(const std::wstring& name) {
    return Exists(name) || Exists(InAllSessions(name));
}

Win32Code Win32InstanceLock::Acquire(const std::wstring& name) {
    mutex_.reset(CreateMutexW(nullptr, TRUE, name.c_str()));
    if (mutex_ == nullptr) return GetLastError();
    AdministratorsAccess access;
    globalMutex_.reset(CreateMutexW(access.Attributes(), TRUE, InAllSessions(name).c_str()));
    if (globalMutex_ != nullptr) return code::Success;
    const Win32Code error = GetLastError();
    Release();
    return error;
}

void Win32InstanceLock::Release() {
    globalMutex_.reset();
    mutex_.reset();
}

void Win32InstanceLock::ReleaseAndClose::operator()(void* mutex) const {
    ReleaseMutex(mutex);
    CloseHandle(mutex);
}

int64_t Win32Clock::SecondsSince1970() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count();
}

int Win32ScreenMetrics::VerticalScrollBarWidth(uint32_t dpi) const {
    return SystemMetric(SM_CXVSCROLL, dpi);
}

int Win32ScreenMetrics::VerticalScrollArrowHeight(uint32_t dpi) const {
    return SystemMetric(SM_CYVSCROLL, dpi);
}

std::unique_ptr<std::byte[]> Win32Memory::Allocate(size_t bytes, Win32Code& error) {
    try {
        auto block = std::make_unique_for_overwrite<std::byte[]>(bytes);
        error = code::Success;
        return block;
    } catch (const std::bad_alloc&) {
        // What the heap leaves as the last error. By now it is lost: handling an exception resets it.
        error = code::NotEnoughMemory;
        return nullptr;
    }
}

// The browser must not get the rights of an administrator, which this program has: the desktop, which was
// started without them, opens the page when a second copy of its program asks it to.
Win32Code Win32Guide::Show(const std::wstring& page) {
    const std::wstring path = ProgramFolder() + L"\\guide\\" + page + L".html";
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return code::FileNotFound;
    std::wstring desktop(MAX_PATH, L'\0');
    desktop.resize(GetWindowsDirectoryW(desktop.data(), MAX_PATH));
    desktop += L"\\explorer.exe";
    const std::wstring quoted = L'"' + path + L'"';
    const HINSTANCE opened = ShellExecuteW(nullptr, nullptr, desktop.c_str(), quoted.c_str(), nullptr, SW_SHOWNORMAL);
    constexpr INT_PTR LastError = 32;
    return reinterpret_cast<INT_PTR>(opened) > LastError ? code::Success : GetLastError();
}

}  // namespace platform::win32
