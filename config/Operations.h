// The 24 operations that a rule can apply to a file, and what else of a rule is chosen from a fixed list: the
// names that the user sees.
#pragma once

#include <array>
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

// What ZipFile stands for, from 1; 0 is no archive.
inline constexpr std::array<std::wstring_view, 2> ArchiveKinds{L"ZIP archivation", L"GZIP archivation"};

// What InFormatDet and OutFormatDet stand for, from 0.
inline constexpr std::array<std::wstring_view, 2> SignatureFormats{L"Attached signature",
                                                                   L"Detached signature"};

}  // namespace config
