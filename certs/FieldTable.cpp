#include "certs/FieldTable.h"

#include <algorithm>

#include "text/Trim.h"
#include "text/Upper.h"

namespace certs {
namespace {

constexpr wchar_t labels[] =
    L"Common name (CN)\n"
    L"Surname (SN)\n"
    L"Given name (GN)\n"
    L"Country (C)\n"
    L"State (ST)\n"
    L"Locality (L)\n"
    L"Street (STREET)\n"
    L"Organization (O)\n"
    L"Organization unit (OU)\n"
    L"Title (T)\n"
    L"Primary State Registration Number (OGRN)\n"
    L"Primary State Registration Number of the Sole Proprietor (OGRNIP)\n"
    L"Insurance Number of Individual Ledger Account (SNILS)\n"
    L"Individual Taxpayer Number (INN)\n"
    L"Domain constrain (DC)\n"
    L"Address RFC822 (EMAIL)\n"
    L"(UNSTRUCTUREDNAME)\n"
    L"(UNSTRUCTUREDADDRESS)";

std::vector<NameField> ReadFields(std::wstring_view text) {
    std::vector<NameField> fields;
    while (!text.empty()) {
        const size_t end = std::min(text.find(L'\n'), text.size());
        const std::wstring_view label = text::Trim(text.substr(0, end), L" ");
        fields.push_back({std::wstring(label), AttributeKey(label)});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return fields;
}

bool IsOffered(const NameField& field) {
    return !field.Label.starts_with(L'(');
}

}  // namespace

const std::vector<NameField>& Fields() {
    static const std::vector<NameField> fields = ReadFields(labels);
    return fields;
}

size_t OfferedFieldCount() {
    return static_cast<size_t>(std::count_if(Fields().begin(), Fields().end(), IsOffered));
}

std::vector<std::wstring> OfferedFieldLabels() {
    std::vector<std::wstring> offered;
    for (const NameField& field : Fields())
        if (IsOffered(field)) offered.push_back(field.Label);
    return offered;
}

std::wstring AttributeKey(std::wstring_view label) {
    const size_t open = label.rfind(L'(');
    if (!label.ends_with(L')') || open == std::wstring_view::npos) return {};
    return text::Upper(label.substr(open + 1, label.size() - open - 2));
}

}  // namespace certs
