// Times loading and saving one profile of 5,000 rules on the real registry beside a bare loop of the same
// calls, in turn, so that a machine whose speed drifts does not favour either. Prints a table.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

#include "bench/RecordedSession.h"
#include "bench/Sample.h"
#include "bench/win32/DirectCalls.h"
#include "demo/RegistryText.h"
#include "platform/win32/Win32Machine.h"
#include "ui/memory/MemoryScreen.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t rules = 5000;
constexpr int rounds = 5;
constexpr char emptyTrees[] =
    "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles]\n\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\n";

double Milliseconds(const std::function<void()>& work) {
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Compare(const char* line, const std::function<void()>& ours, const bench::RecordedSession& session) {
    std::vector<double> times;
    std::vector<double> references;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(Milliseconds(ours));
        references.push_back(Milliseconds([&] { bench::ReplayDirectly(session); }));
        ratios.push_back(times.back() / references.back());
    }
    std::printf("| %s | %zu | %.0f ms | %.0f ms | %.3f |\n", line, session.calls.size(), Median(times),
                Median(references), Median(ratios));
}

platform::Machine Over(platform::RegistryBackend& registry, platform::win32::Win32Machine& real) {
    return {registry,          real.Files,         real.CodePage, real.SystemMessages, real.Clock,
            real.InstanceLock, real.ScreenMetrics, real.Memory,   real.CryptoLibrary};
}

}  // namespace

int main() {
    platform::win32::Win32Machine machine;
    ui::memory::MemoryScreen screen(machine.ScreenMetrics);  // there is no user: a report would throw
    const auto clear = [&machine] {
        demo::DeleteRegistryTree(machine.Registry, platform::RootKey::LocalMachine,
                                 L"SOFTWARE\\TALVERON\\morcelservice");
        demo::DeleteRegistryTree(machine.Registry, platform::RootKey::CurrentUser,
                                 L"SOFTWARE\\TALVERON\\morcel");
    };
    clear();
    demo::ApplyRegistryText(emptyTrees, machine.Registry);
    const config::Configuration sample = bench::SampleConfiguration(rules);
    bench::Save(machine.Machine, screen, sample);

    bench::RecordingRegistry saving(machine.Registry);
    bench::Save(Over(saving, machine), screen, sample);
    bench::RecordingRegistry loading(machine.Registry);
    bench::Load(Over(loading, machine), screen);

    std::printf(
        "| 1 profile, %zu rules | registry calls | program | bare loop | ratio |\n|---|---|---|---|---|\n",
        rules);
    Compare(
        "load", [&] { bench::Load(machine.Machine, screen); }, loading.Session());
    Compare(
        "save", [&] { bench::Save(machine.Machine, screen, sample); }, saving.Session());
    clear();
    return 0;
}
