#include "bench/RecordedSession.h"

#include <algorithm>
#include <stdexcept>

#include "config/RegistryLayout.h"

namespace bench {

using platform::KeyHandle;
using platform::RootKey;
using platform::ValueType;
using platform::Win32Code;

RecordedSession CallsForTheRecord(const RecordedSession& save) {
    RecordedSession ofRecord{.calls = {}, .slots = save.slots};
    std::vector<bool> isOfRecord(save.slots);
    for (const Call& call : save.calls) {
        const bool opens = call.kind == CallKind::Open || call.kind == CallKind::Create;
        const bool concernsIt =
            opens ? call.text == config::EditorParent || call.text.ends_with(config::EditorKey) : isOfRecord[call.key];
        if (!concernsIt) continue;
        if (opens || call.kind == CallKind::OpenSubkey) isOfRecord[call.result] = true;
        ofRecord.calls.push_back(call);
    }
    return ofRecord;
}

size_t RecordingRegistry::SlotOf(KeyHandle key) const {
    const auto found = std::find_if(open_.begin(), open_.end(), [key](const OpenKey& k) { return k.handle == key; });
    if (found == open_.end()) throw std::logic_error("a key that is not open");
    return found->slot;
}

size_t RecordingRegistry::NewSlot(Win32Code code, KeyHandle key) {
    const size_t slot = session_.slots++;
    if (code == platform::code::Success) open_.push_back({key, slot});
    return slot;
}

Win32Code RecordingRegistry::Open(RootKey root, const std::wstring& path, KeyHandle& key) {
    const Win32Code code = real_.Open(root, path, key);
    session_.calls.push_back(
        {.kind = CallKind::Open, .root = root, .result = NewSlot(code, key), .text = path, .answer = code});
    return code;
}

Win32Code RecordingRegistry::OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) {
    const size_t slot = SlotOf(parent);
    const Win32Code code = real_.OpenSubkey(parent, name, key);
    session_.calls.push_back(
        {.kind = CallKind::OpenSubkey, .key = slot, .result = NewSlot(code, key), .text = name, .answer = code});
    return code;
}

Win32Code RecordingRegistry::Create(RootKey root, const std::wstring& path, KeyHandle& key) {
    const Win32Code code = real_.Create(root, path, key);
    session_.calls.push_back(
        {.kind = CallKind::Create, .root = root, .result = NewSlot(code, key), .text = path, .answer = code});
    return code;
}

Win32Code RecordingRegistry::Close(KeyHandle key) {
    session_.calls.push_back({.kind = CallKind::Close, .key = SlotOf(key)});
    std::erase_if(open_, [key](const OpenKey& k) { return k.handle == key; });
    return real_.Close(key);
}

Win32Code RecordingRegistry::Flush(KeyHandle key) {
    session_.calls.push_back({.kind = CallKind::Flush, .key = SlotOf(key)});
    return real_.Flush(key);
}

Win32Code RecordingRegistry::EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) {
    session_.calls.push_back({.kind = CallKind::Enumerate, .key = SlotOf(key), .number = index, .capacity = capacity});
    Call& call = session_.calls.back();
    call.answer = real_.EnumerateSubkey(key, index, capacity, name);
    call.name = name;
    return call.answer;
}

Win32Code RecordingRegistry::EnumerateValue(KeyHandle, uint32_t, std::wstring&) {
    throw std::logic_error("loading and saving do not enumerate values");
}

Win32Code RecordingRegistry::DeleteSubkey(KeyHandle parent, const std::wstring& name) {
    session_.calls.push_back({.kind = CallKind::Delete, .key = SlotOf(parent), .text = name});
    return session_.calls.back().answer = real_.DeleteSubkey(parent, name);
}

Win32Code RecordingRegistry::Query(KeyHandle key, const std::wstring& name, ValueType& type,
                                   std::span<std::byte> buffer, uint32_t& size) {
    session_.calls.push_back(
        {.kind = CallKind::Query, .key = SlotOf(key), .text = name, .number = static_cast<uint32_t>(buffer.size())});
    Call& call = session_.calls.back();
    call.answer = real_.Query(key, name, type, buffer, size);
    call.type = type;
    call.size = size;
    call.data.assign(buffer.begin(),
                     buffer.begin() + static_cast<std::ptrdiff_t>(std::min<size_t>(size, buffer.size())));
    return call.answer;
}

Win32Code RecordingRegistry::Set(KeyHandle key, const std::wstring& name, ValueType type,
                                 std::span<const std::byte> data) {
    session_.calls.push_back(
        {.kind = CallKind::Set, .key = SlotOf(key), .text = name, .type = type, .data = {data.begin(), data.end()}});
    return real_.Set(key, name, type, data);
}

Win32Code RecalledRegistry::Opened(KeyHandle& key) {
    const Call& call = Next();
    key = KeyHandle{call.result + 1};
    return call.answer;
}

Win32Code RecalledRegistry::EnumerateSubkey(KeyHandle, uint32_t, uint32_t, std::wstring& name) {
    const Call& call = Next();
    name = call.name;
    return call.answer;
}

Win32Code RecalledRegistry::EnumerateValue(KeyHandle, uint32_t, std::wstring&) {
    throw std::logic_error("loading and saving do not enumerate values");
}

Win32Code RecalledRegistry::Query(KeyHandle, const std::wstring&, ValueType& type, std::span<std::byte> buffer,
                                  uint32_t& size) {
    const Call& call = Next();
    type = call.type;
    size = call.size;
    std::ranges::copy(call.data, buffer.begin());
    return call.answer;
}

namespace {

Win32Code Repeat(const Call& call, platform::RegistryBackend& registry, std::vector<KeyHandle>& keys,
                 std::span<std::byte> buffer) {
    std::wstring name;
    ValueType type{};
    uint32_t size = call.number;
    switch (call.kind) {
        case CallKind::Open:
            return registry.Open(call.root, call.text, keys[call.result]);
        case CallKind::OpenSubkey:
            return registry.OpenSubkey(keys[call.key], call.text, keys[call.result]);
        case CallKind::Create:
            return registry.Create(call.root, call.text, keys[call.result]);
        case CallKind::Close:
            return registry.Close(keys[call.key]);
        case CallKind::Flush:
            return registry.Flush(keys[call.key]);
        case CallKind::Enumerate:
            return registry.EnumerateSubkey(keys[call.key], call.number, call.capacity, name);
        case CallKind::Delete:
            return registry.DeleteSubkey(keys[call.key], call.text);
        case CallKind::Query:
            return registry.Query(keys[call.key], call.text, type, buffer.first(call.number), size);
        case CallKind::Set:
            return registry.Set(keys[call.key], call.text, call.type, call.data);
    }
    return platform::code::Success;
}

}  // namespace

// What was recorded failed then as well.
void Replay(const RecordedSession& session, platform::RegistryBackend& registry) {
    std::vector<KeyHandle> keys(session.slots);
    std::vector<std::byte> buffer(65536);
    for (const Call& call : session.calls) static_cast<void>(Repeat(call, registry, keys, buffer));
}

}  // namespace bench
