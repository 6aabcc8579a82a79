// The owners that the user has chosen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "certs/NameRows.h"
#include "config/Records.h"
#include "crypto/NameList.h"

namespace certs {

class ChosenNames {
  public:
    // Takes the names over as they are, equal ones included.
    explicit ChosenNames(const std::vector<config::CertificateRef>& names);

    // Every name that is or was chosen, once.
    const crypto::NameList& Names() const { return texts_; }
    // The chosen ones that are not empty, in their order.
    std::vector<NameId> Listed() const;

    void Add(std::wstring_view name);                  // unless an equal one is chosen already
    void RemoveEvery(const std::vector<NameId>& ids);  // all equal names

    // Removes the signers of every list but the edited one. Returns what is told of each removal, one behind
    // the other; empty when there was none.
    std::wstring ExcludeSignersOf(const std::vector<config::SignerListEntry>& lists,
                                  const std::wstring& editedList);

  private:
    NameId IdOf(std::wstring_view name);
    void DropRemoved();

    crypto::NameList texts_;
    std::vector<NameId> chosen_;
    std::vector<uint32_t> timesChosen_;  // of every text
};

}  // namespace certs
