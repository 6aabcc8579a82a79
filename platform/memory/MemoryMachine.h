// A whole machine held in memory, for tests and trials without Windows.
#pragma once

#include "platform/Machine.h"
#include "platform/memory/FaultyRegistry.h"
#include "platform/memory/MemoryCodePage.h"
#include "platform/memory/MemoryCryptoLibrary.h"
#include "platform/memory/MemoryFiles.h"
#include "platform/memory/MemoryParts.h"
#include "platform/memory/MemoryRegistry.h"
#include "platform/memory/MemorySystemMessages.h"

namespace platform::memory {

// The parts are open to tests, which set them up and look into them. The program is given Machine, and with
// it the recording registry.
struct MemoryMachine {
    MemoryMachine() = default;
    MemoryMachine(const MemoryMachine&) = delete;
    MemoryMachine& operator=(const MemoryMachine&) = delete;

    MemoryRegistry StoredRegistry;
    FaultyRegistry Registry{StoredRegistry};
    MemoryFiles Files;
    MemoryCodePage CodePage;
    MemorySystemMessages SystemMessages;
    MemoryClock Clock;
    MemoryInstanceLock InstanceLock;
    MemoryScreenMetrics ScreenMetrics;
    MemoryMemory Memory;
    MemoryCryptoLibrary CryptoLibrary;

    platform::Machine Machine{Registry,     Files,         CodePage, SystemMessages, Clock,
                              InstanceLock, ScreenMetrics, Memory,   CryptoLibrary};
};

}  // namespace platform::memory
