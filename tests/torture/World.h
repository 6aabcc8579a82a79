// One run of the program in a machine and on a screen of its own, with everything in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "demo/StandInLibrary.h"
#include "tests/support/MachineWith.h"
#include "tests/torture/FaultyParts.h"
#include "tests/torture/Hand.h"
#include "ui/memory/MemoryScreen.h"

namespace tests::torture {

struct World {
    explicit World(std::string_view trees);
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    // From the start of the program to its end; the hand works in it by its scripts.
    void RunProgram();
    // Both trees as text.
    std::string Trees();

    platform::memory::MemoryMachine parts;
    demo::StandInLibrary standIn;
    Faults faults;
    FaultyKeys keys{parts.StoredRegistry, faults};
    FaultyFiles files{parts.Files, faults};
    FaultyMemory memory{faults};
    FaultyLibrary library{faults};
    const platform::Machine machine =
        MachineWith(parts.Machine, {.Registry = &keys, .Files = &files, .Memory = &memory, .CryptoLibrary = &library});
    ui::memory::MemoryScreen screen{parts.ScreenMetrics};
    Hand hand{screen, faults};
};

}  // namespace tests::torture
