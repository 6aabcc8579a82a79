// The stand-in library as a DLL in the place of the real one. It serves the certificates of the file
// stand-in-owners.txt beside it (in UTF-8), which it reads anew for each context.
#include <windows.h>

#include <array>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "demo/FileContent.h"
#include "demo/StandInLibrary.h"
#include "demo/Utf8.h"
#include "platform/win32/Win32Machine.h"

namespace {

namespace kseal = platform::kseal;
using demo::StandInLibrary;

constexpr std::string_view ownersFile = "stand-in-owners.txt";

StandInLibrary& Library() {
    static StandInLibrary library;
    return library;
}

// The DLL's own folder, with a backslash at the end.
std::wstring OwnFolder() {
    constexpr DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE own = nullptr;
    GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&Library), &own);
    std::array<wchar_t, 32768> path{};
    const DWORD length = GetModuleFileNameW(own, path.data(), static_cast<DWORD>(path.size()));
    const std::wstring_view whole(path.data(), length);
    return std::wstring(whole.substr(0, whole.rfind(L'\\') + 1));
}

void ServeOwnersFile() {
    platform::win32::Win32Files files;
    const std::string bytes =
        demo::FileContent(files, OwnFolder() + std::wstring(ownersFile.begin(), ownersFile.end()));
    const std::optional<std::wstring> text = demo::FromUtf8(bytes);
    if (!text) throw std::runtime_error("the file is not in UTF-8");
    Library().Serve(demo::ParseOwners(platform::win32::Win32CodePage().ToAnsi(*text)));
}

}  // namespace

extern "C" {

kseal::Code KSEAL_Initialize(const char* profileName, uint32_t flags, kseal::Context* context) {
    try {
        ServeOwnersFile();
    } catch (const std::exception& error) {
        Library().AddError(nullptr, {error.what(), std::string(ownersFile), 0, {}});
        return StandInLibrary::NoOwners;
    }
    return StandInLibrary::Exports().Initialize(profileName, flags, context);
}

kseal::Code KSEAL_Uninitialize(kseal::Context context) {
    Library().ForgetCalls();
    return StandInLibrary::Exports().Uninitialize(context);
}

kseal::Code KSEAL_Ctrl(kseal::Context context, uint32_t controlCode, void* controlBlock) {
    return StandInLibrary::Exports().Ctrl(context, controlCode, controlBlock);
}

kseal::Code KSEAL_FindCert(kseal::Context context, const kseal::CertFindRequest* request,
                           kseal::CertFindResult* result) {
    return StandInLibrary::Exports().FindCert(context, request, result);
}

kseal::Code KSEAL_FreeFindResult(kseal::Context context, kseal::CertFindResult* result) {
    return StandInLibrary::Exports().FreeFindResult(context, result);
}

kseal::Code KSEAL_GetErrorText(kseal::Code code, char* buffer, uint32_t size) {
    Library();
    return StandInLibrary::Exports().GetErrorText(code, buffer, size);
}

kseal::Code KSEAL_GetErrorLineEx(kseal::Context context, char** errorText, char** sourceFile, int32_t* line,
                                 char** data) {
    Library();
    return StandInLibrary::Exports().GetErrorLineEx(context, errorText, sourceFile, line, data);
}

void KSEAL_FreeMem(void* memory) {
    StandInLibrary::Exports().FreeMem(memory);
}

}  // extern "C"
