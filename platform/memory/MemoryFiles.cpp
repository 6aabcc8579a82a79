#include "platform/memory/MemoryFiles.h"

#include <algorithm>
#include <utility>

#include "text/Case.h"

namespace platform::memory {
namespace {

constexpr Win32Code sharingViolation = 32;
constexpr Win32Code badNetworkPath = 53;
constexpr Win32Code invalidName = 123;

// One spelling for all that mean the same entry.
std::wstring Normalised(const std::wstring& path) {
    std::wstring result = text::Upper(path);
    std::replace(result.begin(), result.end(), L'/', L'\\');
    while (result.size() > 1 && result.ends_with(L'\\')) result.pop_back();
    return result;
}

// The folder of a normalised path; empty when the path has only one part.
std::wstring ParentOf(const std::wstring& normalised) {
    const size_t end = normalised.rfind(L'\\');
    return end == std::wstring::npos ? std::wstring() : normalised.substr(0, end);
}

bool HasForbiddenCharacter(const std::wstring& path) {
    return path.find_first_of(L"<>\"|?*") != std::wstring::npos;
}

}  // namespace

void MemoryFiles::AddFolder(const std::wstring& path) {
    for (std::wstring folder = Normalised(path); !folder.empty(); folder = ParentOf(folder)) {
        entries_[folder].isFolder = true;
    }
}

void MemoryFiles::AddFile(const std::wstring& path, std::string_view content) {
    AddFolder(ParentOf(Normalised(path)));
    const auto bytes = std::as_bytes(std::span(content));
    entries_[Normalised(path)] = Entry{false, Bytes(bytes.begin(), bytes.end())};
}

void MemoryFiles::Remove(const std::wstring& path) {
    const std::wstring name = Normalised(path);
    const std::wstring inside = name + L"\\";
    std::erase_if(entries_, [&](const auto& entry) { return entry.first == name || entry.first.starts_with(inside); });
}

std::optional<std::string> MemoryFiles::Content(const std::wstring& path) const {
    const Entry* entry = Find(path);
    if (entry == nullptr || entry->isFolder) return std::nullopt;
    std::string content;
    for (const std::byte byte : entry->content) content += static_cast<char>(byte);
    return content;
}

void MemoryFiles::FailNth(size_t number, Win32Code code) {
    SetFault([=](size_t current, const RecordedFileCall&) { return current == number ? code : code::Success; });
}

void MemoryFiles::FailFrom(size_t number, Win32Code code) {
    SetFault([=](size_t current, const RecordedFileCall&) { return current >= number ? code : code::Success; });
}

void MemoryFiles::FailAll(FileCall call, Win32Code code) {
    SetFault([=](size_t, const RecordedFileCall& recorded) { return recorded.call == call ? code : code::Success; });
}

Win32Code MemoryFiles::Record(FileCall call, const std::wstring& path) {
    const RecordedFileCall recorded{call, path};
    calls_.push_back(recorded);
    if (!fault_) return code::Success;
    const Fault fault = fault_;  // a copy: the fault may replace itself
    return fault(calls_.size() - 1, recorded);
}

Win32Code MemoryFiles::Record(FileCall call, FileHandle file) {
    const auto found = open_.find(file);
    const bool isOpen = found != open_.end();
    const Win32Code fault = Record(call, isOpen ? found->second.path : std::wstring());
    if (fault != code::Success) return fault;
    return isOpen ? code::Success : code::InvalidHandle;
}

MemoryFiles::Entry* MemoryFiles::Find(const std::wstring& path) {
    const auto found = entries_.find(Normalised(path));
    return found == entries_.end() ? nullptr : &found->second;
}

const MemoryFiles::Entry* MemoryFiles::Find(const std::wstring& path) const {
    const auto found = entries_.find(Normalised(path));
    return found == entries_.end() ? nullptr : &found->second;
}

// What the system says of a path that does not exist: the folder is there and the name is not, or not even
// the folder.
Win32Code MemoryFiles::CheckMissing(const std::wstring& path) const {
    if (path.empty()) return code::PathNotFound;
    if (HasForbiddenCharacter(path)) return invalidName;
    if (path.starts_with(L"\\\\")) return badNetworkPath;
    const std::wstring parent = ParentOf(Normalised(path));
    if (parent.empty() && path.find(L':') == std::wstring::npos) return code::FileNotFound;
    const Entry* folder = Find(parent);
    return folder != nullptr && folder->isFolder ? code::FileNotFound : code::PathNotFound;
}

bool MemoryFiles::IsOpen(const std::wstring& path, bool forWriting) const {
    return std::any_of(open_.begin(), open_.end(), [&](const auto& open) {
        return open.second.isWriting == forWriting && Normalised(open.second.path) == Normalised(path);
    });
}

FileHandle MemoryFiles::NewHandle(const std::wstring& path, bool isWriting) {
    const FileHandle file{++lastHandle_};
    open_[file] = OpenFile{path, isWriting, 0};
    return file;
}

Win32Code MemoryFiles::Open(const std::wstring& path, FileHandle& file) {
    const Win32Code fault = Record(FileCall::Open, path);
    if (fault != code::Success) return fault;
    const Entry* entry = Find(path);
    if (entry == nullptr) return CheckMissing(path);
    if (entry->isFolder) return code::AccessDenied;
    if (IsOpen(path, true)) return sharingViolation;
    file = NewHandle(path, false);
    return code::Success;
}

Win32Code MemoryFiles::Create(const std::wstring& path, FileHandle& file) {
    const Win32Code fault = Record(FileCall::Create, path);
    if (fault != code::Success) return fault;
    const Entry* entry = Find(path);
    if (entry != nullptr && entry->isFolder) return code::AccessDenied;
    if (IsOpen(path, true) || IsOpen(path, false)) return sharingViolation;
    if (entry == nullptr) {
        const Win32Code missing = CheckMissing(path);
        if (missing != code::FileNotFound) return missing;
    }
    entries_[Normalised(path)] = Entry{};
    file = NewHandle(path, true);
    return code::Success;
}

Win32Code MemoryFiles::Size(FileHandle file, uint64_t& bytes) {
    const Win32Code answer = Record(FileCall::Size, file);
    if (answer != code::Success) return answer;
    bytes = entries_[Normalised(open_[file].path)].content.size();
    return code::Success;
}

Win32Code MemoryFiles::Read(FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) {
    bytesRead = 0;
    const Win32Code answer = Record(FileCall::Read, file);
    if (answer != code::Success) return answer;
    OpenFile& open = open_[file];
    if (open.isWriting) return code::AccessDenied;
    const Bytes& content = entries_[Normalised(open.path)].content;
    const auto rest = std::span(content).subspan(std::min(open.position, content.size()));
    const auto part = rest.first(std::min(rest.size(), buffer.size()));
    std::copy(part.begin(), part.end(), buffer.begin());
    open.position += part.size();
    bytesRead = static_cast<uint32_t>(part.size());
    return code::Success;
}

Win32Code MemoryFiles::Write(FileHandle file, std::span<const std::byte> data, uint32_t& bytesWritten) {
    bytesWritten = 0;
    const Win32Code answer = Record(FileCall::Write, file);
    if (answer != code::Success) return answer;
    const OpenFile& open = open_[file];
    if (!open.isWriting) return code::AccessDenied;
    Bytes& content = entries_[Normalised(open.path)].content;
    content.insert(content.end(), data.begin(), data.end());
    bytesWritten = static_cast<uint32_t>(data.size());
    return code::Success;
}

Win32Code MemoryFiles::Close(FileHandle file) {
    const Win32Code answer = Record(FileCall::Close, file);
    open_.erase(file);
    return answer;
}

Win32Code MemoryFiles::CheckPathExists(const std::wstring& path) {
    const Win32Code fault = Record(FileCall::CheckPathExists, path);
    if (fault != code::Success) return fault;
    return Find(path) != nullptr ? code::Success : CheckMissing(path);
}

}  // namespace platform::memory
