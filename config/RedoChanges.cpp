#include "config/RedoChanges.h"

#include <algorithm>

#include "config/RegistryLayout.h"

namespace config {
namespace {

using platform::KeyHandle;
using platform::ValueType;
using platform::Win32Code;
namespace code = platform::code;

constexpr std::byte deleteTree{0x01};
constexpr std::byte createKey{0x02};
constexpr std::byte setValue{0x10};  // and the type in the lower half
constexpr std::byte typeMask{0x0F};
constexpr uint32_t lengthBits = 7;
constexpr std::byte moreLength{0x80};

class ChangeWriter {
  public:
    void DeleteTree(std::wstring_view path) { AddNamed(deleteTree, path); }
    void CreateKey(std::wstring_view path) { AddNamed(createKey, path); }
    void SetValue(std::wstring_view name, ValueType type, std::span<const std::byte> data) {
        AddNamed(setValue | static_cast<std::byte>(type), name);
        AddLength(data.size());
        bytes_.insert(bytes_.end(), data.begin(), data.end());
    }
    Bytes Take() { return std::move(bytes_); }

  private:
    void AddNamed(std::byte kind, std::wstring_view name) {
        name = name.substr(0, name.find(L'\0'));  // the system takes no more of it
        bytes_.push_back(kind);
        AddLength(name.size());
        const size_t at = bytes_.size();
        bytes_.resize(at + name.size() * 2);
        PutUnits(name, std::span(bytes_).subspan(at));
    }
    void AddLength(size_t length) {
        for (; length >= 1U << lengthBits; length >>= lengthBits)
            bytes_.push_back(static_cast<std::byte>(length) | moreLength);
        bytes_.push_back(static_cast<std::byte>(length));
    }

    Bytes bytes_;
};

// A registry that only notes down what is changed.
class NotingRegistry final : public platform::RegistryBackend {
  public:
    Win32Code Open(platform::RootKey /*root*/, const std::wstring& path, KeyHandle& key) override {
        return NewHandle(BelowRoot(path), key);
    }
    Win32Code OpenSubkey(KeyHandle parent, const std::wstring& name, KeyHandle& key) override {
        return NewHandle(Below(parent, name), key);
    }
    Win32Code Create(platform::RootKey /*root*/, const std::wstring& path, KeyHandle& key) override {
        Enter(BelowRoot(path));
        return NewHandle(BelowRoot(path), key);
    }
    Win32Code Close(KeyHandle key) override {
        std::erase_if(open_, [key](const OpenKey& open) { return open.handle == key; });
        return code::Success;
    }
    Win32Code Flush(KeyHandle /*key*/) override { return code::Success; }
    Win32Code EnumerateSubkey(KeyHandle, uint32_t, uint32_t, std::wstring&) override { return code::NoMoreItems; }
    Win32Code DeleteSubkey(KeyHandle parent, const std::wstring& name) override {
        writer_.DeleteTree(Below(parent, name));
        entered_.reset();  // which may be the one that is gone
        return code::Success;
    }
    Win32Code Query(KeyHandle, const std::wstring&, ValueType&, std::span<std::byte>, uint32_t&) override {
        return code::FileNotFound;
    }
    Win32Code Set(KeyHandle key, const std::wstring& name, ValueType type, std::span<const std::byte> data) override {
        if (entered_ != PathOf(key)) Enter(PathOf(key));
        writer_.SetValue(name, type, data);
        return code::Success;
    }
    Win32Code EnumerateValue(KeyHandle, uint32_t, std::wstring&) override { return code::NoMoreItems; }

    Bytes Take() { return writer_.Take(); }

  private:
    struct OpenKey {
        KeyHandle handle;
        std::wstring path;  // below the service's root
    };

    static std::wstring BelowRoot(const std::wstring& path) {
        constexpr size_t root = std::char_traits<wchar_t>::length(ServiceRoot);
        return path.size() <= root ? std::wstring() : path.substr(root + 1);
    }
    const std::wstring& PathOf(KeyHandle key) const { return std::ranges::find(open_, key, &OpenKey::handle)->path; }
    std::wstring Below(KeyHandle parent, const std::wstring& name) const {
        const std::wstring& path = PathOf(parent);
        return path.empty() ? name : path + L"\\" + name;
    }
    Win32Code NewHandle(std::wstring path, KeyHandle& key) {
        key = KeyHandle{++lastHandle_};
        open_.push_back({key, std::move(path)});
        return code::Success;
    }
    void Enter(const std::wstring& path) {
        writer_.CreateKey(path);
        entered_ = path;
    }

    ChangeWriter writer_;
    std::optional<std::wstring> entered_;  // the key whose values the next ones are
    std::vector<OpenKey> open_;            // never more than a few
    uintptr_t lastHandle_ = 0;
};

// A plan that lacks a list would be wrong: without memory there is none.
class UnlimitedMemory final : public platform::Memory {
  public:
    std::unique_ptr<std::byte[]> Allocate(size_t bytes, Win32Code& /*error*/) override {
        return std::make_unique<std::byte[]>(bytes);
    }
};

class ChangeReader {
  public:
    explicit ChangeReader(std::span<const std::byte> bytes) : rest_(bytes) {}

    bool AtEnd() const { return rest_.empty(); }
    std::optional<RedoChange> Next() {
        const std::byte kind = rest_.front();
        rest_ = rest_.subspan(1);
        RedoChange change;
        if (!ReadName(change.Name)) return std::nullopt;
        if (kind == deleteTree || kind == createKey) {
            change.What = kind == deleteTree ? RedoChange::Kind::DeleteTree : RedoChange::Kind::CreateKey;
            return IsPath(change) ? std::optional(std::move(change)) : std::nullopt;
        }
        change.Type = static_cast<ValueType>(kind & typeMask);
        const bool isValue = (kind & ~typeMask) == setValue && IsKnown(change.Type);
        if (!isValue || !inKey_ || !ReadBytes(change.Data, 1)) return std::nullopt;
        return change;
    }

  private:
    // A path must not lead to the root by another way, nor a deletion to the root at all.
    bool IsPath(const RedoChange& change) {
        inKey_ = change.What == RedoChange::Kind::CreateKey;
        return !change.Name.starts_with(L'\\') && (inKey_ || !change.Name.empty());
    }
    static bool IsKnown(ValueType type) {
        return type == ValueType::Integer || type == ValueType::String || type == ValueType::StringList;
    }
    bool ReadName(std::wstring& name) {
        std::span<const std::byte> units;
        if (!ReadBytes(units, 2)) return false;
        name.reserve(units.size() / 2);
        for (size_t at = 0; at < units.size(); at += 2)
            name += static_cast<wchar_t>(std::to_integer<uint32_t>(units[at]) | std::to_integer<uint32_t>(units[at + 1])
                                                                                    << 8);
        return name.find(L'\0') == std::wstring::npos;
    }
    // A length and as many items of this size.
    bool ReadBytes(std::span<const std::byte>& bytes, size_t itemSize) {
        constexpr uint32_t longest = 28;  // bits before the last seven: sizes of values have 32
        uint64_t length = 0;
        for (uint32_t shift = 0;; shift += lengthBits) {
            if (rest_.empty() || shift > longest) return false;
            const std::byte part = rest_.front();
            rest_ = rest_.subspan(1);
            length |= std::to_integer<uint64_t>(part & ~moreLength) << shift;
            if ((part & moreLength) == std::byte{}) break;
        }
        if (length * itemSize > rest_.size()) return false;
        bytes = rest_.first(static_cast<size_t>(length) * itemSize);
        rest_ = rest_.subspan(bytes.size());
        return true;
    }

    std::span<const std::byte> rest_;
    bool inKey_ = false;
};

}  // namespace

Bytes PlannedChanges(const RegistryStore& store, const std::function<void(RegistryStore&)>& action) {
    NotingRegistry registry;
    UnlimitedMemory memory;
    {
        RegistryStore planned = store.On(registry, memory);
        action(planned);
    }
    return registry.Take();
}

Bytes DeletionOf(const std::wstring& path) {
    ChangeWriter writer;
    writer.DeleteTree(path);
    return writer.Take();
}

std::optional<std::vector<RedoChange>> DecodeChanges(std::span<const std::byte> bytes) {
    std::vector<RedoChange> changes;
    for (ChangeReader reader(bytes); !reader.AtEnd();) {
        std::optional<RedoChange> change = reader.Next();
        if (!change) return std::nullopt;
        changes.push_back(std::move(*change));
    }
    return changes;
}

}  // namespace config
