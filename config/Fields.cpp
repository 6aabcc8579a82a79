#include "config/Fields.h"

#include "text/Numbers.h"

namespace config {
namespace {

// A stored count can be far beyond the values that are there. When so many in a row are missing, the list has
// ended: reading on would take time and memory for nothing but empty entries.
constexpr size_t longestGap = 256;

}  // namespace

void FieldReader::Masks(const wchar_t* countName, const wchar_t* prefix, Rule& rule) {
    const int32_t count = ReadCount(countName);
    if (count == 0) {
        Text(L"Mask", rule.Mask);
        rule.Masks.emplace_back(rule.Mask);
    } else {
        ReadNumbered(prefix, count, rule.Masks);
    }
}

void FieldReader::Count(const wchar_t* name, const std::vector<std::wstring>& /*target*/) {
    count_ = ReadCount(name);
}

void FieldReader::Values(const wchar_t* prefix, std::vector<std::wstring>& target) {
    ReadNumbered(prefix, count_, target);
}

int32_t FieldReader::ReadCount(const wchar_t* name) {
    int32_t count = 0;
    store_.ReadInteger(name, count, context_, 0);
    return count;
}

void FieldReader::ReadNumbered(const wchar_t* prefix, int32_t count, std::vector<std::wstring>& target) {
    size_t gap = 0;  // missing values since the last one that was there
    for (int32_t number = 0; number < count; ++number) {
        std::wstring entry;
        const ReadOutcome outcome = store_.ReadString(prefix + text::Decimal(number), entry, context_);
        gap = outcome == ReadOutcome::Value ? 0 : gap + 1;
        target.push_back(std::move(entry));
        if (gap > longestGap) {
            target.resize(target.size() - gap);
            return;
        }
    }
}

void FieldWriter::Masks(const wchar_t* countName, const wchar_t* prefix, const Rule& rule) {
    Count(countName, rule.Masks);
    Values(prefix, rule.Masks);
}

void FieldWriter::Count(const wchar_t* name, const std::vector<std::wstring>& entries) {
    Number(name, static_cast<int32_t>(entries.size()));
}

void FieldWriter::Values(const wchar_t* prefix, const std::vector<std::wstring>& entries) {
    for (size_t i = 0; i < entries.size(); ++i)
        store_.WriteString(prefix + text::Decimal(static_cast<int64_t>(i)), entries[i], context_);
}

void FieldWriter::StoresOf(const Rule& rule) {
    Stores(rule.ZCSProfile, L"PSE", L"LOCAL");
    if (rule.Operation == L"RESG") Stores(rule.ResignProfile, L"PSE2", L"LOCAL2");
}

// Several CS profiles can carry the same name: the values of the last one stay.
void FieldWriter::Stores(std::wstring_view csProfile, const wchar_t* personalName, const wchar_t* localName) {
    for (const CsProfile& profile : csProfiles_) {
        if (profile.ProfileName != csProfile) continue;
        Text(personalName, profile.Store0);
        Text(localName, profile.Store1);
    }
}

}  // namespace config
