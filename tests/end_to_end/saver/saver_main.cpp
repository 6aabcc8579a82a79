// brisgate_saver.exe WRITE: loads the configuration, changes it as a day's work would, saves it, and ends
// itself before that write, counted from 0.
#include <windows.h>

#include <cstdlib>

#include "config/Load.h"
#include "config/Save.h"
#include "platform/win32/Win32Machine.h"
#include "tests/config/KilledSave.h"
#include "tests/support/MachineWith.h"
#include "tests/support/RecordingScreen.h"
#include "ui/memory/MemoryScreen.h"

namespace {

using platform::memory::FaultyRegistry;
using platform::memory::RecordedCall;

int Run(size_t lastWrite) {
    platform::win32::Win32Machine parts;
    FaultyRegistry registry(parts.Registry);
    const platform::Machine machine = tests::MachineWith(parts.Machine, {.Registry = &registry});
    ui::memory::MemoryScreen nobodysScreen(machine.ScreenMetrics);
    tests::RecordingScreen screen(nobodysScreen);
    screen.ExpectOnlyReports();
    const errors::ErrorReporter reporter(machine, screen);
    config::RegistryStore store(machine, reporter);
    const auto loaded = config::LoadConfiguration(store, nullptr);
    if (!loaded) return EXIT_FAILURE;

    size_t writes = 0;
    registry.SetFault([&writes, lastWrite](size_t, const RecordedCall& call) {
        if (tests::IsWrite(call.call) && writes++ == lastWrite)
            TerminateProcess(GetCurrentProcess(), tests::SaverWasEnded);
        return platform::code::Success;
    });
    const bool saved = config::SaveConfiguration(store, nullptr, tests::AfterADaysWork(*loaded));
    return saved && screen.boxes.empty() ? static_cast<int>(tests::SaverSaved) : EXIT_FAILURE;
}

}  // namespace

int main(int count, char** arguments) {
    return count == 2 ? Run(std::strtoul(arguments[1], nullptr, 10)) : EXIT_FAILURE;
}
