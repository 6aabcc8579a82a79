#include "platform/win32/Module.h"

#include "platform/win32/Length.h"

namespace platform::win32 {

void UnloadModule::operator()(void* module) const {
    FreeLibrary(static_cast<HMODULE>(module));
}

std::wstring ProgramFolder() {
    std::wstring path(LongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), LongestPath));
    return path.substr(0, path.rfind(L'\\'));
}

std::wstring SystemFolder() {
    std::wstring path(LongestPath, L'\0');
    path.resize(GetSystemDirectoryW(path.data(), LongestPath));
    return path;
}

void LoadFromSystemOnly() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
}

Module LoadCode(const std::wstring& path, Win32Code& error) {
    const NoErrorBoxes quiet;
    Module module(
        LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32));
    error = module ? code::Success : GetLastError();
    return module;
}

Module LoadResources(const std::wstring& path) {
    return Module(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
}

AnyFunction FindExport(void* module, const char* name) {
    return std::bit_cast<AnyFunction>(GetProcAddress(static_cast<HMODULE>(module), name));
}

AnyFunction FindSystemFunction(const wchar_t* dll, const char* name) {
    const HMODULE module = LoadLibraryExW(dll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return module == nullptr ? nullptr : FindExport(module, name);
}

}  // namespace platform::win32
