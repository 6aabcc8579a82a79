// Libraries that are loaded while the program runs, always from a place that is named in full: never from the
// current folder or the search path, where somebody could have put a false one.
#pragma once

#include <bit>
#include <memory>
#include <optional>
#include <string>

#include "platform/Win32Codes.h"

namespace platform::win32 {

struct UnloadModule {
    void operator()(void* module) const;
};

// Unloaded when it goes.
using Module = std::unique_ptr<void, UnloadModule>;

// Both without a backslash at the end; empty when the system does not tell.
std::wstring ProgramFolder();
std::wstring SystemFolder();

// From here on, what is loaded by a bare name comes from the system's folder, or from one that has been added
// to it. Cannot be undone.
void LoadFromSystemOnly();

// Loads code; what it needs in turn comes from its own folder or the system's. Null: error tells why.
Module LoadCode(const std::wstring& path, Win32Code& error);
// Loads only resources and message tables. Null when it cannot be loaded.
Module LoadResources(const std::wstring& path);

using AnyFunction = void (*)();

// Null when the module has no such export.
AnyFunction FindExport(void* module, const char* name);

template <class Function>
Function* FindExport(void* module, const char* name) {
    return std::bit_cast<Function*>(FindExport(module, name));
}

}  // namespace platform::win32
