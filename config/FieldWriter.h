// Writes the fields of a record, in the order of its list of fields, into the registry store's current key.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "config/Records.h"
#include "config/RegistryStore.h"
#include "text/Numbers.h"

namespace config {

class FieldWriter {
  public:
    FieldWriter(RegistryStore& store, const ui::Dialog* owner) : store_(store), context_{.owner = owner} {}

    // A failed write has been reported; the others go on.
    void Text(const wchar_t* name, const std::wstring& text) { store_.WriteString(name, text, context_); }
    void Number(const wchar_t* name, int32_t number) { store_.WriteInteger(name, number, context_); }
    void List(const wchar_t* name, const std::vector<std::wstring>& texts) {
        store_.WriteTextList(name, texts, context_.owner);
    }
    void List(const wchar_t* name, const std::vector<int32_t>& numbers) {
        store_.WriteIntegerList(name, numbers, context_.owner);
    }
    void PlainList(const wchar_t* name, const std::vector<std::wstring>& entries) {
        store_.WritePlainList(name, entries, context_.owner);
    }

    void Masks(const wchar_t* countName, const wchar_t* prefix, const Rule& rule) {
        Numbered(countName, prefix, rule.Masks);
    }
    void CertificateCount(const wchar_t* name, const std::vector<CertificateRef>& certificates) {
        Count(name, certificates);
    }
    void Certificates(const wchar_t* prefix, const std::vector<CertificateRef>& certificates) {
        Values(prefix, certificates);
    }
    // The number of entries, then each as "<prefix>0", "<prefix>1", ...
    void Numbered(const wchar_t* countName, const wchar_t* prefix, const std::vector<std::wstring>& entries) {
        Count(countName, entries);
        Values(prefix, entries);
    }

  private:
    void Count(const wchar_t* name, const std::vector<std::wstring>& entries) {
        Number(name, static_cast<int32_t>(entries.size()));
    }
    void Values(const wchar_t* prefix, const std::vector<std::wstring>& entries) {
        for (size_t i = 0; i < entries.size(); ++i)
            store_.WriteString(prefix + text::Decimal(static_cast<int64_t>(i)), entries[i], context_);
    }

    RegistryStore& store_;
    const errors::ReportContext context_;
};

}  // namespace config
