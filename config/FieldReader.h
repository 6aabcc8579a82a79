// Reads the fields of a record, in the order of its list of fields, from the registry store's current key.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "config/Records.h"
#include "config/RegistryStore.h"

namespace config {

class FieldReader {
  public:
    FieldReader(RegistryStore& store, const ui::Dialog* owner) : store_(store), context_{.owner = owner} {}

    // A missing value leaves what the record holds: its default.
    void Text(const wchar_t* name, std::wstring& target) {
        store_.ReadString(name, target, context_, target);
    }
    void Number(const wchar_t* name, int32_t& target) { store_.ReadInteger(name, target, context_, target); }
    void List(const wchar_t* name, std::vector<std::wstring>& target) {
        store_.ReadStringList(name, target, context_.owner);
    }
    void List(const wchar_t* name, std::vector<int32_t>& target) {
        store_.ReadIntegerList(name, target, context_.owner);
    }
    void PlainList(const wchar_t* name, std::vector<std::wstring>& target) { List(name, target); }

    // The masks, or the single mask of the older format when their number is 0.
    void Masks(const wchar_t* countName, const wchar_t* prefix, Rule& rule);
    // Remembers the number for Certificates, whose values come behind the other fields.
    void CertificateCount(const wchar_t* name, std::vector<CertificateRef>& certificates);
    void Certificates(const wchar_t* prefix, std::vector<CertificateRef>& certificates);

    // As many values "<prefix>0", "<prefix>1", ... as the number stored under the count's name; a missing one
    // gives an empty entry. A count of zero or less gives none.
    void Numbered(const wchar_t* countName, const wchar_t* prefix, std::vector<std::wstring>& target);

  private:
    int32_t ReadCount(const wchar_t* name);
    void ReadNumbered(const wchar_t* prefix, int32_t count, std::vector<std::wstring>& target);

    RegistryStore& store_;
    const errors::ReportContext context_;
    int32_t certificateCount_ = 0;
};

}  // namespace config
