#include "platform/memory/FaultyRegistry.h"

#include <algorithm>
#include <utility>

namespace platform::memory {
namespace {

std::wstring FullPath(RootKey root, const std::wstring& path) {
    const std::wstring rootName = root == RootKey::LocalMachine ? L"HKEY_LOCAL_MACHINE" : L"HKEY_CURRENT_USER";
    return path.empty() ? rootName : rootName + L"\\" + path;
}

}  // namespace

size_t FaultyRegistry::CountOf(RegistryCall call) const {
    const auto isOfThisKind = [call](const RecordedCall& recorded) { return recorded.call == call; };
    return static_cast<size_t>(std::count_if(calls_.begin(), calls_.end(), isOfThisKind));
}

void FaultyRegistry::FailNth(size_t number, Win32Code code) {
    SetFault([=](size_t current, const RecordedCall&) { return current == number ? code : code::Success; });
}

void FaultyRegistry::FailFrom(size_t number, Win32Code code) {
    SetFault([=](size_t current, const RecordedCall&) { return current >= number ? code : code::Success; });
}

void FaultyRegistry::FailWhere(RegistryCall call, std::wstring targetEnd, Win32Code code) {
    SetFault([=, end = std::move(targetEnd)](size_t, const RecordedCall& recorded) {
        return recorded.call == call && recorded.target.ends_with(end) ? code : code::Success;
    });
}

Win32Code FaultyRegistry::Record(RegistryCall call, std::wstring target) {
    calls_.push_back({call, std::move(target)});
    if (!fault_) return code::Success;
    // Copies: the fault may replace itself or forget the calls.
    const Fault fault = fault_;
    const RecordedCall recorded = calls_.back();
    return fault(calls_.size() - 1, recorded);
}

Win32Code FaultyRegistry::NoteOpened(Win32Code answer, KeyHandle key, std::wstring path) {
    if (answer == code::Success) open_.push_back({key, std::move(path)});
    return answer;
}

std::wstring FaultyRegistry::PathOf(KeyHandle key) const {
    const auto found =
        std::find_if(open_.begin(), open_.end(), [key](const OpenKey& open) { return open.handle == key; });
    return found == open_.end() ? std::wstring() : found->path;
}

std::wstring FaultyRegistry::Below(KeyHandle key, const std::wstring& name) const {
    return PathOf(key) + L"\\" + name;
}

Win32Code FaultyRegistry::Open(RootKey root, const std::wstring& path, KeyHandle& key) {
    const Win32Code fault = Record(RegistryCall::Open, FullPath(root, path));
    if (fault != code::Success) return fault;
    const Win32Code answer = real_.Open(root, path, key);
    return NoteOpened(answer, key, FullPath(root, path));
}

Win32Code FaultyRegistry::OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) {
    const std::wstring target = Below(parent, name);
    const Win32Code fault = Record(RegistryCall::OpenSubkey, target);
    if (fault != code::Success) return fault;
    const Win32Code answer = real_.OpenSubkey(parent, name, key);
    return NoteOpened(answer, key, target);
}

Win32Code FaultyRegistry::Create(RootKey root, const std::wstring& path, KeyHandle& key) {
    const Win32Code fault = Record(RegistryCall::Create, FullPath(root, path));
    if (fault != code::Success) return fault;
    const Win32Code answer = real_.Create(root, path, key);
    return NoteOpened(answer, key, FullPath(root, path));
}

Win32Code FaultyRegistry::Close(KeyHandle key) {
    const Win32Code fault = Record(RegistryCall::Close, PathOf(key));
    if (fault != code::Success) return fault;
    const Win32Code answer = real_.Close(key);
    if (answer == code::Success) std::erase_if(open_, [key](const OpenKey& open) { return open.handle == key; });
    return answer;
}

Win32Code FaultyRegistry::Flush(KeyHandle key) {
    const Win32Code fault = Record(RegistryCall::Flush, PathOf(key));
    return fault != code::Success ? fault : real_.Flush(key);
}

Win32Code FaultyRegistry::EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) {
    const Win32Code fault = Record(RegistryCall::EnumerateSubkey, PathOf(key));
    return fault != code::Success ? fault : real_.EnumerateSubkey(key, index, capacity, name);
}

Win32Code FaultyRegistry::DeleteSubkey(KeyHandle parent, const std::wstring& name) {
    const Win32Code fault = Record(RegistryCall::DeleteSubkey, Below(parent, name));
    return fault != code::Success ? fault : real_.DeleteSubkey(parent, name);
}

Win32Code FaultyRegistry::Query(KeyHandle key, const std::wstring& name, ValueType& type, std::span<std::byte> buffer,
                                uint32_t& size) {
    const Win32Code fault = Record(RegistryCall::Query, Below(key, name));
    return fault != code::Success ? fault : real_.Query(key, name, type, buffer, size);
}

Win32Code FaultyRegistry::Set(KeyHandle key, const std::wstring& name, ValueType type,
                              std::span<const std::byte> data) {
    const Win32Code fault = Record(RegistryCall::Set, Below(key, name));
    return fault != code::Success ? fault : real_.Set(key, name, type, data);
}

Win32Code FaultyRegistry::EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) {
    const Win32Code fault = Record(RegistryCall::EnumerateValue, PathOf(key));
    return fault != code::Success ? fault : real_.EnumerateValue(key, index, name);
}

}  // namespace platform::memory
