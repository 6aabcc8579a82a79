#include "platform/win32/Win32CryptoLibrary.h"

#include <windows.h>

#include <optional>

namespace platform::win32 {
namespace {

template <class Function>
bool Take(void* library, const char* name, Function*& function) {
    function = FindExport<Function>(library, name);
    return function != nullptr;
}

// Nothing when one is missing.
std::optional<kseal::Exports> ExportsOf(void* library) {
    kseal::Exports exports;
    const bool complete = Take(library, "KSEAL_Initialize", exports.Initialize) &&
                          Take(library, "KSEAL_Uninitialize", exports.Uninitialize) &&
                          Take(library, "KSEAL_Ctrl", exports.Ctrl) &&
                          Take(library, "KSEAL_FindCert", exports.FindCert) &&
                          Take(library, "KSEAL_FreeFindResult", exports.FreeFindResult) &&
                          Take(library, "KSEAL_GetErrorText", exports.GetErrorText) &&
                          Take(library, "KSEAL_GetErrorLineEx", exports.GetErrorLineEx) &&
                          Take(library, "KSEAL_FreeMem", exports.FreeMem);
    return complete ? std::optional(exports) : std::nullopt;
}

}  // namespace

Win32CryptoLibrary::Win32CryptoLibrary()
    : Win32CryptoLibrary(std::vector<std::wstring>{ProgramFolder(), SystemFolder()}) {}

const kseal::Exports* Win32CryptoLibrary::Exports(Win32Code& error) {
    if (library_ == nullptr) {
        Module module = Load(error);
        if (!module) return nullptr;
        const std::optional<kseal::Exports> found = ExportsOf(module.get());
        if (!found) {
            error = code::ProcedureNotFound;
            return nullptr;
        }
        exports_ = *found;
        library_ = module.release();
    }
    error = code::Success;
    return &exports_;
}

// A file that is there but cannot be loaded explains more than one that is missing elsewhere.
Module Win32CryptoLibrary::Load(Win32Code& error) const {
    error = code::ModuleNotFound;
    for (const std::wstring& folder : folders_) {
        Win32Code result = code::Success;
        if (folder.empty()) continue;
        if (Module module = LoadCode(folder + L"\\morcel1.dll", result)) return module;
        if (error == code::ModuleNotFound) error = result;
    }
    return {};
}

}  // namespace platform::win32
