// Libraries that are loaded while the program runs, always from a place that is named in full: never from the
// current folder or the search path, where somebody could have put a false one.
#pragma once

#include <windows.h>

#include <bit>
#include <memory>
#include <optional>
#include <string>

#include "platform/Win32Codes.h"

namespace platform::win32 {

// Keeps the system from boxes of its own while one lives: that a medium is missing, or a library damaged.
class NoErrorBoxes {
  public:
    NoErrorBoxes() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &former_); }
    ~NoErrorBoxes() { SetThreadErrorMode(former_, nullptr); }
    NoErrorBoxes(const NoErrorBoxes&) = delete;
    NoErrorBoxes& operator=(const NoErrorBoxes&) = delete;

  private:
    DWORD former_ = 0;
};

struct UnloadModule {
    void operator()(void* module) const;
};

// Unloaded when it goes.
using Module = std::unique_ptr<void, UnloadModule>;

// Both without a backslash at the end; empty when the system does not say.
std::wstring ProgramFolder();
std::wstring SystemFolder();

// From here on, what is loaded by a bare name comes from the system's folder, or from one that has been added
// to it. Cannot be undone.
void LoadFromSystemOnly();

// Loads code; what it needs in turn comes from its own folder or the system's. Null: error says why.
[[nodiscard]] Module LoadCode(const std::wstring& path, Win32Code& error);
// Loads only resources and message tables. Null when it cannot be loaded.
[[nodiscard]] Module LoadResources(const std::wstring& path);

using AnyFunction = void (*)();

// Null when the module has no such export.
AnyFunction FindExport(void* module, const char* name);

template <class Function>
Function* FindExport(void* module, const char* name) {
    return std::bit_cast<Function*>(FindExport(module, name));
}

// A function of a DLL that would not always be loaded from the system's own folder if it were imported. Null
// when there is none. The DLL stays loaded for the life of the process.
AnyFunction FindSystemFunction(const wchar_t* dll, const char* name);

template <class Function>
Function* SystemFunction(const wchar_t* dll, const char* name) {
    return std::bit_cast<Function*>(FindSystemFunction(dll, name));
}

}  // namespace platform::win32
