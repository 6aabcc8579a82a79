// What the registry tool does with the trees of the service, of the editor itself and of the library.
#pragma once

#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace demo {

// Deletes all three and builds them from the text (see RegistryText.h). Throws std::runtime_error.
void SeedRegistry(std::string_view utf8, platform::RegistryBackend& registry);

// The same, but only when the service's key is missing or has no subkey. Tells whether it was done.
bool SeedRegistryOnce(std::string_view utf8, platform::RegistryBackend& registry);

// All three, the service's first; a missing one is left out. Throws std::runtime_error.
std::string DumpRegistry(platform::RegistryBackend& registry);

}  // namespace demo
