// A run of registry calls, taken down so that it can be made again with nothing around it: the reference that
// loading and saving are measured against.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Registry.h"

namespace bench {

enum class CallKind { Open, OpenSubkey, Create, Close, Flush, Enumerate, Delete, Query, Set };

struct Call {
    CallKind kind;
    platform::RootKey root{};
    size_t key = 0;         // slot of the key that is worked on
    size_t result = 0;      // slot of the key that is opened
    std::wstring text{};    // path, subkey or value name
    uint32_t number = 0;    // index of an enumeration, or bytes of a query's buffer
    uint32_t capacity = 0;  // of an enumeration's name buffer
    platform::ValueType type{};
    std::vector<std::byte> data{};
    // What was answered, and the name or the bytes that came with it.
    platform::Win32Code answer{};
    uint32_t size = 0;
    std::wstring name{};
};

struct RecordedSession {
    std::vector<Call> calls;
    size_t slots = 0;  // keys opened in all
};

// Of the calls of a save, those that make and remove its record.
RecordedSession CallsForTheRecord(const RecordedSession& save);

// Passes every call on and takes it down.
class RecordingRegistry final : public platform::RegistryBackend {
  public:
    explicit RecordingRegistry(platform::RegistryBackend& real) : real_(real) {}
    const RecordedSession& Session() const { return session_; }

    platform::Win32Code Open(platform::RootKey root, const std::wstring& path, platform::KeyHandle& key) override;
    platform::Win32Code OpenSubkey(platform::KeyHandle parent, const std::wstring& name,
                                   platform::KeyHandle& key) override;
    platform::Win32Code Create(platform::RootKey root, const std::wstring& path, platform::KeyHandle& key) override;
    platform::Win32Code Close(platform::KeyHandle key) override;
    platform::Win32Code Flush(platform::KeyHandle key) override;
    platform::Win32Code EnumerateSubkey(platform::KeyHandle key, uint32_t index, uint32_t capacity,
                                        std::wstring& name) override;
    platform::Win32Code EnumerateValue(platform::KeyHandle key, uint32_t index, std::wstring& name) override;
    platform::Win32Code DeleteSubkey(platform::KeyHandle parent, const std::wstring& name) override;
    platform::Win32Code Query(platform::KeyHandle key, const std::wstring& name, platform::ValueType& type,
                              std::span<std::byte> buffer, uint32_t& size) override;
    platform::Win32Code Set(platform::KeyHandle key, const std::wstring& name, platform::ValueType type,
                            std::span<const std::byte> data) override;

  private:
    size_t SlotOf(platform::KeyHandle key) const;
    size_t NewSlot(platform::Win32Code code, platform::KeyHandle key);

    struct OpenKey {
        platform::KeyHandle handle;
        size_t slot;
    };
    platform::RegistryBackend& real_;
    RecordedSession session_;
    std::vector<OpenKey> open_;
};

// Answers the same calls in the same order once more, at next to no cost: what whoever makes them takes besides is his
// own share.
class RecalledRegistry final : public platform::RegistryBackend {
  public:
    explicit RecalledRegistry(const RecordedSession& session) : session_(session) {}

    platform::Win32Code Open(platform::RootKey, const std::wstring&, platform::KeyHandle& key) override {
        return Opened(key);
    }
    platform::Win32Code OpenSubkey(platform::KeyHandle, const std::wstring&, platform::KeyHandle& key) override {
        return Opened(key);
    }
    platform::Win32Code Create(platform::RootKey, const std::wstring&, platform::KeyHandle& key) override {
        return Opened(key);
    }
    platform::Win32Code Close(platform::KeyHandle) override { return Next().answer; }
    platform::Win32Code Flush(platform::KeyHandle) override { return Next().answer; }
    platform::Win32Code EnumerateSubkey(platform::KeyHandle, uint32_t, uint32_t, std::wstring& name) override;
    platform::Win32Code EnumerateValue(platform::KeyHandle, uint32_t, std::wstring& name) override;
    platform::Win32Code DeleteSubkey(platform::KeyHandle, const std::wstring&) override { return Next().answer; }
    platform::Win32Code Query(platform::KeyHandle, const std::wstring&, platform::ValueType& type,
                              std::span<std::byte> buffer, uint32_t& size) override;
    platform::Win32Code Set(platform::KeyHandle, const std::wstring&, platform::ValueType,
                            std::span<const std::byte>) override {
        return Next().answer;
    }

  private:
    const Call& Next() { return session_.calls.at(next_++); }
    platform::Win32Code Opened(platform::KeyHandle& key);

    const RecordedSession& session_;
    size_t next_ = 0;
};

// Makes the calls again on another registry.
void Replay(const RecordedSession& session, platform::RegistryBackend& registry);

}  // namespace bench
