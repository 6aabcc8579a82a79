// A process that is saving is ended: one of ours before chosen writes, and the released program at any time.
// What that leaves in the real registry does the next start no harm, and the next save makes it whole.
#include "tests/config/KilledSave.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "config/Load.h"
#include "config/Save.h"
#include "demo/RegistryText.h"
#include "demo/RegistryTool.h"
#include "platform/memory/MemoryMachine.h"
#include "platform/win32/Win32Machine.h"
#include "tests/config/ReportsOnlyScreen.h"
#include "tests/end_to_end/Editor.h"

namespace tests {
namespace {

using config::Configuration;
using platform::memory::RecordedCall;
using platform::memory::RegistryCall;

constexpr size_t killsAtValues = 25;     // and at every other key that is created or deleted
constexpr DWORD saverPatience = 20'000;  // milliseconds

class KilledProcess : public ::testing::Test {
  protected:
    void SetUp() override {
        std::stringstream text;
        text << std::ifstream("demo/configuration.txt", std::ios::binary).rdbuf();
        demo::SeedRegistry(text.str(), machine_.Registry);
        Save(Load().value());
        before_ = Load().value();
        after_ = AfterADaysWork(before_);
    }
    void TearDown() override { demo::SeedRegistry({}, machine_.Registry); }

    std::optional<Configuration> Load() {
        screen_.reports.clear();
        config::RegistryStore store(machine_.Machine, reporter_);
        return config::LoadConfiguration(store, reporter_, nullptr);
    }
    void Save(const Configuration& configuration) {
        screen_.reports.clear();
        config::RegistryStore store(machine_.Machine, reporter_);
        EXPECT_TRUE(config::SaveConfiguration(store, reporter_, nullptr, configuration));
        EXPECT_EQ(screen_.reports, std::vector<std::wstring>{});
    }
    std::string Dump() { return demo::DumpRegistry(machine_.Registry); }

    // The kinds of all writes of a save from the one to the other, in their order.
    std::vector<RegistryCall> Writes() {
        platform::memory::MemoryMachine memory;
        demo::ApplyRegistryText(Dump(), memory.Registry);
        memory.Registry.ForgetCalls();
        const errors::ErrorReporter reporter(memory.Machine, screen_);
        config::RegistryStore store(memory.Machine, reporter);
        EXPECT_TRUE(config::SaveConfiguration(store, reporter, nullptr, after_));
        std::vector<RegistryCall> writes;
        for (const RecordedCall& call : memory.Registry.Calls())
            if (IsWrite(call.call)) writes.push_back(call.call);
        return writes;
    }

    void ExpectAStart(const Configuration& after) {
        const auto found = Load();
        if (found) {
            if (!IsFirstStart(*found)) ExpectOnTheWay(*found, before_, after);
            return;
        }
        ++refusedStarts_;
        ASSERT_EQ(screen_.reports.size(), 1U);
        EXPECT_TRUE(screen_.reports[0].ends_with(L"\\rules.\r\nError 0x2 - "));
    }

    platform::win32::Win32Machine machine_;
    ReportsOnlyScreen screen_{machine_.ScreenMetrics};
    const errors::ErrorReporter reporter_{machine_.Machine, screen_};
    Configuration before_;
    Configuration after_;
    size_t refusedStarts_ = 0;
};

// Runs the saver, which ends itself before that write; its exit code.
DWORD RunSaver(size_t write) {
    std::wstring command = L"build\\windows\\tests\\brisgate_saver.exe " + std::to_wstring(write);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        throw std::runtime_error("the saver does not start");
    EXPECT_EQ(WaitForSingleObject(process.hProcess, saverPatience), WAIT_OBJECT_0);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return exitCode;
}

TEST_F(KilledProcess, BeforeAWriteOfASave) {
    Save(after_);
    const std::string whole = Dump();
    Save(before_);
    const std::vector<RegistryCall> writes = Writes();
    const size_t step = writes.size() / killsAtValues + 1;
    size_t kills = 0;
    size_t keys = 0;
    for (size_t write = 0; write < writes.size(); ++write) {
        const bool isChosen = writes[write] == RegistryCall::Set ? write % step == 0 : ++keys % 2 == 1;
        if (!isChosen) continue;
        SCOPED_TRACE(write);
        ASSERT_EQ(RunSaver(write), SaverWasEnded);
        ++kills;
        ExpectAStart(after_);
        Save(after_);
        EXPECT_EQ(Dump(), whole);
        Save(before_);
        if (HasFailure()) break;
    }
    EXPECT_EQ(RunSaver(writes.size()), SaverSaved);
    EXPECT_EQ(Dump(), whole);
    std::printf("%zu writes, ended before %zu of them, %zu of the next starts refused\n", writes.size(),
                kills, refusedStarts_);
}

TEST_F(KilledProcess, TheReleasedProgramAtAnyTime) {
    const std::string whole = Dump();
    size_t cutShort = 0;
    for (DWORD milliseconds = 0; milliseconds < 60; milliseconds += 10) {
        SCOPED_TRACE(milliseconds);
        {
            const Editor editor;
            const HWND window = editor.MainWindow();
            ASSERT_NE(window, nullptr);
            Editor::Press(window, saveButton);
            Sleep(milliseconds);
        }
        if (Dump() != whole) ++cutShort;
        ExpectAStart(before_);
        Save(before_);
        ASSERT_EQ(Dump(), whole);
    }
    std::printf("ended 6 times, %zu times in the middle of a save\n", cutShort);
}

}  // namespace
}  // namespace tests
