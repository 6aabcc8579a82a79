#include "config/RegistryStore.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "config/RegistryLayout.h"
#include "text/Numbers.h"

namespace config {
namespace {

using platform::KeyHandle;
using platform::RootKey;
using platform::ValueType;
using platform::Win32Code;
namespace code = platform::code;

constexpr wchar_t opening[] = L"Create (open) register key %s";  // and closing
constexpr wchar_t deleting[] = L"Delete register key %s";

constexpr uint32_t subkeyNameCapacity = 260;              // characters, with the terminating zero
constexpr uint32_t deletedNameCapacity = 256;             // likewise
constexpr size_t stringCapacity = (LongestText + 1) * 2;  // bytes

const wchar_t* WritingOf(ValueType type) {
    switch (type) {
        case ValueType::Integer:
            return L"Writing integer value '%s' into register";
        case ValueType::StringList:
            return L"Writing multistring value '%s' into register";
        case ValueType::Binary:
            return L"Writing binary value '%s' into register";
        default:
            return L"Writing string value '%s' into register";
    }
}

// Closes a key that only one function uses.
class ScopedKey {
  public:
    ScopedKey(platform::RegistryBackend& registry, KeyHandle key) : registry_(registry), key_(key) {}
    ~ScopedKey() { static_cast<void>(registry_.Close(key_)); }
    ScopedKey(const ScopedKey&) = delete;
    ScopedKey& operator=(const ScopedKey&) = delete;

  private:
    platform::RegistryBackend& registry_;
    KeyHandle key_;
};

}  // namespace

RegistryStore::~RegistryStore() {
    if (current_.handle != KeyHandle::None) static_cast<void>(registry_.Close(current_.handle));
}

void RegistryStore::MakeCurrent(Key key) {
    if (current_.handle != KeyHandle::None) static_cast<void>(registry_.Close(current_.handle));
    current_ = std::move(key);
}

Win32Code RegistryStore::TryOpen(RootKey root, const std::wstring& path) {
    Key key{.root = root, .path = path};
    const Win32Code result = registry_.Open(root, path, key.handle);
    if (result == code::Success) MakeCurrent(std::move(key));
    return result;
}

bool RegistryStore::Open(RootKey root, const std::wstring& path, const errors::ReportContext& context) {
    return ReportKey(context, TryOpen(root, path), opening, root, path);
}

KeyOutcome RegistryStore::OpenIfThere(RootKey root, const std::wstring& path, const errors::ReportContext& context) {
    const Win32Code result = TryOpen(root, path);
    if (result == code::FileNotFound) return KeyOutcome::Missing;
    return ReportKey(context, result, opening, root, path) ? KeyOutcome::Opened : KeyOutcome::Failure;
}

bool RegistryStore::CreateMachineKey(const std::wstring& path, const errors::ReportContext& context) {
    Key key{.root = RootKey::LocalMachine, .path = path};  // before there is a handle that could be lost
    const Win32Code result = registry_.Create(RootKey::LocalMachine, path, key.handle);
    if (result == code::Success) MakeCurrent(std::move(key));
    return ReportKey(context, result, opening, RootKey::LocalMachine, path);
}

bool RegistryStore::Close(const errors::ReportContext& context, const std::wstring& reportedPath) {
    const Key key = std::exchange(current_, {});
    return ReportKey(context, registry_.Close(key.handle), opening, key.root, reportedPath);
}

void RegistryStore::Flush() {
    static_cast<void>(registry_.Flush(current_.handle));
}

bool RegistryStore::EnumerateSubkeys(std::vector<std::wstring>& names, const errors::ReportContext& context) {
    names.clear();
    for (uint32_t index = 0;; ++index) {
        std::wstring name;
        const Win32Code result = registry_.EnumerateSubkey(current_.handle, index, subkeyNameCapacity, name);
        if (result == code::NoMoreItems) return true;
        if (result != code::Success)
            return ReportKey(context, result, L"Search register key %s subkeys", current_.root, current_.path);
        names.push_back(std::move(name));
    }
}

bool RegistryStore::DeleteKeyTree(const std::wstring& name, const errors::ReportContext& context,
                                  const std::wstring& reportedPath) {
    return ReportKey(context, DeleteTree(current_.handle, name), deleting, current_.root, reportedPath);
}

bool RegistryStore::DeleteKeyTreeIfThere(const std::wstring& name, const errors::ReportContext& context) {
    const Win32Code result = DeleteTree(current_.handle, name);
    return result == code::FileNotFound ||
           ReportKey(context, result, deleting, current_.root, current_.path + L"\\" + name);
}

bool RegistryStore::DeleteKeyTreeIfThere(RootKey root, const std::wstring& parent, const std::wstring& name,
                                         const errors::ReportContext& context) {
    Win32Code result = TryOpen(root, parent);
    if (result == code::Success) result = DeleteTree(current_.handle, name);
    return result == code::FileNotFound || ReportKey(context, result, deleting, root, parent + L"\\" + name);
}

Win32Code RegistryStore::DeleteTree(KeyHandle parent, const std::wstring& name) {
    KeyHandle key = KeyHandle::None;
    if (const Win32Code result = registry_.OpenSubkey(parent, name, key); result != code::Success) return result;
    {
        const ScopedKey closeLater(registry_, key);
        std::wstring child;
        // Always the first one: each deletion moves the next to the front.
        while (registry_.EnumerateSubkey(key, 0, deletedNameCapacity, child) == code::Success)
            if (const Win32Code result = DeleteTree(key, child); result != code::Success) return result;
    }
    return registry_.DeleteSubkey(parent, name);
}

bool RegistryStore::ReportKey(const errors::ReportContext& context, Win32Code code, const wchar_t* operation,
                              RootKey root, const std::wstring& path) const {
    if (code == code::Success) return true;
    const std::wstring shown =
        (root == RootKey::LocalMachine ? L"HKEY_LOCAL_MACHINE\\" : L"HKEY_CURRENT_USER\\") + path;
    reporter_.ErrorReport(context, {.code = code, .operation = operation, .argument = shown});
    return false;
}

bool RegistryStore::ReportValue(const errors::ReportContext& context, Win32Code code, const wchar_t* operation,
                                std::wstring_view name) const {
    reporter_.ErrorReport(context, {.code = code, .operation = operation, .argument = name});
    return false;
}

const std::wstring& RegistryStore::Named(std::wstring_view name) {
    return valueName_.assign(name);
}

ReadOutcome RegistryStore::ReadInteger(std::wstring_view name, int32_t& target, const errors::ReportContext& context,
                                       int32_t defaultValue) {
    std::array<std::byte, 4> buffer{};
    ValueType type{};
    uint32_t size = buffer.size();
    const Win32Code result = registry_.Query(current_.handle, Named(name), type, buffer, size);
    const bool stored = result == code::Success || result == code::MoreData;
    if (result == code::FileNotFound || (stored && size != buffer.size())) {
        target = defaultValue;
        return ReadOutcome::Default;
    }
    if (result != code::Success) {
        ReportValue(context, result, L"Reading integer value '%s' from register", name);
        return ReadOutcome::Failure;
    }
    uint32_t value = 0;
    for (size_t i = 0; i < buffer.size(); ++i) value |= std::to_integer<uint32_t>(buffer[i]) << (8 * i);
    target = static_cast<int32_t>(value);
    return ReadOutcome::Value;
}

ReadOutcome RegistryStore::ReadString(std::wstring_view name, std::wstring& target,
                                      const errors::ReportContext& context, const std::wstring& defaultValue) {
    std::array<std::byte, stringCapacity> buffer;
    ValueType type{};
    uint32_t size = buffer.size();
    const Win32Code result = registry_.Query(current_.handle, Named(name), type, buffer, size);
    const bool missing = result == code::FileNotFound || result == code::InvalidData;
    if (result != code::Success && !missing) {
        ReportValue(context, result, L"Reading string value '%s' from register", name);
        return ReadOutcome::Failure;
    }
    auto text =
        missing ? std::nullopt : DecodeString(type, std::span(buffer).first(std::min<size_t>(size, buffer.size())));
    if (!text) {
        target = defaultValue;
        return ReadOutcome::Default;
    }
    target = std::move(*text);
    return ReadOutcome::Value;
}

bool RegistryStore::ReadStringList(std::wstring_view name, std::vector<std::wstring>& target,
                                   const errors::ReportContext& context) {
    constexpr wchar_t operation[] = L"Reading multistring value '%s' from register";
    target.clear();
    ValueType type{};
    uint32_t size = 0;
    Win32Code result = registry_.Query(current_.handle, Named(name), type, {}, size);
    if (result == code::FileNotFound || result == code::InvalidData) return true;
    if (result != code::Success) return ReportValue(context, result, operation, name);

    const size_t capacity = size_t{size} + 2;
    const std::unique_ptr<std::byte[]> block = memory_.Allocate(capacity, result);
    if (!block) return ReportValue(context, result, L"Memory allocation", name);
    result = registry_.Query(current_.handle, Named(name), type, {block.get(), capacity}, size);
    if (result == code::FileNotFound || result == code::InvalidData) return true;
    if (result != code::Success) return ReportValue(context, result, operation, name);
    if (auto entries = DecodeStringList(type, {block.get(), std::min<size_t>(size, capacity)}))
        target = std::move(*entries);
    return true;
}

bool RegistryStore::ReadIntegerList(std::wstring_view name, std::vector<int32_t>& target,
                                    const errors::ReportContext& context) {
    target.clear();
    std::vector<std::wstring> entries;
    if (!ReadStringList(name, entries, context)) return false;
    for (const std::wstring& entry : entries) target.push_back(text::LeadingNumber(entry));
    return true;
}

ReadOutcome RegistryStore::ReadBinary(std::wstring_view name, Bytes& target, const errors::ReportContext& context) {
    ValueType type{};
    uint32_t size = 0;
    Win32Code result = registry_.Query(current_.handle, Named(name), type, {}, size);
    if (result == code::FileNotFound) return ReadOutcome::Default;
    if (result == code::Success && type != ValueType::Binary) return ReadOutcome::Default;
    Bytes data(size);
    if (result == code::Success && size > 0) result = registry_.Query(current_.handle, Named(name), type, data, size);
    if (result != code::Success) {
        ReportValue(context, result, L"Reading binary value '%s' from register", name);
        return ReadOutcome::Failure;
    }
    data.resize(std::min<size_t>(size, data.size()));
    target = std::move(data);
    return ReadOutcome::Value;
}

bool RegistryStore::WriteInteger(std::wstring_view name, int32_t value, const errors::ReportContext& context) {
    std::array<std::byte, 4> data;
    for (size_t i = 0; i < data.size(); ++i) data[i] = static_cast<std::byte>(static_cast<uint32_t>(value) >> (8 * i));
    return WriteValue(name, ValueType::Integer, data, context);
}

bool RegistryStore::WriteString(std::wstring_view name, std::wstring_view text, const errors::ReportContext& context) {
    EncodeString(text, encoded_);
    return WriteValue(name, ValueType::String, encoded_, context);
}

bool RegistryStore::WriteTextList(std::wstring_view name, const std::vector<std::wstring>& texts,
                                  const errors::ReportContext& context) {
    std::vector<std::wstring> entries(texts);
    for (std::wstring& entry : entries)
        if (entry.empty()) entry = L"0";
    return WritePlainList(name, entries, context);
}

bool RegistryStore::WriteIntegerList(std::wstring_view name, const std::vector<int32_t>& numbers,
                                     const errors::ReportContext& context) {
    std::vector<std::wstring> entries;
    entries.reserve(numbers.size());
    for (const int32_t number : numbers) entries.push_back(text::Decimal(number));
    return WritePlainList(name, entries, context);
}

bool RegistryStore::WritePlainList(std::wstring_view name, const std::vector<std::wstring>& entries,
                                   const errors::ReportContext& context) {
    const size_t size = EncodedListSize(entries);
    Win32Code result = code::Success;
    const std::unique_ptr<std::byte[]> block = memory_.Allocate(size, result);
    if (!block) return ReportValue(context, result, L"Memory allocation", name);
    const std::span data(block.get(), size);
    EncodeStringList(entries, data);
    return WriteValue(name, ValueType::StringList, data, context);
}

bool RegistryStore::WriteValue(std::wstring_view name, ValueType type, std::span<const std::byte> data,
                               const errors::ReportContext& context) {
    const Win32Code result = registry_.Set(current_.handle, Named(name), type, data);
    return result == code::Success || ReportValue(context, result, WritingOf(type), name);
}

}  // namespace config
