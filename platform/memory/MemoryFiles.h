// A file system held in memory. It records every call and can make chosen calls fail.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"

namespace platform::memory {

enum class FileCall { Open, Create, Size, Read, Write, Close, CheckPathExists };

struct RecordedFileCall {
    FileCall call;
    std::wstring path;  // as given when the file was opened; empty for a handle that is not open
    bool operator==(const RecordedFileCall&) const = default;
};

// Names are compared without regard to case. The folder "C:\" exists from the beginning.
class MemoryFiles final : public Files {
  public:
    using Bytes = std::vector<std::byte>;

    MemoryFiles() { AddFolder(L"C:\\"); }

    // With all missing parents.
    void AddFolder(const std::wstring& path);
    void AddFile(const std::wstring& path, std::string_view content);
    void Remove(const std::wstring& path);
    // No content: there is no such file.
    std::optional<std::string> Content(const std::wstring& path) const;

    // Every call so far, in order, the failed ones included.
    const std::vector<RecordedFileCall>& Calls() const { return calls_; }
    void ForgetCalls() { calls_.clear(); }
    size_t OpenFiles() const { return open_.size(); }

    // Decides for each call, by its number since the last ForgetCalls (from 0), whether it fails: 0 lets it
    // through, any other code is its answer and nothing else happens (a Close that fails releases the file
    // all the same).
    using Fault = std::function<Win32Code(size_t number, const RecordedFileCall& call)>;
    void SetFault(Fault fault) { fault_ = std::move(fault); }
    void FailNth(size_t number, Win32Code code);
    void FailFrom(size_t number, Win32Code code);
    // Fails every call of this kind.
    void FailAll(FileCall call, Win32Code code);
    void NoFaults() { fault_ = {}; }

    Win32Code Open(const std::wstring& path, FileHandle& file) override;
    Win32Code Create(const std::wstring& path, FileHandle& file) override;
    Win32Code Size(FileHandle file, uint64_t& bytes) override;
    Win32Code Read(FileHandle file, std::span<std::byte> buffer, uint32_t& bytesRead) override;
    Win32Code Write(FileHandle file, std::span<const std::byte> data, uint32_t& bytesWritten) override;
    Win32Code Close(FileHandle file) override;
    Win32Code CheckPathExists(const std::wstring& path) override;

  private:
    struct Entry {
        bool isFolder = false;
        Bytes content;
    };
    struct OpenFile {
        std::wstring path;
        bool isWriting = false;
        size_t position = 0;
    };
    [[nodiscard]] Win32Code Record(FileCall call, const std::wstring& path);
    [[nodiscard]] Win32Code Record(FileCall call, FileHandle file);
    [[nodiscard]] Win32Code CheckMissing(const std::wstring& path) const;
    bool IsOpen(const std::wstring& path, bool forWriting) const;
    Entry* Find(const std::wstring& path);
    const Entry* Find(const std::wstring& path) const;
    FileHandle NewHandle(const std::wstring& path, bool isWriting);

    std::map<std::wstring, Entry> entries_;  // by normalised path
    std::map<FileHandle, OpenFile> open_;
    std::vector<RecordedFileCall> calls_;
    Fault fault_;
    uintptr_t lastHandle_ = 0;
};

}  // namespace platform::memory
