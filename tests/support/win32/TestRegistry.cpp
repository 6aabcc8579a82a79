#include "tests/support/TestRegistry.h"

#include <windows.h>

#include <stdexcept>

#include "platform/win32/Win32Machine.h"

namespace tests {
namespace {

constexpr const wchar_t* placeForTests = L"Software\\BrisgateTests";

// The key below the place for tests stands in for the root while the object lives.
class RedirectedRoot {
  public:
    RedirectedRoot(HKEY root, const std::wstring& name) : root_(root) {
        const std::wstring path = std::wstring(placeForTests) + L"\\" + name;
        LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                         KEY_ALL_ACCESS, nullptr, &key_, nullptr);
        if (status == ERROR_SUCCESS) status = RegOverridePredefKey(root, key_);
        if (status != ERROR_SUCCESS) throw std::runtime_error("no registry for tests");
    }
    ~RedirectedRoot() {
        RegOverridePredefKey(root_, nullptr);
        RegCloseKey(key_);
    }
    RedirectedRoot(const RedirectedRoot&) = delete;
    RedirectedRoot& operator=(const RedirectedRoot&) = delete;

  private:
    HKEY root_;
    HKEY key_ = nullptr;
};

class EmptiedPlace {
  public:
    EmptiedPlace() { RegDeleteTreeW(HKEY_CURRENT_USER, placeForTests); }
    ~EmptiedPlace() { RegDeleteTreeW(HKEY_CURRENT_USER, placeForTests); }
    EmptiedPlace(const EmptiedPlace&) = delete;
    EmptiedPlace& operator=(const EmptiedPlace&) = delete;
};

class RedirectedRegistry final : public platform::win32::Win32Registry {
  private:
    // In this order: the second place is found through the user's root, which goes elsewhere last.
    EmptiedPlace place_;
    RedirectedRoot machine_{HKEY_LOCAL_MACHINE, L"Machine"};
    RedirectedRoot user_{HKEY_CURRENT_USER, L"User"};
};

}  // namespace

std::unique_ptr<platform::RegistryBackend> MakeTestRegistry() {
    return std::make_unique<RedirectedRegistry>();
}

}  // namespace tests
