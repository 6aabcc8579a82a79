#include "platform/win32/Win32Machine.h"

#include <windows.h>

#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/win32/Module.h"
#include "text/Format.h"

namespace platform::win32 {
namespace {

constexpr const wchar_t* FileName = L"morcel1.dll";

// The name of the first function that the library lacks; null when it has them all.
const char* TakeExports(void* library, kseal::Exports& exports) {
    const char* missing = nullptr;
    const auto take = [&](const char* name, auto*& function) {
        function = FindExport<std::remove_pointer_t<std::remove_reference_t<decltype(function)>>>(library, name);
        if (function == nullptr && missing == nullptr) missing = name;
    };
    take("KSEAL_Initialize", exports.Initialize);
    take("KSEAL_Uninitialize", exports.Uninitialize);
    take("KSEAL_Ctrl", exports.Ctrl);
    take("KSEAL_FindCert", exports.FindCert);
    take("KSEAL_FreeFindResult", exports.FreeFindResult);
    take("KSEAL_GetErrorText", exports.GetErrorText);
    take("KSEAL_GetErrorLineEx", exports.GetErrorLineEx);
    take("KSEAL_FreeMem", exports.FreeMem);
    return missing;
}

// The process may load modules by their bare names from this folder while one lives, or from then on.
class CompanionFolder {
  public:
    explicit CompanionFolder(const std::wstring& folder) : cookie_(AddDllDirectory(folder.c_str())) {}
    ~CompanionFolder() {
        if (cookie_ != nullptr) RemoveDllDirectory(cookie_);
    }
    CompanionFolder(const CompanionFolder&) = delete;
    CompanionFolder& operator=(const CompanionFolder&) = delete;

    void Keep() { cookie_ = nullptr; }

  private:
    DLL_DIRECTORY_COOKIE cookie_;
};

bool IsThere(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

Win32CryptoLibrary::Win32CryptoLibrary()
    : Win32CryptoLibrary(std::vector<std::wstring>{ProgramFolder(), SystemFolder()}) {}

const kseal::Exports* Win32CryptoLibrary::Exports(Win32Code& error) {
    error = library_ == nullptr ? Find() : code::Success;
    return error == code::Success ? &exports_ : nullptr;
}

// A file that is there but cannot be loaded explains more than one that is missing elsewhere.
Win32Code Win32CryptoLibrary::Find() {
    Win32Code error = code::ModuleNotFound;
    std::wstring damaged;
    std::wstring searched;
    for (const std::wstring& folder : folders_) {
        if (folder.empty()) continue;
        searched += (searched.empty() ? L" in " : L" or in ") + folder;
        const std::wstring path = folder + L"\\" + FileName;
        if (!IsThere(path)) continue;
        const Win32Code result = Load(folder, path);
        if (result == code::Success || result == code::ProcedureNotFound) return result;
        if (damaged.empty()) error = result;
        if (damaged.empty()) damaged = path;
    }
    missing_ = damaged.empty() ? text::Format(L"%s was not found%s.", FileName, searched)
                               : text::Format(L"%s cannot be loaded.", damaged);
    return error;
}

// The library may load modules of its own from beside itself, by their bare names. Until it has been found
// there, nothing may.
Win32Code Win32CryptoLibrary::Load(const std::wstring& folder, const std::wstring& path) {
    CompanionFolder companions(folder);
    Win32Code error = code::Success;
    Module module = LoadCode(path, error);
    if (!module) return error;
    if (const char* const lacking = TakeExports(module.get(), exports_)) {
        const std::string_view name(lacking);
        missing_ = text::Format(L"%s has no function %s.", path, std::wstring(name.begin(), name.end()));
        return code::ProcedureNotFound;
    }
    companions.Keep();
    library_ = module.release();
    return code::Success;
}

}  // namespace platform::win32
