// Reads the whole configuration from the registry, and makes a minimal one when there is none.
#pragma once

#include <optional>

#include "config/Configuration.h"
#include "config/RegistryStore.h"
#include "errors/ErrorReport.h"

namespace config {

// Nothing when a key cannot be opened, created, searched or closed: that has been reported and the program
// must end. Throws std::invalid_argument when there is neither a service profile nor a store profile to make
// the first one with. owner: the dialog that the message boxes belong to.
[[nodiscard]] std::optional<Configuration> LoadConfiguration(RegistryStore& store,
                                                             const errors::ErrorReporter& reporter,
                                                             const ui::Dialog* owner);

}  // namespace config
