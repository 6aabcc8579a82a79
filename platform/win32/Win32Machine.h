// This machine, as the program is given it: what platform/Machine.h asks for, made of the system's own parts.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Machine.h"

namespace platform::win32 {

class Win32Registry : public RegistryBackend {
  public:
    Win32Code Open(RootKey root, const std::wstring& path, KeyHandle& key) override;
    Win32Code OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) override;
    Win32Code Create(RootKey root, const std::wstring& path, KeyHandle& key) override;
    Win32Code Close(KeyHandle key) override;
    Win32Code Flush(KeyHandle key) override;
    Win32Code EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) override;
    Win32Code DeleteSubkey(KeyHandle parent, const std::wstring& name) override;
    Win32Code Query(KeyHandle key, const std::wstring& name, ValueType& type, std::span<std::byte> buffer,
                    uint32_t& size) override;
    Win32Code Set(KeyHandle key, const std::wstring& name, ValueType type, std::span<const std::byte> data) override;
    Win32Code EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) override;
};

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

// The ANSI code page of this process. Throws std::bad_alloc for texts of 2^31 characters and more, which the
// system cannot convert: the command ends, and the user hears of it.
class Win32CodePage final : public CodePage {
  public:
    std::wstring ToWide(std::string_view ansi) const override;
    std::string ToAnsi(std::wstring_view wide) const override;
};

// The message tables of this system.
class Win32SystemMessages final : public SystemMessages {
  public:
    std::wstring SystemText(Win32Code code) const override;
    std::wstring InternetText(Win32Code code) const override;
};

class Win32Clock final : public Clock {
  public:
    int64_t SecondsSince1970() const override;
};

// Two named mutexes of the system, one for the session of the running copy and one for all sessions.
class Win32InstanceLock final : public InstanceLock {
  public:
    Win32InstanceLock() = default;
    ~Win32InstanceLock() override { Release(); }
    Win32InstanceLock(const Win32InstanceLock&) = delete;
    Win32InstanceLock& operator=(const Win32InstanceLock&) = delete;

    // The handle with which another copy's mutex was found is kept open until the process ends, which it does
    // at once.
    bool IsHeldByAnother(const std::wstring& name) override;
    Win32Code Acquire(const std::wstring& name) override;
    void Release() override;

  private:
    struct ReleaseAndClose {
        void operator()(void* mutex) const;
    };
    using Mutex = std::unique_ptr<void, ReleaseAndClose>;

    Mutex mutex_;
    Mutex globalMutex_;
};

class Win32ScreenMetrics final : public ScreenMetrics {
  public:
    int VerticalScrollBarWidth(uint32_t dpi) const override;
    int VerticalScrollArrowHeight(uint32_t dpi) const override;
};

class Win32Memory final : public Memory {
  public:
    std::unique_ptr<std::byte[]> Allocate(size_t bytes, Win32Code& error) override;
};

// The maker's, looked for in named folders only when it is first needed.
class Win32CryptoLibrary final : public CryptoLibrary {
  public:
    // Beside the program, else in the system folder.
    Win32CryptoLibrary();
    // In the first of these folders that has one. Without backslashes at their ends.
    explicit Win32CryptoLibrary(std::vector<std::wstring> folders) : folders_(std::move(folders)) {}

    const kseal::Exports* Exports(Win32Code& error) override;
    std::wstring WhatIsMissing() const override { return missing_; }

  private:
    [[nodiscard]] Win32Code Find();
    [[nodiscard]] Win32Code Load(const std::wstring& folder, const std::wstring& path);

    const std::vector<std::wstring> folders_;
    // None until it was found; while it is missing, every use looks for it again. It is never unloaded,
    // because threads that it may have started would lose their code.
    void* library_ = nullptr;
    kseal::Exports exports_;
    std::wstring missing_;
};

// As pages beside the program, in the folder "guide".
class Win32Guide final : public Guide {
  public:
    Win32Code Show(const std::wstring& page) override;
};

// Owns the parts to which Machine refers.
struct Win32Machine {
    // From then on, what the process loads by a bare name comes from the system's own folder.
    Win32Machine();
    Win32Machine(const Win32Machine&) = delete;
    Win32Machine& operator=(const Win32Machine&) = delete;
    ~Win32Machine() = default;

    Win32Registry Registry;
    Win32Files Files;
    Win32CodePage CodePage;
    Win32SystemMessages SystemMessages;
    Win32Clock Clock;
    Win32InstanceLock InstanceLock;
    Win32ScreenMetrics ScreenMetrics;
    Win32Memory Memory;
    Win32CryptoLibrary CryptoLibrary;

    platform::Machine Machine{Registry,     Files,         CodePage, SystemMessages, Clock,
                              InstanceLock, ScreenMetrics, Memory,   CryptoLibrary};
};

}  // namespace platform::win32
