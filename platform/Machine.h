// Everything the editor asks of the machine it runs on, so that tests can put a machine of their own in its
// place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/Kseal.h"
#include "platform/Registry.h"
#include "platform/Win32Codes.h"

namespace platform {

enum class FileHandle : uintptr_t { None = 0 };

// Whole files read and written in the system's way. The answer is the system's last error, 0 for success.
class Files {
  public:
    virtual ~Files() = default;

    // For reading; the file must exist.
    [[nodiscard]] virtual Win32Code Open(const std::wstring& path, FileHandle& file) = 0;
    // For writing; replaces an old file.
    [[nodiscard]] virtual Win32Code Create(const std::wstring& path, FileHandle& file) = 0;
    [[nodiscard]] virtual Win32Code Size(FileHandle file, uint64_t& bytes) = 0;
    [[nodiscard]] virtual Win32Code Read(FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) = 0;
    [[nodiscard]] virtual Win32Code Write(FileHandle file, std::span<const std::byte> data, uint32_t& bytesWritten) = 0;
    [[nodiscard]] virtual Win32Code Close(FileHandle file) = 0;
    // Of a file or a folder.
    [[nodiscard]] virtual Win32Code CheckPathExists(const std::wstring& path) = 0;
};

// The system's ANSI code page. Characters that it lacks become the system's replacement, usually "?".
class CodePage {
  public:
    virtual ~CodePage() = default;
    virtual std::wstring ToWide(std::string_view ansi) const = 0;
    virtual std::string ToAnsi(std::wstring_view wide) const = 0;
};

// The system's descriptions of its own codes; empty where it has none.
class SystemMessages {
  public:
    virtual ~SystemMessages() = default;
    virtual std::wstring SystemText(Win32Code code) const = 0;
    virtual std::wstring InternetText(Win32Code code) const = 0;  // from the message table of the module "wininet"
};

class Clock {
  public:
    virtual ~Clock() = default;
    virtual int64_t SecondsSince1970() const = 0;
};

// A named lock that at most one running copy of a program holds.
class InstanceLock {
  public:
    virtual ~InstanceLock() = default;
    virtual bool IsHeldByAnother(const std::wstring& name) = 0;
    [[nodiscard]] virtual Win32Code Acquire(const std::wstring& name) = 0;
    virtual void Release() = 0;
};

// Sizes of the system's window parts in pixels, on a monitor of the given resolution (96: no scaling).
class ScreenMetrics {
  public:
    virtual ~ScreenMetrics() = default;
    virtual int VerticalScrollBarWidth(uint32_t dpi) const = 0;
    virtual int VerticalScrollArrowHeight(uint32_t dpi) const = 0;
};

// Blocks whose size comes from outside and may be too large to be had.
class Memory {
  public:
    virtual ~Memory() = default;
    // No block: error is the system's last error.
    [[nodiscard]] virtual std::unique_ptr<std::byte[]> Allocate(size_t bytes, Win32Code& error) = 0;
};

// Finds the maker's cryptographic library; what its functions answer is read by those who call them.
class CryptoLibrary {
  public:
    virtual ~CryptoLibrary() = default;
    // None: error says why. 126: there is no library; 127: it lacks a function; or the system's own code.
    [[nodiscard]] virtual const kseal::Exports* Exports(Win32Code& error) = 0;
    // After Exports had none: one line that names what is missing or cannot be loaded.
    virtual std::wstring WhatIsMissing() const = 0;
};

// The administrator's guide that lies beside the program.
class Guide {
  public:
    virtual ~Guide() = default;
    // Shows a page ("rules") in the user's browser, with the user's own rights. 2: there is no such page.
    [[nodiscard]] virtual Win32Code Show(const std::wstring& page) = 0;
};

// References only: whoever makes the parts keeps them alive.
struct Machine {
    RegistryBackend& Registry;
    platform::Files& Files;
    platform::CodePage& CodePage;
    platform::SystemMessages& SystemMessages;
    platform::Clock& Clock;
    platform::InstanceLock& InstanceLock;
    platform::ScreenMetrics& ScreenMetrics;
    platform::Memory& Memory;
    platform::CryptoLibrary& CryptoLibrary;
};

}  // namespace platform
