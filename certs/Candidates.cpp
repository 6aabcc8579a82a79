#include "certs/Candidates.h"

#include <algorithm>
#include <utility>

#include "text/Finder.h"
#include "text/Upper.h"

namespace certs {
namespace {

void AppendUpper(std::wstring_view text, std::u16string& units) {
    const size_t before = units.size();
    units.resize(before + text.size());
    std::transform(text.begin(), text.end(), units.begin() + static_cast<std::ptrdiff_t>(before),
                   [](wchar_t unit) { return static_cast<char16_t>(text::Upper(unit)); });
}

std::u16string UpperUnits(std::wstring_view text) {
    std::u16string units;
    AppendUpper(text, units);
    return units;
}

}  // namespace

void Candidates::Clear() {
    names_.Clear();
    upper_.clear();
}

std::vector<NameId> Candidates::Listed(std::wstring_view filterText) {
    PrepareFilter();  // when names have come, so that each keystroke only has to search
    if (filterText.empty()) return NotEmpty();
    const text::Finder<char16_t> finder(UpperUnits(filterText));
    std::vector<NameId> listed;
    for (const UpperNames& piece : upper_) {
        std::u16string_view rest = piece.units;
        for (size_t id = piece.first; id < piece.end; ++id) {
            const size_t length = names_[id].size();
            if (finder.IsIn(rest.substr(0, length))) listed.push_back(static_cast<NameId>(id));
            rest.remove_prefix(length);
        }
    }
    return listed;
}

void Candidates::PrepareFilter() {
    const size_t first = upper_.empty() ? 0 : upper_.back().end;
    const size_t end = names_.Size();
    if (first == end) return;
    size_t length = 0;
    for (size_t id = first; id < end; ++id) length += names_[id].size();
    UpperNames piece{first, end, {}};
    piece.units.reserve(length);
    for (size_t id = first; id < end; ++id) AppendUpper(names_[id], piece.units);
    upper_.push_back(std::move(piece));
}

std::vector<NameId> Candidates::NotEmpty() const {
    std::vector<NameId> ids;
    ids.reserve(names_.Size());
    for (size_t id = 0; id < names_.Size(); ++id)
        if (!names_[id].empty()) ids.push_back(static_cast<NameId>(id));
    return ids;
}

}  // namespace certs
