#include "certs/OwnerSearch.h"

#include <algorithm>

#include "certs/NameFields.h"
#include "text/Case.h"

namespace certs {

WildcardPattern::WildcardPattern(std::wstring_view sample) {
    const size_t firstAsterisk = sample.find(L'*');
    first_ = sample.substr(0, firstAsterisk);
    if (firstAsterisk == std::wstring_view::npos) return;
    hasAsterisk_ = true;
    const size_t lastAsterisk = sample.rfind(L'*');
    last_ = sample.substr(lastAsterisk + 1);
    for (size_t asterisk = firstAsterisk; asterisk < lastAsterisk;) {
        const size_t next = sample.find(L'*', asterisk + 1);
        if (next > asterisk + 1) middle_.emplace_back(sample.substr(asterisk + 1, next - asterisk - 1));
        asterisk = next;
    }
}

bool WildcardPattern::Matches(std::wstring_view value) const {
    if (!hasAsterisk_) return value == first_;
    if (!value.starts_with(first_)) return false;
    value.remove_prefix(first_.size());
    for (const text::Finder<wchar_t>& piece : middle_) {
        const size_t place = piece.FindIn(value);
        if (place == piece.NotFound) return false;
        value.remove_prefix(place + piece.Length());
    }
    return value.ends_with(last_);
}

bool IsUsablePattern(std::wstring_view sample) {
    return sample == L"*" || sample.find_first_not_of(L" *\t") != std::wstring_view::npos;
}

OwnerSearch::OwnerSearch(std::optional<size_t> field, std::wstring_view sample)
    : assignment_(field ? Fields().at(*field).key + L"=" : std::wstring()),
      sample_(text::Upper(sample)) {
    pattern_ = assignment_;
    pattern_ += sample;
}

bool OwnerSearch::IsMeant(std::wstring_view name) const {
    if (assignment_.empty()) return true;
    const std::wstring upper = text::Upper(name);
    const std::vector<std::wstring_view> parts = CutName(upper);
    return std::any_of(parts.begin(), parts.end(), [this](std::wstring_view part) {
        return part.starts_with(assignment_) && sample_.Matches(part.substr(assignment_.size()));
    });
}

}  // namespace certs
