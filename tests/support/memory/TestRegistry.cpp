#include "tests/support/TestRegistry.h"

#include "platform/memory/MemoryRegistry.h"

namespace tests {

std::unique_ptr<platform::RegistryBackend> MakeTestRegistry() {
    return std::make_unique<platform::memory::MemoryRegistry>();
}

}  // namespace tests
