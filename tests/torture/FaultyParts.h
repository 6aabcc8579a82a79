// A machine held in memory of which every part asks the plan of faults before it does anything.
#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/memory/MemoryMachine.h"
#include "tests/torture/Faults.h"

namespace tests::torture {

class FaultyKeys final : public platform::RegistryBackend {
  public:
    FaultyKeys(platform::RegistryBackend& real, Faults& faults) : real_(real), faults_(faults) {}

    platform::Win32Code Open(platform::RootKey root, const std::wstring& path, platform::KeyHandle& key) override;
    platform::Win32Code OpenSubkey(platform::KeyHandle parent, const std::wstring& name,
                                   platform::KeyHandle& key) override;
    platform::Win32Code Create(platform::RootKey root, const std::wstring& path, platform::KeyHandle& key) override;
    platform::Win32Code Close(platform::KeyHandle key) override;
    platform::Win32Code Flush(platform::KeyHandle key) override;
    platform::Win32Code EnumerateSubkey(platform::KeyHandle key, uint32_t index, uint32_t capacity,
                                        std::wstring& name) override;
    platform::Win32Code DeleteSubkey(platform::KeyHandle parent, const std::wstring& name) override;
    platform::Win32Code Query(platform::KeyHandle key, const std::wstring& name, platform::ValueType& type,
                              std::span<std::byte> buffer, uint32_t& size) override;
    platform::Win32Code Set(platform::KeyHandle key, const std::wstring& name, platform::ValueType type,
                            std::span<const std::byte> data) override;
    platform::Win32Code EnumerateValue(platform::KeyHandle key, uint32_t index, std::wstring& name) override;

  private:
    platform::Win32Code NoteOpened(platform::Win32Code answer, platform::KeyHandle key, const std::wstring& path,
                                   bool toDelete);

    platform::RegistryBackend& real_;
    Faults& faults_;
    std::map<platform::KeyHandle, std::wstring> paths_;
    std::set<platform::KeyHandle> deleting_;
};

class FaultyFiles final : public platform::Files {
  public:
    FaultyFiles(platform::Files& real, Faults& faults) : real_(real), faults_(faults) {}

    platform::Win32Code Open(const std::wstring& path, platform::FileHandle& file) override;
    platform::Win32Code Create(const std::wstring& path, platform::FileHandle& file) override;
    platform::Win32Code Size(platform::FileHandle file, uint64_t& bytes) override;
    platform::Win32Code Read(platform::FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) override;
    platform::Win32Code Write(platform::FileHandle file, std::span<const std::byte> data,
                              uint32_t& bytesWritten) override;
    platform::Win32Code Close(platform::FileHandle file) override;
    platform::Win32Code CheckPathExists(const std::wstring& path) override;

  private:
    platform::Files& real_;
    Faults& faults_;
    std::map<platform::FileHandle, std::wstring> paths_;
};

class FaultyMemory final : public platform::Memory {
  public:
    explicit FaultyMemory(Faults& faults) : faults_(faults) {}
    std::unique_ptr<std::byte[]> Allocate(size_t bytes, platform::Win32Code& error) override;

  private:
    Faults& faults_;
};

// Stands before the stand-in library, which has to exist.
class FaultyLibrary final : public platform::CryptoLibrary {
  public:
    explicit FaultyLibrary(Faults& faults);
    ~FaultyLibrary() override;
    const platform::kseal::Exports* Exports(platform::Win32Code& error) override;
    std::wstring WhatIsMissing() const override { return L"There is no library."; }

  private:
    Faults& faults_;
};

}  // namespace tests::torture
