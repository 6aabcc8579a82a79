// A machine of which a test replaces some parts.
#pragma once

#include "platform/Machine.h"

namespace tests {

// Null: the part stays.
struct OtherParts {
    platform::RegistryBackend* Registry = nullptr;
    platform::Files* Files = nullptr;
    platform::CodePage* CodePage = nullptr;
    platform::SystemMessages* SystemMessages = nullptr;
    platform::Clock* Clock = nullptr;
    platform::InstanceLock* InstanceLock = nullptr;
    platform::Memory* Memory = nullptr;
    platform::CryptoLibrary* CryptoLibrary = nullptr;
};

inline platform::Machine MachineWith(const platform::Machine& machine, const OtherParts& other) {
    const auto either = [](auto* part, auto& usual) -> auto& {
        return part != nullptr ? *part : usual;
    };
    return {either(other.Registry, machine.Registry),
            either(other.Files, machine.Files),
            either(other.CodePage, machine.CodePage),
            either(other.SystemMessages, machine.SystemMessages),
            either(other.Clock, machine.Clock),
            either(other.InstanceLock, machine.InstanceLock),
            machine.ScreenMetrics,
            either(other.Memory, machine.Memory),
            either(other.CryptoLibrary, machine.CryptoLibrary)};
}

}  // namespace tests
