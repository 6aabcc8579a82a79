// What the editors remember from one opening to the next, as long as the program runs.
#pragma once

#include <cstddef>
#include <optional>

namespace editors {

struct EditorMemory {
    // The CS profile, by its index in the service profile, that the rule editor last took to be selected.
    // Kept: opening the editor for a new rule leaves it as the rule before left it.
    std::optional<size_t> RememberedCsProfile = 0;

    // The CS profile, by its index in the service profile, whose settings the profile editor shows.
    std::optional<size_t> ShownCsProfile = 0;
};

}  // namespace editors
