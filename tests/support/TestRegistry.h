// The registry that the tests of the registry itself run against: in memory, or the system's own.
#pragma once

#include <memory>

#include "platform/Registry.h"

namespace tests {

// Both roots are empty. With the system's registry, both are led to a place for tests as long as the object
// lives, so that the configuration of the machine stays untouched and no particular rights are needed.
std::unique_ptr<platform::RegistryBackend> MakeTestRegistry();

}  // namespace tests
