#include "platform/memory/MemoryRegistry.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/memory/NamedItems.h"

namespace platform::memory {
namespace {

constexpr Win32Code invalidParameter = 87;
constexpr Win32Code badPathName = 161;
constexpr size_t longestKeyName = 255;

// Takes the first name off a path; an empty name after the last one. Backslashes in a row count as one.
std::wstring_view TakeName(std::wstring_view& path) {
    path.remove_prefix(std::min(path.find_first_not_of(L'\\'), path.size()));
    const std::wstring_view name = path.substr(0, path.find(L'\\'));
    path.remove_prefix(name.size());
    return name;
}

// The system takes texts that end in a zero, and so at their first one.
std::wstring_view UpToZero(std::wstring_view text) {
    return text.substr(0, text.find(L'\0'));
}

bool HasTooLongName(std::wstring_view path) {
    for (std::wstring_view name = TakeName(path); !name.empty(); name = TakeName(path)) {
        if (name.size() > longestKeyName) return true;
    }
    return false;
}

}  // namespace

struct MemoryRegistry::Value {
    std::wstring Name;
    ValueType Type = ValueType::Binary;
    std::vector<std::byte> Data;
};

struct MemoryRegistry::Key {
    std::wstring Name;
    Key* Parent = nullptr;  // none: a root, or deleted
    bool Deleted = false;
    NamedItems<KeyPointer> Subkeys;
    std::vector<Value> Values;  // in alphabetical order

    KeyPointer Add(std::wstring_view name) {
        auto key = std::make_shared<Key>();
        key->Name = name;
        key->Parent = this;
        return Subkeys.Add(name, std::move(key));
    }

    // Where the value of that name stands or would stand.
    std::vector<Value>::iterator PlaceOf(std::wstring_view name) {
        return std::ranges::lower_bound(Values, name, Alphabetical(), &Value::Name);
    }
    // Null: there is none.
    Value* FindValue(std::wstring_view name) {
        const auto place = PlaceOf(name);
        return place == Values.end() || Alphabetical()(name, place->Name) ? nullptr : &*place;
    }

    // Null when a key on the way is missing.
    static KeyPointer Find(KeyPointer from, std::wstring_view path) {
        for (auto name = TakeName(path); from && !name.empty(); name = TakeName(path)) {
            const KeyPointer* subkey = from->Subkeys.Find(name);
            from = subkey == nullptr ? nullptr : *subkey;
        }
        return from;
    }
};

MemoryRegistry::MemoryRegistry() : localMachine_(std::make_shared<Key>()), currentUser_(std::make_shared<Key>()) {}

MemoryRegistry::~MemoryRegistry() = default;

const MemoryRegistry::KeyPointer& MemoryRegistry::Root(RootKey root) const {
    return root == RootKey::LocalMachine ? localMachine_ : currentUser_;
}

Win32Code MemoryRegistry::Resolve(KeyHandle handle, KeyPointer& key) const {
    const auto found = handles_.find(handle);
    if (found == handles_.end()) return code::InvalidHandle;
    key = found->second;
    return key->Deleted ? code::KeyDeleted : code::Success;
}

KeyHandle MemoryRegistry::NewHandle(KeyPointer key) {
    const KeyHandle handle{++lastHandle_};
    handles_.emplace(handle, std::move(key));
    return handle;
}

Win32Code MemoryRegistry::OpenBelow(const KeyPointer& from, std::wstring_view path, KeyHandle& key) {
    if (path.starts_with(L'\\')) return badPathName;
    KeyPointer found = Key::Find(from, UpToZero(path));
    if (!found) return code::FileNotFound;
    key = NewHandle(std::move(found));
    return code::Success;
}

Win32Code MemoryRegistry::Open(RootKey root, const std::wstring& path, KeyHandle& key) {
    return OpenBelow(Root(root), path, key);
}

Win32Code MemoryRegistry::OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) {
    KeyPointer from;
    const Win32Code answer = Resolve(parent, from);
    return answer != code::Success ? answer : OpenBelow(from, name, key);
}

Win32Code MemoryRegistry::Create(RootKey root, const std::wstring& path, KeyHandle& key) {
    if (path.starts_with(L'\\')) return badPathName;
    std::wstring_view rest = UpToZero(path);
    if (HasTooLongName(rest)) return invalidParameter;
    KeyPointer current = Root(root);
    for (auto name = TakeName(rest); !name.empty(); name = TakeName(rest)) {
        const KeyPointer* subkey = current->Subkeys.Find(name);
        current = subkey != nullptr ? *subkey : current->Add(name);
    }
    key = NewHandle(std::move(current));
    return code::Success;
}

Win32Code MemoryRegistry::Close(KeyHandle key) {
    return handles_.erase(key) == 1 ? code::Success : code::InvalidHandle;
}

Win32Code MemoryRegistry::Flush(KeyHandle key) {
    KeyPointer flushed;
    return Resolve(key, flushed);
}

Win32Code MemoryRegistry::EnumerateSubkey(KeyHandle key, uint32_t index, uint32_t capacity, std::wstring& name) {
    KeyPointer parent;
    const Win32Code answer = Resolve(key, parent);
    if (answer != code::Success) return answer;
    const KeyPointer* subkey = parent->Subkeys.At(index);
    if (subkey == nullptr) return code::NoMoreItems;
    if ((*subkey)->Name.size() >= capacity) return code::MoreData;
    name = (*subkey)->Name;
    return code::Success;
}

Win32Code MemoryRegistry::DeleteSubkey(KeyHandle parent, const std::wstring& name) {
    KeyPointer from;
    const Win32Code answer = Resolve(parent, from);
    if (answer != code::Success) return answer;
    if (name.starts_with(L'\\')) return badPathName;
    const KeyPointer key = Key::Find(from, UpToZero(name));
    if (!key) return code::FileNotFound;
    if (key->Parent == nullptr || !key->Subkeys.Empty()) return code::AccessDenied;
    key->Parent->Subkeys.Remove(key->Name);
    key->Parent = nullptr;
    key->Deleted = true;
    return code::Success;
}

Win32Code MemoryRegistry::Query(KeyHandle key, const std::wstring& name, ValueType& type, std::span<std::byte> buffer,
                                uint32_t& size) {
    KeyPointer owner;
    const Win32Code answer = Resolve(key, owner);
    if (answer != code::Success) return answer;
    const Value* value = owner->FindValue(name);
    if (value == nullptr) return code::FileNotFound;
    type = value->Type;
    size = static_cast<uint32_t>(value->Data.size());
    if (buffer.empty()) return code::Success;
    if (buffer.size() < value->Data.size()) return code::MoreData;
    std::copy(value->Data.begin(), value->Data.end(), buffer.begin());
    return code::Success;
}

Win32Code MemoryRegistry::Set(KeyHandle key, const std::wstring& name, ValueType type,
                              std::span<const std::byte> data) {
    KeyPointer owner;
    const Win32Code answer = Resolve(key, owner);
    if (answer != code::Success) return answer;
    Value* value = owner->FindValue(name);
    if (value == nullptr) value = &*owner->Values.insert(owner->PlaceOf(name), Value{name, type, {}});
    value->Type = type;
    value->Data.assign(data.begin(), data.end());
    return code::Success;
}

Win32Code MemoryRegistry::EnumerateValue(KeyHandle key, uint32_t index, std::wstring& name) {
    KeyPointer owner;
    const Win32Code answer = Resolve(key, owner);
    if (answer != code::Success) return answer;
    if (index >= owner->Values.size()) return code::NoMoreItems;
    name = owner->Values[index].Name;
    return code::Success;
}

}  // namespace platform::memory
