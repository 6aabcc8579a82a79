#include "platform/win32/Win32Files.h"

#include <windows.h>

#include <shlwapi.h>

#include "platform/win32/Length.h"

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
    const HANDLE opened = CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return GetLastError();
    file = static_cast<FileHandle>(reinterpret_cast<uintptr_t>(opened));
    return code::Success;
}

// Keeps the system from asking the user to insert a medium while it lives.
class NoMediumQuestions {
  public:
    NoMediumQuestions() : former_(SetErrorMode(SEM_FAILCRITICALERRORS)) {}
    ~NoMediumQuestions() { SetErrorMode(former_); }
    NoMediumQuestions(const NoMediumQuestions&) = delete;
    NoMediumQuestions& operator=(const NoMediumQuestions&) = delete;

  private:
    UINT former_;
};

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
    DWORD count = 0;
    const BOOL succeeded =
        ReadFile(SystemHandle(file), buffer.data(), Length(buffer.size()), &count, nullptr);
    const Win32Code answer = LastErrorUnless(succeeded);
    bytesRead = count;
    return answer;
}

Win32Code Win32Files::Write(FileHandle file, std::span<const std::byte> data, uint32_t& bytesWritten) {
    DWORD count = 0;
    const BOOL succeeded = WriteFile(SystemHandle(file), data.data(), Length(data.size()), &count, nullptr);
    const Win32Code answer = LastErrorUnless(succeeded);
    bytesWritten = count;
    return answer;
}

Win32Code Win32Files::Close(FileHandle file) {
    return LastErrorUnless(CloseHandle(SystemHandle(file)));
}

Win32Code Win32Files::CheckPathExists(const std::wstring& path) {
    const NoMediumQuestions quiet;
    SetLastError(code::Success);
    if (PathFileExistsW(path.c_str()) != FALSE) return code::Success;
    const Win32Code error = GetLastError();
    return error == code::Success ? code::FileNotFound : error;
}

}  // namespace platform::win32
