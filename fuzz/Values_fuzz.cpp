// Any bytes under any type as a registry value. What is decoded must be what a plain statement of the rules
// gives, must come back when it is stored again, and never takes more room than there was.
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "config/RegistryLayout.h"
#include "config/RegistryStore.h"
#include "fuzz/Input.h"
#include "fuzz/Reports.h"
#include "platform/memory/MemoryMachine.h"

namespace {

using fuzz::Require;
using platform::ValueType;
using Data = std::span<const std::byte>;
using Texts = std::vector<std::wstring>;

bool IsText(ValueType type) {
    return type == ValueType::String || type == ValueType::ExpandString;
}

uint32_t UnitAt(Data data, size_t unit) {
    return std::to_integer<uint32_t>(data[2 * unit]) | std::to_integer<uint32_t>(data[2 * unit + 1]) << 8;
}

bool EndsInZeroUnits(Data data, size_t count) {
    if (data.size() % 2 != 0 || data.size() < 2 * count) return false;
    for (size_t i = 1; i <= count; ++i)
        if (UnitAt(data, data.size() / 2 - i) != 0) return false;
    return true;
}

// The units from one place to the next zero.
std::wstring TextAt(Data data, size_t unit) {
    std::wstring text;
    for (; 2 * unit < data.size() && UnitAt(data, unit) != 0; ++unit) text += static_cast<wchar_t>(UnitAt(data, unit));
    return text;
}

std::optional<std::wstring> PlainText(ValueType type, Data data) {
    if (!IsText(type)) return std::nullopt;
    if (data.empty()) return L"";
    if (!EndsInZeroUnits(data, 1)) return std::nullopt;
    return TextAt(data, 0);
}

std::optional<Texts> PlainList(ValueType type, Data data) {
    const bool accepted =
        (type == ValueType::StringList && EndsInZeroUnits(data, 2)) || (IsText(type) && EndsInZeroUnits(data, 1));
    if (!accepted) return std::nullopt;
    Texts entries;
    for (size_t unit = 0; 2 * unit < data.size(); unit += entries.back().size() + 1) {
        entries.push_back(TextAt(data, unit));
        if (!entries.back().empty()) continue;
        entries.pop_back();
        break;
    }
    return entries;
}

void CheckText(ValueType type, Data data) {
    const auto text = config::DecodeString(type, data);
    Require(text == PlainText(type, data));
    if (!text) return;
    const config::Bytes stored = config::EncodeString(*text);
    Require(stored.size() == 2 * text->size() + 2 && (data.empty() || stored.size() <= data.size()));
    Require(config::DecodeString(ValueType::String, stored) == text);
}

void CheckList(ValueType type, Data data) {
    const auto entries = config::DecodeStringList(type, data);
    Require(entries == PlainList(type, data));
    if (!entries) return;
    const size_t size = config::EncodedListSize(*entries);
    Require(size <= data.size() + 2);
    // A block without a byte to spare.
    const auto block = std::make_unique<std::byte[]>(size);
    config::EncodeStringList(*entries, {block.get(), size});
    const auto again = config::DecodeStringList(ValueType::StringList, {block.get(), size});
    Require(entries->empty() ? !again : again == entries);
}

// One value in a registry, read and written by the store in each of its ways.
class StoredValue {
  public:
    StoredValue(ValueType type, Data data) : type_(type), data_(data) {
        Require(store_.CreateMachineKey(L"Key", {}));
        platform::KeyHandle key{};
        Require(machine_.StoredRegistry.Create(platform::RootKey::LocalMachine, L"Key", key) == 0);
        Require(machine_.StoredRegistry.Set(key, name_, type, data) == 0);
        Require(machine_.StoredRegistry.Close(key) == 0);
    }

    void CheckInteger() {
        constexpr int32_t otherwise = 4711;
        int32_t number = 0;
        const auto outcome = store_.ReadInteger(name_, number, {}, otherwise);
        int32_t expected = otherwise;
        if (data_.size() == 4) expected = static_cast<int32_t>(UnitAt(data_, 0) | UnitAt(data_, 1) << 16);
        Require(number == expected && reports_.Count() == 0);
        Require((outcome == config::ReadOutcome::Value) == (data_.size() == 4));
    }

    // Texts of more than 1040 bytes are refused with a report; what was there before stays.
    void CheckText() {
        std::wstring text = L"before";
        const auto outcome = store_.ReadString(name_, text, {}, L"otherwise");
        if (data_.size() > 1040) {
            Require(outcome == config::ReadOutcome::Failure && text == L"before" && reports_.Count() == 1);
            Require(reports_.CountOf(L"Reading string value 'Value' from register.\r\nError 0xEA - ") == 1);
            reports_.Forget();
        } else {
            Require(text == PlainText(type_, data_).value_or(L"otherwise") && reports_.Count() == 0);
        }
        Require(store_.WriteString(name_, text, {}));
        std::wstring again;
        Require(store_.ReadString(name_, again, {}) == config::ReadOutcome::Value && again == text);
    }

    void CheckLists() {
        Texts texts;
        std::vector<int32_t> numbers;
        std::vector<int32_t> numbersAgain;
        Require(store_.ReadStringList(name_, texts, {}) && texts == PlainList(type_, data_).value_or(Texts()));
        Require(store_.ReadIntegerList(name_, numbers, {}) && numbers.size() == texts.size());
        Require(store_.WriteIntegerList(L"Numbers", numbers, {}));
        Require(store_.ReadIntegerList(L"Numbers", numbersAgain, {}) && numbersAgain == numbers);
        Texts textsAgain;
        Require(store_.WriteTextList(L"Texts", texts, {}));
        Require(store_.ReadStringList(L"Texts", textsAgain, {}) && textsAgain == texts);
        Require(reports_.Count() == 0);
    }

  private:
    const std::wstring name_ = L"Value";
    const ValueType type_;
    const Data data_;
    platform::memory::MemoryMachine machine_;
    fuzz::Reports reports_{machine_.ScreenMetrics};
    const errors::ErrorReporter reporter_{machine_.Machine, reports_};
    config::RegistryStore store_{machine_.Machine, reporter_};
};

}  // namespace

// The first byte tells the type; the rest are the bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::Input input({data, size});
    const auto type = static_cast<ValueType>(input.Byte());
    const Data bytes = std::as_bytes(input.Rest());
    CheckText(type, bytes);
    CheckList(type, bytes);
    StoredValue value(type, bytes);
    value.CheckInteger();
    value.CheckLists();
    value.CheckText();
    return 0;
}
