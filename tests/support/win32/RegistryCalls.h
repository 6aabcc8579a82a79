// Notes the calls by which the program gets at keys of the system's registry, with the arguments that no
// result tells of.
#pragma once

#include <windows.h>

#include <iosfwd>
#include <string>
#include <vector>

#include "tests/support/win32/ImportHook.h"

namespace tests {

struct KeyCall {
    enum class Kind { Open, Create, Delete };
    Kind kind = Kind::Open;
    HKEY parent = nullptr;
    std::wstring path{};
    DWORD options = 0;
    REGSAM access = 0;    // of a deletion the view of the registry
    bool isPlain = true;  // neither a class nor a security descriptor, and zero for what the system has reserved
    bool operator==(const KeyCall&) const = default;
};
void PrintTo(const KeyCall& call, std::ostream* out);  // for messages

// From now on, for as long as it lives. At most one at a time.
class RegistryCalls {
  public:
    RegistryCalls();
    ~RegistryCalls();
    RegistryCalls(const RegistryCalls&) = delete;
    RegistryCalls& operator=(const RegistryCalls&) = delete;

    // In their order, those that fail as well.
    const std::vector<KeyCall>& Calls() const { return calls_; }

  private:
    static LSTATUS WINAPI Open(HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key);
    static LSTATUS WINAPI Create(HKEY parent, LPCWSTR path, DWORD reserved, LPWSTR className, DWORD options,
                                 REGSAM access, LPSECURITY_ATTRIBUTES security, PHKEY key, LPDWORD disposition);
    static LSTATUS WINAPI Delete(HKEY parent, LPCWSTR name, REGSAM view, DWORD reserved);

    static inline RegistryCalls* current_ = nullptr;

    std::vector<KeyCall> calls_;
    const ImportHook open_{"RegOpenKeyExW", Open};
    const ImportHook create_{"RegCreateKeyExW", Create};
    const ImportHook delete_{"RegDeleteKeyExW", Delete};
};

}  // namespace tests
