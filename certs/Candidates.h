// The owner names among which the user chooses, each once, and which of them a filter lets through.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "certs/NameRows.h"
#include "crypto/NameList.h"

namespace certs {

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
    // Names that came together, in upper case and one behind the other: what a filter searches. Two bytes are
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

}  // namespace certs
