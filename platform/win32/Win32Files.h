// The system's own files.
#pragma once

#include "platform/Machine.h"

namespace platform::win32 {

class Win32Files final : public Files {
  public:
    Win32Code Open(const std::wstring& path, FileHandle& file) override;
    Win32Code Create(const std::wstring& path, FileHandle& file) override;
    Win32Code Size(FileHandle file, uint64_t& bytes) override;
    Win32Code Read(FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) override;
    Win32Code Write(FileHandle file, std::span<const std::byte> data, uint32_t& bytesWritten) override;
    Win32Code Close(FileHandle file) override;
    Win32Code CheckPathExists(const std::wstring& path) override;
};

}  // namespace platform::win32
