// What the user asks owner names for: a field, or the whole name, and a sample with asterisks.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/Finder.h"

namespace certs {

// Values that a sample describes: an asterisk stands for any characters, also for none. What lies between
// two asterisks is looked for from the left, each piece after the one before it.
class WildcardPattern {
  public:
    explicit WildcardPattern(std::wstring_view sample);
    bool Matches(std::wstring_view value) const;

  private:
    std::wstring first_;  // up to the first asterisk
    std::wstring last_;   // after the last one
    bool hasAsterisk_ = false;
    std::vector<text::Finder<wchar_t>> middle_;
};

// A sample has to say something: be "*", or hold more than blanks, tabs and asterisks.
bool IsUsablePattern(std::wstring_view sample);

class OwnerSearch {
  public:
    // field: an index of Fields(); none searches by the entire name.
    OwnerSearch(std::optional<size_t> field, std::wstring_view sample);

    // As the library is asked.
    const std::wstring& Pattern() const { return pattern_; }
    // Whether a name that was found for the pattern is one of those meant: the library's own comparison may
    // find more. Case does not matter.
    bool IsMeant(std::wstring_view name) const;

  private:
    std::wstring pattern_;
    std::wstring assignment_;  // "CN="; empty: every name is meant
    WildcardPattern sample_;
};

}  // namespace certs
