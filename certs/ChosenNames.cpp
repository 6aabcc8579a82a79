#include "certs/ChosenNames.h"

#include "text/Format.h"

namespace certs {

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
