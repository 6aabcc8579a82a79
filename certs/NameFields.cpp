#include "certs/NameFields.h"

#include <algorithm>

#include "text/Case.h"
#include "text/Trim.h"

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
    return !field.label.starts_with(L'(');
}

bool BeginsWithKey(std::wstring_view upperText) {
    return std::any_of(Fields().begin(), Fields().end(),
                       [upperText](const NameField& field) { return upperText.starts_with(field.key); });
}

bool BeginsWithAssignment(std::wstring_view text, std::wstring_view key) {
    const auto isLetter = [](wchar_t unit, wchar_t wanted) { return text::Upper(unit) == wanted; };
    return text.size() > key.size() && text[key.size()] == L'=' &&
           std::equal(key.begin(), key.end(), text.begin(),
                      [&](wchar_t wanted, wchar_t unit) { return isLetter(unit, wanted); });
}

bool BeginsWithOfferedField(std::wstring_view text) {
    const auto offeredEnd = Fields().begin() + static_cast<std::ptrdiff_t>(OfferedFieldCount());
    return std::any_of(Fields().begin(), offeredEnd,
                       [text](const NameField& field) { return BeginsWithAssignment(text, field.key); });
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
        if (IsOffered(field)) offered.push_back(field.label);
    return offered;
}

std::wstring AttributeKey(std::wstring_view label) {
    const size_t open = label.rfind(L'(');
    if (!label.ends_with(L')') || open == std::wstring_view::npos) return {};
    return text::Upper(label.substr(open + 1, label.size() - open - 2));
}

std::vector<std::wstring_view> CutName(std::wstring_view upperName) {
    std::vector<std::wstring_view> parts;
    size_t begin = 0;
    for (size_t comma = upperName.find(L','); comma != std::wstring_view::npos;
         comma = upperName.find(L',', comma + 1)) {
        if (!BeginsWithKey(upperName.substr(comma + 1))) continue;
        parts.push_back(upperName.substr(begin, comma - begin));
        begin = comma + 1;
    }
    parts.push_back(upperName.substr(begin));
    return parts;
}

std::wstring NameInLines(std::wstring_view name) {
    std::wstring lines(name);
    for (size_t comma = name.find(L','); comma != std::wstring_view::npos; comma = name.find(L',', comma + 1))
        if (BeginsWithOfferedField(name.substr(comma + 1))) lines[comma] = L'\n';
    return lines;
}

std::wstring_view SortKey(std::wstring_view name, std::wstring_view fieldKey) {
    const auto isHere = [&](size_t place) {
        const size_t end = place + fieldKey.size();
        return name.size() > end && name[end] == L'=' && name.substr(place).starts_with(fieldKey);
    };
    if (isHere(0)) return name;
    for (size_t comma = name.find(L','); comma != std::wstring_view::npos; comma = name.find(L',', comma + 1))
        if (isHere(comma + 1)) return name.substr(comma + 1);
    return {};
}

}  // namespace certs
