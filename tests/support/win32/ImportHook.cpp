#include "tests/support/win32/ImportHook.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace tests {
namespace {

template <class Part>
Part* At(DWORD64 offset) {
    return std::bit_cast<Part*>(std::bit_cast<uintptr_t>(GetModuleHandleW(nullptr)) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* FirstImport() {
    const auto& headers = *At<IMAGE_NT_HEADERS>(static_cast<DWORD64>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    return At<IMAGE_IMPORT_DESCRIPTOR>(
        headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

bool IsNamed(const IMAGE_THUNK_DATA& import, const char* name) {
    if (IMAGE_SNAP_BY_ORDINAL(import.u1.Ordinal)) return false;
    return std::strcmp(At<IMAGE_IMPORT_BY_NAME>(import.u1.AddressOfData)->Name, name) == 0;
}

}  // namespace

ImportHook::AnyFunction* ImportHook::SlotOf(const char* name) {
    for (const auto* library = FirstImport(); library->Name != 0; ++library) {
        const auto* import = At<IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
        for (DWORD64 i = 0; import[i].u1.AddressOfData != 0; ++i)
            if (IsNamed(import[i], name)) return At<AnyFunction>(library->FirstThunk + i * sizeof(AnyFunction));
    }
    throw std::runtime_error(std::string("the program does not import ") + name);
}

void ImportHook::Set(AnyFunction function) const {
    DWORD protection = 0;
    VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
    *slot_ = function;
    VirtualProtect(slot_, sizeof *slot_, protection, &protection);
}

}  // namespace tests
