// The maker's cryptographic library, looked for in named folders only when it is first needed.
#pragma once

#include <string>
#include <vector>

#include "platform/Machine.h"
#include "platform/win32/Module.h"

namespace platform::win32 {

class Win32CryptoLibrary final : public CryptoLibrary {
  public:
    // Beside the program, else in the system folder.
    Win32CryptoLibrary();
    // In the first of these folders that has one. Without backslashes at their ends.
    explicit Win32CryptoLibrary(std::vector<std::wstring> folders) : folders_(std::move(folders)) {}

    const kseal::Exports* Exports(Win32Code& error) override;
    std::wstring WhatIsMissing() const override { return missing_; }

  private:
    Win32Code Find();
    Win32Code Load(const std::wstring& folder, const std::wstring& path);

    const std::vector<std::wstring> folders_;
    // None until it was found; while it is missing, every use looks for it again. It is never unloaded,
    // because threads that it may have started would lose their code.
    void* library_ = nullptr;
    kseal::Exports exports_;
    std::wstring missing_;
};

}  // namespace platform::win32
