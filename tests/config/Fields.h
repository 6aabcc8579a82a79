// The persisted fields of a record, by the names under which the registry keeps them, so that tests can go
// through all of them: a field added to a record is in these tests without another word.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "config/Records.h"

namespace tests {

struct Field {
    std::wstring name;
    std::variant<std::wstring*, config::Rule::Text*, int32_t*, std::vector<std::wstring>*, std::vector<int32_t>*> value;
    bool isCounted = false;  // the name is that of the number of entries

    bool IsText() const {
        return std::holds_alternative<std::wstring*>(value) || std::holds_alternative<config::Rule::Text*>(value);
    }
    std::wstring Text() const {
        const auto* const plain = std::get_if<std::wstring*>(&value);
        return plain != nullptr ? **plain : std::wstring(*std::get<config::Rule::Text*>(value));
    }
    void SetText(const std::wstring& text) const {
        if (const auto* const plain = std::get_if<std::wstring*>(&value)) {
            **plain = text;
        } else {
            *std::get<config::Rule::Text*>(value) = text;
        }
    }
    bool IsNumber() const { return isCounted || std::holds_alternative<int32_t*>(value); }
    bool IsList() const { return !IsText() && !IsNumber(); }
    bool IsEmptyOrZero() const {
        return std::visit([](const auto* own) { return *own == std::remove_cvref_t<decltype(*own)>(); }, value);
    }
    // other: the same field of another record.
    void TakeFrom(const Field& other) const {
        std::visit([&other](auto* own) { *own = *std::get<decltype(own)>(other.value); }, value);
    }
};

// A visitor for the lists of fields in Records.h.
class FieldCollector {
  public:
    std::vector<Field> fields;

    void Text(const wchar_t* name, std::wstring& value) { fields.push_back({name, &value}); }
    void Text(const wchar_t* name, config::Rule::Text& value) { fields.push_back({name, &value}); }
    void Number(const wchar_t* name, int32_t& value) { fields.push_back({name, &value}); }
    void List(const wchar_t* name, std::vector<std::wstring>& value) { fields.push_back({name, &value}); }
    void List(const wchar_t* name, std::vector<int32_t>& value) { fields.push_back({name, &value}); }
    void PlainList(const wchar_t* name, std::vector<std::wstring>& value) { List(name, value); }
    void Masks(const wchar_t* name, const wchar_t* /*prefix*/, config::Rule& rule) {
        fields.push_back({name, &rule.Masks, true});
    }
    void Count(const wchar_t* name, std::vector<std::wstring>& value) { fields.push_back({name, &value, true}); }
    void StoresOf(const config::Rule& /*rule*/) {}
    void Values(const wchar_t* /*prefix*/, std::vector<std::wstring>& /*counted*/) {}
};

inline std::vector<Field> FieldsOf(config::Rule& rule) {
    FieldCollector collector;
    config::VisitRule(rule, collector);
    return collector.fields;
}
inline std::vector<Field> FieldsOf(config::ServiceProfile& profile) {
    FieldCollector collector;
    config::VisitProfile(profile, collector);
    return collector.fields;
}
inline std::vector<Field> FieldsOf(config::GlobalSettings& settings) {
    FieldCollector collector;
    config::VisitSettings(settings, collector);
    return collector.fields;
}

}  // namespace tests
