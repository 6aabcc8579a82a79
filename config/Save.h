// Writes the whole configuration into the registry and removes what was deleted in the editor.
#pragma once

#include "config/Records.h"
#include "config/RegistryStore.h"

namespace config {

// False when the save ended, after a report, before anything of a profile was written: the configuration then
// still counts as changed. A failure further on is reported and skips a part, but the configuration counts as
// saved, so that the user is not asked again on leaving. owner: the dialog that the message boxes belong to.
[[nodiscard]] bool SaveConfiguration(RegistryStore& store, const ui::Dialog* owner, const Configuration& configuration);

}  // namespace config
