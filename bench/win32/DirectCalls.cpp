#include "bench/win32/DirectCalls.h"

#include <windows.h>

namespace bench {
namespace {

HKEY RootOf(const Call& call) {
    return call.root == platform::RootKey::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

}  // namespace

void ReplayDirectly(const RecordedSession& session) {
    constexpr REGSAM access = KEY_READ | KEY_WRITE;
    std::vector<HKEY> keys(session.slots);
    std::vector<BYTE> buffer(65536);
    std::vector<wchar_t> name(512);
    for (const Call& call : session.calls) {
        DWORD type = 0;
        DWORD size = call.number;
        DWORD capacity = call.capacity;
        switch (call.kind) {
            case CallKind::Open:
                RegOpenKeyExW(RootOf(call), call.text.c_str(), 0, access, &keys[call.result]);
                break;
            case CallKind::OpenSubkey:
                RegOpenKeyExW(keys[call.key], call.text.c_str(), 0, access, &keys[call.result]);
                break;
            case CallKind::Create:
                RegCreateKeyExW(RootOf(call), call.text.c_str(), 0, nullptr, 0, access, nullptr, &keys[call.result],
                                nullptr);
                break;
            case CallKind::Close:
                RegCloseKey(keys[call.key]);
                break;
            case CallKind::Flush:
                RegFlushKey(keys[call.key]);
                break;
            case CallKind::Enumerate:
                RegEnumKeyExW(keys[call.key], call.number, name.data(), &capacity, nullptr, nullptr, nullptr, nullptr);
                break;
            case CallKind::Delete:
                RegDeleteKeyExW(keys[call.key], call.text.c_str(), 0, 0);
                break;
            case CallKind::Query:
                RegQueryValueExW(keys[call.key], call.text.c_str(), nullptr, &type,
                                 call.number == 0 ? nullptr : buffer.data(), &size);
                break;
            case CallKind::Set:
                RegSetValueExW(keys[call.key], call.text.c_str(), 0, static_cast<DWORD>(call.type),
                               reinterpret_cast<const BYTE*>(call.data.data()), static_cast<DWORD>(call.data.size()));
                break;
        }
    }
}

}  // namespace bench
