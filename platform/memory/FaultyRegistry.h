// A registry that records every call made to another one and can make chosen calls fail.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Registry.h"

namespace platform::memory {

enum class RegistryCall {
    Open,
    OpenSubkey,
    Create,
    Close,
    Flush,
    EnumerateSubkey,
    DeleteSubkey,
    Query,
    Set,
    EnumerateValue
};

struct RecordedCall {
    RegistryCall call;
    // The path below the root with the root's name in front ("HKEY_LOCAL_MACHINE\..."); for calls on an open
    // key the path of that key; with the subkey or value name after a further backslash where the call has
    // one.
    std::wstring target;
    bool operator==(const RecordedCall&) const = default;
};

class FaultyRegistry final : public RegistryBackend {
  public:
    explicit FaultyRegistry(RegistryBackend& real) : real_(real) {}

    // Every call so far, in order, the failed ones included.
    const std::vector<RecordedCall>& Calls() const { return calls_; }
    size_t CountOf(RegistryCall call) const;
    void ForgetCalls() { calls_.clear(); }

    // Decides for each call, by its number since the last ForgetCalls (from 0), whether it fails: 0 lets it
    // through, any other code is its answer and the real registry is not asked.
    using Fault = std::function<Win32Code(size_t number, const RecordedCall& call)>;
    void SetFault(Fault fault) { fault_ = std::move(fault); }
    void FailNth(size_t number, Win32Code code);
    void FailFrom(size_t number, Win32Code code);
    // Fails every call of this kind whose target ends with the text.
    void FailWhere(RegistryCall call, std::wstring targetEnd, Win32Code code);
    void NoFaults() { fault_ = {}; }

    // Keys opened and not yet closed through this object.
    size_t OpenKeys() const { return open_.size(); }

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

  private:
    struct OpenKey {
        KeyHandle handle;
        std::wstring path;
    };
    [[nodiscard]] Win32Code Record(RegistryCall call, std::wstring target);
    Win32Code NoteOpened(Win32Code answer, KeyHandle key, std::wstring path);
    std::wstring PathOf(KeyHandle key) const;  // empty for a key that was not opened through this object
    std::wstring Below(KeyHandle key, const std::wstring& name) const;

    RegistryBackend& real_;
    std::vector<RecordedCall> calls_;
    std::vector<OpenKey> open_;
    Fault fault_;
};

}  // namespace platform::memory
