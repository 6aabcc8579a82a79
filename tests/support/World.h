// One test's surroundings: a machine, a screen and a user. The same scenarios are linked with in-memory parts
// on any system and with the real ones for Windows.
#pragma once

#include <memory>
#include <string>

#include "platform/Machine.h"
#include "platform/memory/FaultyRegistry.h"
#include "platform/memory/MemoryCryptoLibrary.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/Robot.h"

namespace tests {

class World {
  public:
    // A world with empty registry trees of the service and the library.
    static std::unique_ptr<World> Make();
    virtual ~World() = default;

    virtual platform::Machine& Machine() = 0;  // its registry and library are those below
    virtual platform::memory::FaultyRegistry& Registry() = 0;
    // Missing until the test installs one, whatever there is on the machine itself.
    virtual platform::memory::MemoryCryptoLibrary& CryptoLibrary() = 0;
    virtual RecordingScreen& Screen() = 0;
    virtual Robot& User() = 0;
};

}  // namespace tests
