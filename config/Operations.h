// The 24 operations that a rule can apply to a file: their codes and the names that the user sees.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace config {

struct Operation {
    std::wstring_view code;  // as stored in a rule; compared exactly
    std::wstring_view displayName;
};

// In the order in which the rule editor offers them.
std::span<const Operation> Operations();

// The index of the code in Operations; nothing for an unknown code.
std::optional<size_t> OperationIndex(std::wstring_view code);

}  // namespace config
