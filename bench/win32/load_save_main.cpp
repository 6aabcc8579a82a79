// Times loading and saving one profile on the real registry beside a bare loop of the same calls, and, as
// whole processes, beside the system's own tool for copying a registry tree to a file and back. Prints lines
// for the table.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/Measuring.h"
#include "bench/RecordedSession.h"
#include "bench/Sample.h"
#include "bench/win32/DirectCalls.h"
#include "demo/RegistryText.h"
#include "platform/memory/MemoryMachine.h"
#include "platform/win32/Win32Machine.h"
#include "ui/memory/MemoryScreen.h"

namespace {

constexpr const wchar_t* serviceTree = L"HKLM\\SOFTWARE\\TALVERON\\morcelservice";
constexpr const wchar_t* treeFile = L"brisgate_bench.reg";

platform::Machine Over(platform::RegistryBackend& registry, platform::win32::Win32Machine& real) {
    return {registry,          real.Files,         real.CodePage, real.SystemMessages, real.Clock,
            real.InstanceLock, real.ScreenMetrics, real.Memory,   real.CryptoLibrary};
}

// The real machine with empty trees of the service and the library, which are gone when it ends.
class Trees {
  public:
    Trees() {
        Clear();
        bench::CreateTrees(machine.Registry);
    }
    ~Trees() { Clear(); }
    Trees(const Trees&) = delete;
    Trees& operator=(const Trees&) = delete;

    void ClearService() {
        demo::DeleteRegistryTree(machine.Registry, platform::RootKey::LocalMachine,
                                 L"SOFTWARE\\TALVERON\\morcelservice");
    }

    platform::win32::Win32Machine machine;
    ui::memory::MemoryScreen screen{machine.ScreenMetrics};  // there is no user: a report would throw

  private:
    void Clear() {
        ClearService();
        demo::DeleteRegistryTree(machine.Registry, platform::RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel");
    }
};

void RunProcess(std::wstring command) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) ==
        FALSE)
        throw std::runtime_error("a process does not start");
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD result = 1;
    GetExitCodeProcess(process.hProcess, &result);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (result != 0) throw std::runtime_error("a process failed");
}

// What the program itself takes for each call, in whole lists of calls, on a machine whose calls take this long.
void PrintOwnShare(const char* what, const std::string& size, double ownMilliseconds, size_t calls) {
    constexpr double fastCall = 0.006;  // milliseconds
    const double bare = fastCall * static_cast<double>(calls);
    bench::Pairs beside;
    beside.Add(bare + ownMilliseconds, bare);
    beside.Print(what, size.c_str(), "ms");
}

template <class Work>
double Least(Work work) {
    double least = bench::Milliseconds(work);
    for (int again = 0; again < 4; ++again) least = std::min(least, bench::Milliseconds(work));
    return least;
}

void MeasureOwnShare(Trees& trees, const std::string& size, const config::Configuration& sample,
                     const bench::RecordedSession& loading, const bench::RecordedSession& saving) {
    const double load = Least([&] {
        bench::RecalledRegistry registry(loading);
        bench::Load(Over(registry, trees.machine), trees.screen);
    });
    PrintOwnShare("load, were a call to take 6 us", size, load, loading.calls.size());
    const double save = Least([&] {
        bench::RecalledRegistry registry(saving);
        bench::Save(Over(registry, trees.machine), trees.screen, sample);
    });
    PrintOwnShare("save, were a call to take 6 us", size, save, saving.calls.size());
}

void PrintOneCall(const char* what, const std::string& size, const bench::Pairs& pairs, size_t calls) {
    const double microseconds = 1000 * pairs.MedianReference() / static_cast<double>(calls);
    std::printf("%s\t%s\tus\t%.4g\t\t\n", what, size.c_str(), microseconds);
}

// The calls are taken down on the registry in memory, which is asked the same: under Wine they would take twenty
// seconds more with 5,000 rules.
void CompareWithBareLoop(Trees& trees, size_t rules) {
    const config::Configuration sample = bench::SampleConfiguration(rules);
    bench::Save(trees.machine.Machine, trees.screen, sample);
    platform::memory::MemoryMachine inMemory;
    bench::CreateTrees(inMemory.StoredRegistry);
    bench::Save(Over(inMemory.StoredRegistry, trees.machine), trees.screen, sample);
    bench::RecordingRegistry saving(inMemory.StoredRegistry);
    bench::Save(Over(saving, trees.machine), trees.screen, sample);
    bench::RecordingRegistry loading(inMemory.StoredRegistry);
    bench::Load(Over(loading, trees.machine), trees.screen);

    bench::Pairs loads;
    bench::Pairs saves;
    bench::Pairs records;
    const bench::RecordedSession ofRecord = bench::CallsForTheRecord(saving.Session());
    for (bench::Budget budget; budget.AllowsAnother(loads.IsSettled() && saves.IsSettled());) {
        const double load = bench::Milliseconds([&] { bench::Load(trees.machine.Machine, trees.screen); });
        loads.Add(load, bench::Milliseconds([&] { bench::ReplayDirectly(loading.Session()); }));
        const double save = bench::Milliseconds([&] { bench::Save(trees.machine.Machine, trees.screen, sample); });
        saves.Add(save, bench::Milliseconds([&] { bench::ReplayDirectly(saving.Session()); }));
        const double kept = bench::Milliseconds([&] { bench::ReplayDirectly(ofRecord); });
        records.Add(bench::PlanMilliseconds(trees.machine.Machine, trees.screen, sample) + kept, save);
    }
    const std::string size = std::to_string(rules) + " rules";
    loads.Print("load, beside the same calls bare", size.c_str(), "ms");
    saves.Print("save, beside the same calls bare", size.c_str(), "ms");
    records.Print("record of a save, beside the save", size.c_str(), "ms");
    PrintOneCall("one bare call of loading", size, loads, loading.Session().calls.size());
    PrintOneCall("one bare call of saving", size, saves, saving.Session().calls.size());
    MeasureOwnShare(trees, size, sample, loading.Session(), saving.Session());
}

// The tree is there already; both save into one that is not: the system's tool only adds.
void CompareWithRegistryTool(Trees& trees, const std::wstring& self, size_t rules) {
    const std::wstring number = std::to_wstring(rules);
    bench::Pairs loads;
    bench::Pairs saves;
    // With many rules a round takes most of a minute, in which a machine's drift evens out.
    for (bench::Budget budget(1); budget.AllowsAnother(loads.IsSettled() && saves.IsSettled());) {
        const double load = bench::Milliseconds([&] { RunProcess(self + L" load"); });
        loads.Add(load, bench::Milliseconds([&] {
                      RunProcess(std::wstring(L"reg export ") + serviceTree + L" " + treeFile + L" /y");
                  }));
        trees.ClearService();
        const double import = bench::Milliseconds([&] { RunProcess(std::wstring(L"reg import ") + treeFile); });
        trees.ClearService();
        saves.Add(bench::Milliseconds([&] { RunProcess(self + L" save " + number); }), import);
    }
    std::filesystem::remove(treeFile);
    const std::string size = std::to_string(rules) + " rules";
    loads.Print("load, beside reg export", size.c_str(), "ms");
    saves.Print("save, beside reg import", size.c_str(), "ms");
}

}  // namespace

// Without arguments it measures; "load" and "save RULES" are the processes that it starts for that.
int wmain(int count, wchar_t** arguments) {
    const std::wstring task = count > 1 ? arguments[1] : L"";
    if (task.empty()) {
        for (const size_t rules : {50U, 500U, 5000U}) {
            Trees trees;
            CompareWithBareLoop(trees, rules);
            CompareWithRegistryTool(trees, L"\"" + std::wstring(arguments[0]) + L"\"", rules);
        }
        return 0;
    }
    platform::win32::Win32Machine machine;
    ui::memory::MemoryScreen screen(machine.ScreenMetrics);
    if (task == L"load") {
        bench::Load(machine.Machine, screen);
    } else {
        bench::CreateTrees(machine.Registry);
        bench::Save(machine.Machine, screen, bench::SampleConfiguration(std::stoul(arguments[2])));
    }
    return 0;
}
