#include "certs/PickerNames.h"

#include <algorithm>
#include <utility>

#include "text/Case.h"
#include "text/Finder.h"
#include "text/Format.h"

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

ChosenNames::ChosenNames(const std::vector<config::CertificateRef>& names) {
    for (const config::CertificateRef& name : names) {
        chosen_.push_back(IdOf(name));
        ++timesChosen_[chosen_.back()];
    }
}

NameId ChosenNames::IdOf(std::wstring_view name) {
    timesChosen_.resize(texts_.Size() + 1);  // first: no text may ever stand without its number
    return static_cast<NameId>(texts_.RowOf(name));
}

std::vector<NameId> ChosenNames::Listed() const {
    std::vector<NameId> ids;
    for (const NameId id : chosen_)
        if (!texts_[id].empty()) ids.push_back(id);
    return ids;
}

void ChosenNames::Add(std::wstring_view name) {
    const NameId id = IdOf(name);
    if (timesChosen_[id] != 0) return;
    chosen_.push_back(id);
    timesChosen_[id] = 1;
}

void ChosenNames::RemoveEvery(const std::vector<NameId>& ids) {
    for (const NameId id : ids) timesChosen_[id] = 0;
    DropRemoved();
}

std::wstring ChosenNames::ExcludeSignersOf(const std::vector<config::SignerListEntry>& lists,
                                           const std::wstring& editedList) {
    std::wstring explanation;
    for (const config::SignerListEntry& list : lists) {
        if (list.Name == editedList) continue;
        for (const config::CertificateRef& signer : list.Signers) {
            const auto id = texts_.Find(signer);
            if (!id) continue;
            for (uint32_t& times = timesChosen_[*id]; times > 0; --times)
                explanation +=
                    text::Format(L"Signer\r\n\"%s\"\r\nis used in list\r\n\"%s\"\r\n\r\n", signer, list.Name);
        }
    }
    DropRemoved();
    return explanation;
}

void ChosenNames::DropRemoved() {
    std::erase_if(chosen_, [this](NameId id) { return timesChosen_[id] == 0; });
}

}  // namespace certs
