#include "config/RedoRecord.h"

#include <algorithm>
#include <array>
#include <limits>

#include "config/RegistryLayout.h"
#include "text/Format.h"

namespace config {
namespace {

using platform::ValueType;

constexpr wchar_t recordValue[] = L"Unfinished save";
constexpr size_t largestValue = 1 << 20;  // bytes
constexpr uint32_t signature = 0x44455242;
constexpr uint32_t version = 1;
constexpr uint32_t noParts = 0;
constexpr errors::ReportContext silently{nullptr, errors::ReportMode::Silent};

// What a byte adds to the sum that so many further bytes follow before it is looked at again.
constexpr size_t crcStride = 8;
using CrcTables = std::array<std::array<uint32_t, 256>, crcStride>;

CrcTables MakeCrcTables() {
    constexpr uint32_t polynomial = 0xEDB88320;
    CrcTables tables{};
    for (size_t i = 0; i < tables[0].size(); ++i) {
        auto rest = static_cast<uint32_t>(i);
        for (int bit = 0; bit < 8; ++bit) rest = rest >> 1 ^ ((rest & 1) != 0 ? polynomial : 0);
        tables[0][i] = rest;
    }
    for (size_t later = 1; later < crcStride; ++later)
        for (size_t i = 0; i < tables[later].size(); ++i) {
            const uint32_t before = tables[later - 1][i];
            tables[later][i] = tables[0][before & 0xFF] ^ before >> 8;
        }
    return tables;
}

// Records have megabytes: eight bytes at a time take a fifth of what one at a time takes.
uint32_t AddToCrc(uint32_t crc, std::span<const std::byte> bytes) {
    static const CrcTables tables = MakeCrcTables();
    const auto byte = [&bytes](size_t at) { return std::to_integer<uint32_t>(bytes[at]); };
    for (; bytes.size() >= crcStride; bytes = bytes.subspan(crcStride)) {
        crc ^= byte(0) | byte(1) << 8 | byte(2) << 16 | byte(3) << 24;
        crc = tables[7][crc & 0xFF] ^ tables[6][crc >> 8 & 0xFF] ^ tables[5][crc >> 16 & 0xFF] ^ tables[4][crc >> 24] ^
              tables[3][byte(4)] ^ tables[2][byte(5)] ^ tables[1][byte(6)] ^ tables[0][byte(7)];
    }
    for (size_t at = 0; at < bytes.size(); ++at) crc = tables[0][(crc ^ byte(at)) & 0xFF] ^ crc >> 8;
    return crc;
}

struct Head {
    uint32_t Signature = signature;
    uint32_t Version = version;
    uint32_t Set = noParts;
    uint32_t Size = 0;
    uint32_t Crc = 0;
};
constexpr size_t headSize = 20;
constexpr size_t crcOffset = 16;
constexpr size_t signatureSize = 4;

std::array<std::byte, headSize> Encode(const Head& head) {
    std::array<std::byte, headSize> bytes;
    auto* to = bytes.data();
    for (const uint32_t number : {head.Signature, head.Version, head.Set, head.Size, head.Crc})
        for (uint32_t shift = 0; shift < 32; shift += 8) *to++ = static_cast<std::byte>(number >> shift & 0xFF);
    return bytes;
}

std::optional<Head> DecodeHead(std::span<const std::byte> bytes) {
    if (bytes.size() < headSize) return std::nullopt;
    const auto number = [bytes](size_t at) {
        uint32_t value = 0;
        for (size_t i = 0; i < 4; ++i) value |= std::to_integer<uint32_t>(bytes[at + i]) << (8 * i);
        return value;
    };
    return Head{number(0), number(4), number(8), number(12), number(16)};
}

uint32_t CrcOf(const Head& head, std::span<const std::byte> changes) {
    const auto bytes = Encode(head);
    const auto checked = std::span(bytes).subspan(signatureSize, crcOffset - signatureSize);
    return ~AddToCrc(AddToCrc(~uint32_t{0}, checked), changes);
}

std::wstring PartName(uint32_t set, size_t number) {
    return text::Format(L"Unfinished save %d-%d", set, number);
}

std::wstring EditorPath() {
    return std::wstring(EditorParent) + L"\\" + EditorKey;
}

std::wstring PathOf(const RedoChange& change) {
    return change.Name.empty() ? ServiceRoot : std::wstring(ServiceRoot) + L"\\" + change.Name;
}

}  // namespace

std::optional<RedoRecord::State> RedoRecord::Find(errors::ReportMode mode) {
    const std::optional<State> state = Read({context_.owner, mode});
    if (state != State::Whole) found_.clear();
    return state;
}

std::optional<RedoRecord::State> RedoRecord::Read(const errors::ReportContext& context) {
    RegistryStore own = store_.Another();
    const KeyOutcome opened = own.OpenIfThere(ServiceHive, EditorPath(), context);
    if (opened == KeyOutcome::Missing) return State::Missing;
    if (opened == KeyOutcome::Failure) return std::nullopt;
    Bytes value;
    const ReadOutcome outcome = own.ReadBinary(recordValue, value, context);
    if (outcome == ReadOutcome::Failure) return std::nullopt;
    if (outcome == ReadOutcome::Default) return State::Missing;

    const std::optional<Head> head = DecodeHead(value);
    if (!head || head->Signature != signature || head->Version != version) return State::Unreadable;
    found_.assign(value.begin() + headSize, value.end());
    if (head->Set != noParts && !ReadParts(own, head->Set, head->Size, context)) return std::nullopt;
    const bool isWhole = found_.size() == head->Size && CrcOf(*head, found_) == head->Crc;
    return isWhole && DecodeChanges(found_) ? State::Whole : State::Unreadable;
}

// What is missing shows in the size of what was found.
bool RedoRecord::ReadParts(RegistryStore& own, uint32_t set, size_t size, const errors::ReportContext& context) {
    found_.clear();
    for (size_t number = 1; found_.size() < size; ++number) {
        Bytes part;
        const ReadOutcome outcome = own.ReadBinary(PartName(set, number), part, context);
        if (outcome == ReadOutcome::Failure) return false;
        if (part.empty()) break;
        found_.insert(found_.end(), part.begin(), part.end());
    }
    return true;
}

bool RedoRecord::Keep(const Bytes& changes) {
    // An earlier record would some day be made over what this save is going to write.
    return Write(changes) || IsMissing() || Remove();
}

bool RedoRecord::KeepBefore(Bytes changes) {
    changes.insert(changes.end(), found_.begin(), found_.end());
    return Keep(changes);
}

void RedoRecord::SaveHasEnded() {
    if (hasKey_) Remove();
}

bool RedoRecord::Write(const Bytes& changes) {
    RegistryStore own = store_.Another();
    hasKey_ = own.CreateMachineKey(EditorPath(), silently);
    if (!hasKey_ || changes.size() > std::numeric_limits<uint32_t>::max()) return false;
    Head head{.Size = static_cast<uint32_t>(changes.size())};
    const bool fits = headSize + changes.size() <= largestValue;
    if (!fits) {
        // The set that an earlier record uses is left alone.
        Bytes earlier;
        own.ReadBinary(recordValue, earlier, silently);
        const std::optional<Head> earlierHead = DecodeHead(earlier);
        head.Set = earlierHead && earlierHead->Set == 1 ? 2 : 1;
        if (!WriteParts(own, head.Set, changes)) return false;
    }
    head.Crc = CrcOf(head, changes);
    const auto headBytes = Encode(head);
    Bytes value(headBytes.begin(), headBytes.end());
    if (fits) value.insert(value.end(), changes.begin(), changes.end());
    if (!own.WriteValue(recordValue, ValueType::Binary, value, silently)) return false;
    // Should it not reach the disk at once, it still holds when only the process ends.
    own.Flush();
    return true;
}

bool RedoRecord::WriteParts(RegistryStore& own, uint32_t set, std::span<const std::byte> changes) const {
    for (size_t number = 1; !changes.empty(); ++number) {
        const auto part = changes.first(std::min(changes.size(), largestValue));
        if (!own.WriteValue(PartName(set, number), ValueType::Binary, part, silently)) return false;
        changes = changes.subspan(part.size());
    }
    return true;
}

bool RedoRecord::IsMissing() const {
    RegistryStore own = store_.Another();
    const KeyOutcome opened = own.OpenIfThere(ServiceHive, EditorPath(), silently);
    Bytes value;
    return opened == KeyOutcome::Missing ||
           (opened == KeyOutcome::Opened && own.ReadBinary(recordValue, value, silently) == ReadOutcome::Default);
}

bool RedoRecord::Complete() {
    RegistryStore own = store_.Another();
    const auto changes = DecodeChanges(found_).value_or(std::vector<RedoChange>());
    for (const RedoChange& change : changes)
        if (!Make(own, change)) return false;
    return Remove();
}

bool RedoRecord::Make(RegistryStore& own, const RedoChange& change) {
    if (change.What == RedoChange::Kind::SetValue)
        return own.WriteValue(change.Name, change.Type, change.Data, context_);
    if (change.What == RedoChange::Kind::CreateKey) return own.CreateMachineKey(PathOf(change), context_);
    return own.CreateMachineKey(ServiceRoot, context_) && own.DeleteKeyTreeIfThere(change.Name, context_);
}

bool RedoRecord::Remove() {
    RegistryStore own = store_.Another();
    return own.DeleteKeyTreeIfThere(ServiceHive, EditorParent, EditorKey, context_);
}

}  // namespace config
