#include "certs/NameParts.h"

#include <algorithm>

#include "certs/FieldTable.h"
#include "text/Upper.h"

namespace certs {
namespace {

bool BeginsWithKey(std::wstring_view upperText) {
    return std::any_of(Fields().begin(), Fields().end(),
                       [upperText](const NameField& field) { return upperText.starts_with(field.Key); });
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
                       [text](const NameField& field) { return BeginsWithAssignment(text, field.Key); });
}

}  // namespace

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
