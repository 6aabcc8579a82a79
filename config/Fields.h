// Reads and writes the fields of a record, in the order of its list of fields, from and into the registry
// store's current key.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/Records.h"
#include "config/RegistryStore.h"

namespace config {

class FieldReader {
  public:
    FieldReader(RegistryStore& store, const errors::ReportContext& context) : store_(store), context_(context) {}

    // A missing value leaves what the record holds: its default.
    void Text(const wchar_t* name, std::wstring& target) { store_.ReadString(name, target, context_, target); }
    void Text(const wchar_t* name, Rule::Text& target) {
        text_ = target;
        Text(name, text_);
        target = text_;
    }
    void Number(const wchar_t* name, int32_t& target) { store_.ReadInteger(name, target, context_, target); }
    void List(const wchar_t* name, std::vector<std::wstring>& target) { store_.ReadStringList(name, target, context_); }
    void List(const wchar_t* name, std::vector<int32_t>& target) { store_.ReadIntegerList(name, target, context_); }
    void PlainList(const wchar_t* name, std::vector<std::wstring>& target) { List(name, target); }

    // The masks, or the single mask of the older format when their number is 0.
    void Masks(const wchar_t* countName, const wchar_t* prefix, Rule& rule);
    // Remembers the number for Values.
    void Count(const wchar_t* name, const std::vector<std::wstring>& target);
    // As many values "<prefix>0", "<prefix>1", ... as were counted last; a missing one gives an empty entry.
    void Values(const wchar_t* prefix, std::vector<std::wstring>& target);
    // Where the stores of a rule's CS profiles lie is written for the service alone.
    void StoresOf(const Rule& /*rule*/) {}

  private:
    int32_t ReadCount(const wchar_t* name);
    void ReadNumbered(const wchar_t* prefix, int32_t count, std::vector<std::wstring>& target);

    RegistryStore& store_;
    const errors::ReportContext context_;
    int32_t count_ = 0;
    std::wstring text_;  // kept for its room
};

class FieldWriter {
  public:
    // csProfiles: those whose stores the service finds in the rules that use them.
    FieldWriter(RegistryStore& store, const errors::ReportContext& context, std::span<const CsProfile> csProfiles = {})
        : store_(store),
          context_(context),
          csProfiles_(csProfiles) {}

    // A failed write has been reported; the others go on.
    void Text(const wchar_t* name, std::wstring_view text) { store_.WriteString(name, text, context_); }
    void Number(const wchar_t* name, int32_t number) { store_.WriteInteger(name, number, context_); }
    void List(const wchar_t* name, const std::vector<std::wstring>& texts) {
        store_.WriteTextList(name, texts, context_);
    }
    void List(const wchar_t* name, const std::vector<int32_t>& numbers) {
        store_.WriteIntegerList(name, numbers, context_);
    }
    void PlainList(const wchar_t* name, const std::vector<std::wstring>& entries) {
        store_.WritePlainList(name, entries, context_);
    }

    void Masks(const wchar_t* countName, const wchar_t* prefix, const Rule& rule);
    void Count(const wchar_t* name, const std::vector<std::wstring>& entries);
    // Each entry as "<prefix>0", "<prefix>1", ...
    void Values(const wchar_t* prefix, const std::vector<std::wstring>& entries);
    void StoresOf(const Rule& rule);

  private:
    void Stores(std::wstring_view csProfile, const wchar_t* personalName, const wchar_t* localName);

    RegistryStore& store_;
    const errors::ReportContext context_;
    const std::span<const CsProfile> csProfiles_;
};

}  // namespace config
