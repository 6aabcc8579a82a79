// The owner names in the certificate picker: those among which the user chooses, and the chosen ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "certs/NameRows.h"
#include "config/Records.h"
#include "crypto/NameList.h"

namespace certs {

// Each name once, and which of them a filter lets through.
class Candidates {
  public:
    const crypto::NameList& Names() const { return names_; }
    // An equal name that is already there stays the only one.
    void Add(std::wstring_view name) { names_.Add(name); }
    void Clear();

    // The names to be shown, in the order in which they came: those that are not empty and hold the filter
    // text, whatever the case.
    std::vector<NameId> Listed(std::wstring_view filterText);

  private:
    // Names that came together, in upper case and one after the other: what a filter searches. Two bytes are
    // enough for a unit on every system.
    struct UpperNames {
        size_t first;
        size_t end;
        std::u16string units;
    };
    void PrepareFilter();
    std::vector<NameId> NotEmpty() const;

    crypto::NameList names_;
    std::vector<UpperNames> upper_;
};

// The names that the user has chosen.
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

    // Removes the signers of every list but the edited one. Returns what is reported of each removal, one
    // after the other; empty when there was none.
    std::wstring ExcludeSignersOf(const std::vector<config::SignerListEntry>& lists, const std::wstring& editedList);

  private:
    NameId IdOf(std::wstring_view name);
    void DropRemoved();

    crypto::NameList texts_;
    std::vector<NameId> chosen_;
    std::vector<uint32_t> timesChosen_;  // of every text
};

}  // namespace certs
