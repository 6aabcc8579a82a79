#include "tests/torture/FaultyParts.h"

#include <algorithm>
#include <memory>

#include "tests/torture/ShortMemory.h"

namespace tests::torture {

using platform::FileHandle;
using platform::KeyHandle;
using platform::Win32Code;

Win32Code FaultyKeys::NoteOpened(Win32Code answer, KeyHandle key, const std::wstring& path, bool toDelete) {
    if (answer == 0) paths_[key] = path;
    if (answer == 0 && toDelete) deleting_.insert(key);
    return faults_.Answered(answer);
}

Win32Code FaultyKeys::Open(platform::RootKey root, const std::wstring& path, KeyHandle& key) {
    const Harness harness;
    const bool machine = root == platform::RootKey::LocalMachine;
    const std::wstring full = (machine ? L"HKEY_LOCAL_MACHINE\\" : L"HKEY_CURRENT_USER\\") + path;
    const Win32Code fault = faults_.Ask(Op::OpenKey, full);
    const Win32Code answer = fault != 0 ? fault : real_.Open(root, path, key);
    return NoteOpened(answer, key, full, false);
}

Win32Code FaultyKeys::OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) {
    const Harness harness;
    const std::wstring full = paths_[parent] + L"\\" + name;
    const Win32Code fault = faults_.Ask(Op::OpenSubkey, full, deleting_.contains(parent));
    const Win32Code answer = fault != 0 ? fault : real_.OpenSubkey(parent, name, key);
    return NoteOpened(answer, key, full, true);
}

Win32Code FaultyKeys::Create(platform::RootKey root, const std::wstring& path, KeyHandle& key) {
    const Harness harness;
    const std::wstring full = L"HKEY_LOCAL_MACHINE\\" + path;
    const Win32Code fault = faults_.Ask(Op::CreateKey, full);
    const Win32Code answer = fault != 0 ? fault : real_.Create(root, path, key);
    return NoteOpened(answer, key, full, false);
}

// A close that fails leaves the key open for good.
Win32Code FaultyKeys::Close(KeyHandle key) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::CloseKey, paths_[key], deleting_.erase(key) != 0);
    paths_.erase(key);
    return faults_.Answered(fault != 0 ? fault : real_.Close(key));
}

Win32Code FaultyKeys::Flush(KeyHandle key) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::FlushKey, paths_[key]);
    return faults_.Answered(fault != 0 ? fault : real_.Flush(key));
}

Win32Code FaultyKeys::EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::EnumerateSubkey, paths_[key], deleting_.contains(key));
    return faults_.Answered(fault != 0 ? fault : real_.EnumerateSubkey(key, index, capacity, name));
}

Win32Code FaultyKeys::DeleteSubkey(KeyHandle parent, const std::wstring& name) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::DeleteSubkey, paths_[parent] + L"\\" + name, deleting_.contains(parent));
    return faults_.Answered(fault != 0 ? fault : real_.DeleteSubkey(parent, name));
}

Win32Code FaultyKeys::Query(KeyHandle key, const std::wstring& name, platform::ValueType& type,
                            std::span<std::byte> buffer, uint32_t& size) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::QueryValue, paths_[key] + L"\\" + name);
    return faults_.Answered(fault != 0 ? fault : real_.Query(key, name, type, buffer, size));
}

Win32Code FaultyKeys::Set(KeyHandle key, const std::wstring& name, platform::ValueType type,
                          std::span<const std::byte> data) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::SetValue, paths_[key] + L"\\" + name);
    return faults_.Answered(fault != 0 ? fault : real_.Set(key, name, type, data));
}

Win32Code FaultyKeys::EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) {
    return real_.EnumerateValue(key, index, name);
}

Win32Code FaultyFiles::Open(const std::wstring& path, FileHandle& file) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::OpenFile, path);
    const Win32Code answer = fault != 0 ? fault : real_.Open(path, file);
    if (answer == 0) paths_[file] = path;
    return faults_.Answered(answer);
}

Win32Code FaultyFiles::Create(const std::wstring& path, FileHandle& file) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::CreateFile, path);
    const Win32Code answer = fault != 0 ? fault : real_.Create(path, file);
    if (answer == 0) paths_[file] = path;
    return faults_.Answered(answer);
}

Win32Code FaultyFiles::Size(FileHandle file, uint64_t& bytes) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::FileSize, paths_[file]);
    return faults_.Answered(fault != 0 ? fault : real_.Size(file, bytes));
}

Win32Code FaultyFiles::Read(FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::ReadFile, paths_[file]);
    if (fault == HalfOfIt) buffer = buffer.first(buffer.size() / 2);
    const bool fails = fault != 0 && fault != HalfOfIt;
    return faults_.Answered(fails ? fault : real_.Read(file, buffer, bytesRead));
}

Win32Code FaultyFiles::Write(FileHandle file, std::span<const std::byte> data, uint32_t& bytesWritten) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::WriteFile, paths_[file]);
    if (fault == HalfOfIt) data = data.first(data.size() / 2);
    const bool fails = fault != 0 && fault != HalfOfIt;
    return faults_.Answered(fails ? fault : real_.Write(file, data, bytesWritten));
}

// A close that fails releases the file all the same.
Win32Code FaultyFiles::Close(FileHandle file) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::CloseFile, paths_[file]);
    paths_.erase(file);
    const Win32Code answer = real_.Close(file);
    return faults_.Answered(fault != 0 ? fault : answer);
}

Win32Code FaultyFiles::CheckPathExists(const std::wstring& path) {
    const Harness harness;
    const Win32Code fault = faults_.Ask(Op::PathExists, path);
    return faults_.Answered(fault != 0 ? fault : real_.CheckPathExists(path));
}

std::unique_ptr<std::byte[]> FaultyMemory::Allocate(size_t bytes, Win32Code& error) {
    const Harness harness;
    error = faults_.Answered(faults_.Ask(Op::AllocateBlock, {}));
    return error != 0 ? nullptr : std::make_unique<std::byte[]>(bytes);
}

}  // namespace tests::torture
