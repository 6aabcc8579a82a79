#include "platform/win32/Win32Machine.h"

#include <windows.h>

#include "platform/win32/Length.h"
#include "platform/win32/Module.h"

namespace platform::win32 {
namespace {

HANDLE SystemHandle(FileHandle file) {
    return reinterpret_cast<HANDLE>(file);
}

Win32Code LastErrorUnless(BOOL succeeded) {
    return succeeded != FALSE ? code::Success : GetLastError();
}

// While another program reads the file, it is ours to use as well, but not to change.
Win32Code OpenFile(const std::wstring& path, DWORD access, DWORD disposition, FileHandle& file) {
    const HANDLE opened =
        CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return GetLastError();
    file = static_cast<FileHandle>(reinterpret_cast<uintptr_t>(opened));
    return code::Success;
}

// Longer paths are understood only in the form in which the system takes them as they are.
std::wstring Extended(const std::wstring& path) {
    if (path.size() < MAX_PATH || path.starts_with(LR"(\\?\)")) return path;
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
}

}  // namespace

Win32Code Win32Files::Open(const std::wstring& path, FileHandle& file) {
    return OpenFile(path, GENERIC_READ, OPEN_EXISTING, file);
}

Win32Code Win32Files::Create(const std::wstring& path, FileHandle& file) {
    return OpenFile(path, GENERIC_WRITE, CREATE_ALWAYS, file);
}

Win32Code Win32Files::Size(FileHandle file, uint64_t& bytes) {
    LARGE_INTEGER size{};
    const Win32Code answer = LastErrorUnless(GetFileSizeEx(SystemHandle(file), &size));
    if (answer == code::Success) bytes = static_cast<uint64_t>(size.QuadPart);
    return answer;
}

Win32Code Win32Files::Read(FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) {
    DWORD count{};
    const BOOL succeeded = ReadFile(SystemHandle(file), buffer.data(), Length(buffer.size()), &count, nullptr);
    const Win32Code answer = LastErrorUnless(succeeded);
    bytesRead = count;
    return answer;
}

Win32Code Win32Files::Write(FileHandle file, std::span<const std::byte> data, uint32_t& bytesWritten) {
    DWORD count{};
    const BOOL succeeded = WriteFile(SystemHandle(file), data.data(), Length(data.size()), &count, nullptr);
    const Win32Code answer = LastErrorUnless(succeeded);
    bytesWritten = count;
    return answer;
}

Win32Code Win32Files::Close(FileHandle file) {
    return LastErrorUnless(CloseHandle(SystemHandle(file)));
}

Win32Code Win32Files::CheckPathExists(const std::wstring& path) {
    const NoErrorBoxes quiet;  // nor a question for a medium
    const bool exists = GetFileAttributesW(Extended(path).c_str()) != INVALID_FILE_ATTRIBUTES;
    return exists ? code::Success : GetLastError();
}

}  // namespace platform::win32
