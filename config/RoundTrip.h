// What a save would write and no later start could read back. It is looked for before anything is written, so
// that nothing is lost without a word.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "config/Records.h"

namespace config {

struct Unreadable {
    enum class Reason {
        TextTooLong,    // more than LongestText
        NameTooLong,    // more than LongestKeyName
        ZeroCharacter,  // ends a text for whoever reads it, and an entry of a list
        Backslash,      // in the name of a key: makes two of one
        Empty,          // the name of a key; an entry of a list that is written as it is, which ends the list
        SharedKey,      // a name that the registry takes for an earlier one
    };

    std::wstring Profile;        // its name; empty for a setting
    std::optional<size_t> Rule;  // its position
    std::wstring Field;          // as the forms call it
    Reason Why{};
    bool operator==(const Unreadable&) const = default;
};

// In the order in which a save goes through them. Not: what loading puts right by itself, and rules without
// an operation, which a save leaves out.
std::vector<Unreadable> FindUnreadable(const Configuration& configuration);

// Names the first ten and asks whether to save anyway.
std::wstring UnreadableQuestion(std::span<const Unreadable> found);

}  // namespace config
