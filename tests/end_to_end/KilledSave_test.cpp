// A process that is saving is ended: one of ours before chosen writes, and the released program at any time.
// The next start completes what that leaves in the real registry, and the next save makes it whole in any
// case.
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
#include "config/RedoRecord.h"
#include "config/Save.h"
#include "demo/RegistryText.h"
#include "demo/RegistryTool.h"
#include "platform/memory/MemoryMachine.h"
#include "platform/win32/Win32Machine.h"
#include "tests/end_to_end/Editor.h"
#include "tests/support/RecordingScreen.h"
#include "ui/memory/MemoryScreen.h"

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
        screen_.ExpectOnlyReports();
        std::stringstream text;
        text << std::ifstream("demo/configuration.txt", std::ios::binary).rdbuf();
        demo::SeedRegistry(text.str(), machine_.Registry);
        Save(Load().value());
        before_ = Load().value();
        after_ = AfterADaysWork(before_);
    }
    void TearDown() override { demo::SeedRegistry({}, machine_.Registry); }

    std::optional<Configuration> Load() {
        screen_.boxes.clear();
        config::RegistryStore store(machine_.Machine, reporter_);
        return config::LoadConfiguration(store, nullptr);
    }
    void Save(const Configuration& configuration) {
        screen_.boxes.clear();
        config::RegistryStore store(machine_.Machine, reporter_);
        EXPECT_TRUE(config::SaveConfiguration(store, nullptr, configuration));
        EXPECT_EQ(screen_.Reports(), std::vector<std::wstring>{});
    }
    std::string Dump() { return demo::DumpRegistry(machine_.Registry); }

    // The kinds of all writes of a save from the one to the other, in their order.
    std::vector<RegistryCall> Writes() {
        platform::memory::MemoryMachine memory;
        demo::ApplyRegistryText(Dump(), memory.Registry);
        memory.Registry.ForgetCalls();
        const errors::ErrorReporter reporter(memory.Machine, screen_);
        config::RegistryStore store(memory.Machine, reporter);
        EXPECT_TRUE(config::SaveConfiguration(store, nullptr, after_));
        std::vector<RegistryCall> writes;
        for (const RecordedCall& call : memory.Registry.Calls())
            if (IsWrite(call.call)) writes.push_back(call.call);
        return writes;
    }

    std::string Service() {
        return demo::DumpRegistryKey(machine_.Registry, platform::RootKey::LocalMachine, serviceRoot);
    }
    void CompleteInTheReleasedProgram() {
        config::RegistryStore store(machine_.Machine, reporter_);
        const bool isAsked = config::RedoRecord(store, nullptr).Find() == config::RedoRecord::State::Whole;
        const Editor editor;
        if (isAsked) {
            const HWND box = editor.WaitForBox();
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(Editor::BoxText(box), L"The last save was not completed.\r\nComplete it now?");
            Editor::Press(box, IDYES);
            ++completed_;
        }
        EXPECT_NE(editor.MainWindow(), nullptr);
    }
    void ExpectUnchangedButForTheWindow() {
        std::optional<Configuration> found = Load();
        ASSERT_TRUE(found);
        found->Settings.WindowTop = before_.Settings.WindowTop;
        found->Settings.WindowBottom = before_.Settings.WindowBottom;
        found->Settings.WindowLeft = before_.Settings.WindowLeft;
        found->Settings.WindowRight = before_.Settings.WindowRight;
        EXPECT_EQ(found, before_);
    }
    // What was ended is completed, or had not begun; either way the next start shows a configuration.
    void ExpectAllOrNothing(const std::string& before, const std::string& after) {
        screen_.boxes.clear();
        config::RegistryStore store(machine_.Machine, reporter_);
        config::RedoRecord record(store, nullptr);
        if (record.Find() == config::RedoRecord::State::Whole) {
            ++completed_;
            EXPECT_TRUE(record.Complete());
            EXPECT_EQ(Service(), after);
        } else {
            EXPECT_TRUE(Service() == before || Service() == after);
        }
        EXPECT_TRUE(Load());
        EXPECT_EQ(screen_.Reports(), std::vector<std::wstring>{});
    }

    platform::win32::Win32Machine machine_;
    ui::memory::MemoryScreen nobodysScreen_{machine_.ScreenMetrics};
    RecordingScreen screen_{nobodysScreen_};
    const errors::ErrorReporter reporter_{machine_.Machine, screen_};
    Configuration before_;
    Configuration after_;
    size_t completed_ = 0;
};

// Runs the saver, which ends itself before that write; its exit code.
DWORD RunSaver(size_t write) {
    std::wstring command = L"build\\windows\\tests\\brisgate_saver.exe " + std::to_wstring(write);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
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
    const std::string after = Service();
    Save(before_);
    const std::string before = Service();
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
        ExpectAllOrNothing(before, after);
        Save(after_);
        EXPECT_EQ(Dump(), whole);
        Save(before_);
        if (HasFailure()) break;
    }
    EXPECT_EQ(RunSaver(writes.size()), SaverSaved);
    EXPECT_EQ(Dump(), whole);
    std::printf("%zu writes, ended before %zu of them, %zu saves completed\n", writes.size(), kills, completed_);
}

// The released program is ended, and started again: it asks, and completes what is to be completed.
TEST_F(KilledProcess, TheReleasedProgramAtAnyTime) {
    const std::string whole = Service();
    size_t cutShort = 0;
    for (DWORD milliseconds = 0; milliseconds < 60; milliseconds += 10) {
        SCOPED_TRACE(milliseconds);
        {
            const Editor editor;
            const HWND window = editor.MainWindow();
            ASSERT_NE(window, nullptr);
            Editor::Press(window, id::Save);
            Sleep(milliseconds);
        }
        if (Service() != whole) ++cutShort;
        CompleteInTheReleasedProgram();
        ExpectUnchangedButForTheWindow();
        Save(before_);
    }
    std::printf("ended 6 times, %zu times in the middle of a save, %zu saves completed\n", cutShort, completed_);
}

// The tree of the service has nothing left of a profile's rules, only the record knows them.
TEST_F(KilledProcess, TheReleasedProgramCompletesASave) {
    Save(after_);
    const std::string after = Service();
    Save(before_);
    ASSERT_EQ(RunSaver(Writes().size() / 2), SaverWasEnded);
    ASSERT_NE(Service(), after);
    CompleteInTheReleasedProgram();
    EXPECT_EQ(Service(), after);
    EXPECT_EQ(completed_, 1U);
}

}  // namespace
}  // namespace tests
