#include "platform/win32/Win32SystemMessages.h"

#include <windows.h>

#include <memory>

#include "platform/win32/Module.h"

namespace platform::win32 {
namespace {

struct FreeLocal {
    void operator()(wchar_t* memory) const { LocalFree(memory); }
};

// In the neutral language: the user's, or else the system's choice. Places for inserts stay as they are.
std::wstring MessageText(DWORD table, const void* module, Win32Code code) {
    wchar_t* text = nullptr;
    const DWORD flags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | table;
    // With ALLOCATE_BUFFER the system takes the address of a pointer in place of the buffer.
    const DWORD length = FormatMessageW(flags, module, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL),
                                        reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const std::unique_ptr<wchar_t, FreeLocal> owner(text);
    return length == 0 || text == nullptr ? std::wstring() : std::wstring(text, length);
}

}  // namespace

std::wstring Win32SystemMessages::SystemText(Win32Code code) const {
    return MessageText(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code);
}

std::wstring Win32SystemMessages::InternetText(Win32Code code) const {
    const Module wininet = LoadResources(SystemFolder() + L"\\wininet.dll");
    if (!wininet) return {};
    return MessageText(FORMAT_MESSAGE_FROM_HMODULE, wininet.get(), code);
}

}  // namespace platform::win32
