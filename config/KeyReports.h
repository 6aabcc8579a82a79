// What happened to a registry key, told with its path. Each function passes on whether the operation
// succeeded.
#pragma once

#include <string>

#include "config/RegistryStore.h"
#include "errors/ErrorReport.h"

namespace config {

class KeyReports {
  public:
    KeyReports(const errors::ErrorReporter& reporter, const ui::Dialog* owner)
        : reporter_(reporter),
          owner_(owner) {}

    [[nodiscard]] bool Opened(platform::Win32Code code, platform::RootKey root,
                              const std::wstring& path) const;
    [[nodiscard]] bool Searched(platform::Win32Code code, platform::RootKey root,
                                const std::wstring& path) const;
    [[nodiscard]] bool Deleted(platform::Win32Code code, platform::RootKey root,
                               const std::wstring& path) const;

  private:
    bool Report(platform::Win32Code code, const wchar_t* operation, platform::RootKey root,
                const std::wstring& path) const;

    const errors::ErrorReporter& reporter_;
    const ui::Dialog* owner_;
};

}  // namespace config
