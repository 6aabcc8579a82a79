#include "tests/support/win32/RegistryCalls.h"

#include <gtest/gtest.h>

#include <ostream>

namespace tests {
namespace {

// What the hooked functions are called by when the program's own way to them is taken.
template <class Function>
Function* SystemFunction(const char* name) {
    return std::bit_cast<Function*>(GetProcAddress(GetModuleHandleW(L"advapi32.dll"), name));
}

}  // namespace

void PrintTo(const KeyCall& call, std::ostream* out) {
    constexpr const char* kinds[] = {"open ", "create ", "delete "};
    *out << kinds[static_cast<size_t>(call.kind)] << call.parent << ' ' << testing::PrintToString(call.path) << std::hex
         << " options 0x" << call.options << " access 0x" << call.access << std::dec
         << (call.isPlain ? "" : ", with more than that");
}

RegistryCalls::RegistryCalls() {
    current_ = this;
}

RegistryCalls::~RegistryCalls() {
    current_ = nullptr;
}

LSTATUS WINAPI RegistryCalls::Open(HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
    current_->calls_.push_back({KeyCall::Kind::Open, parent, path, options, access});
    return SystemFunction<decltype(Open)>("RegOpenKeyExW")(parent, path, options, access, key);
}

LSTATUS WINAPI RegistryCalls::Create(HKEY parent, LPCWSTR path, DWORD reserved, LPWSTR className, DWORD options,
                                     REGSAM access, LPSECURITY_ATTRIBUTES security, PHKEY key, LPDWORD disposition) {
    current_->calls_.push_back({KeyCall::Kind::Create, parent, path, options, access,
                                reserved == 0 && className == nullptr && security == nullptr});
    return SystemFunction<decltype(Create)>("RegCreateKeyExW")(parent, path, reserved, className, options, access,
                                                               security, key, disposition);
}

LSTATUS WINAPI RegistryCalls::Delete(HKEY parent, LPCWSTR name, REGSAM view, DWORD reserved) {
    current_->calls_.push_back({KeyCall::Kind::Delete, parent, name, 0, view, reserved == 0});
    return SystemFunction<decltype(Delete)>("RegDeleteKeyExW")(parent, name, view, reserved);
}

}  // namespace tests
