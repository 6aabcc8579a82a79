// Loading and saving on the in-memory registry, beside the same registry calls made again with nothing around
// them; and on one that only recalls its answers, which leaves the program's own share.
#include <benchmark/benchmark.h>

#include "bench/Counted.h"
#include "bench/RecordedSession.h"
#include "bench/Sample.h"
#include "platform/memory/MemoryMachine.h"
#include "ui/memory/MemoryScreen.h"

namespace {

using platform::memory::MemoryMachine;

// A machine whose registry holds a saved sample.
struct Setting {
    explicit Setting(size_t rules) : sample(bench::SampleConfiguration(rules)) {
        bench::CreateTrees(machine.StoredRegistry);
        bench::Save(Over(machine.StoredRegistry), screen, sample);
    }

    platform::Machine Over(platform::RegistryBackend& registry) {
        platform::Machine& real = machine.Machine;
        return {registry,          real.Files,         real.CodePage, real.SystemMessages, real.Clock,
                real.InstanceLock, real.ScreenMetrics, real.Memory,   real.CryptoLibrary};
    }

    MemoryMachine machine;
    ui::memory::MemoryScreen screen{machine.ScreenMetrics};  // there is no user: a report would throw
    config::Configuration sample;
};

void LoadRules(benchmark::State& state) {
    Setting setting(static_cast<size_t>(state.range(0)));
    const platform::Machine machine = setting.Over(setting.machine.StoredRegistry);
    for (auto _ : state) {
        const bench::Counted counted;
        benchmark::DoNotOptimize(bench::Load(machine, setting.screen));
    }
    state.SetComplexityN(state.range(0));
}

void LoadOwnShare(benchmark::State& state) {
    Setting setting(static_cast<size_t>(state.range(0)));
    bench::RecordingRegistry recorder(setting.machine.StoredRegistry);
    bench::Load(setting.Over(recorder), setting.screen);
    for (auto _ : state) {
        const bench::Counted counted;
        bench::RecalledRegistry registry(recorder.Session());
        benchmark::DoNotOptimize(bench::Load(setting.Over(registry), setting.screen));
    }
    state.SetComplexityN(state.range(0));
}

void LoadCallsAlone(benchmark::State& state) {
    Setting setting(static_cast<size_t>(state.range(0)));
    bench::RecordingRegistry recorder(setting.machine.StoredRegistry);
    bench::Load(setting.Over(recorder), setting.screen);
    for (auto _ : state) {
        const bench::Counted counted;
        bench::Replay(recorder.Session(), setting.machine.StoredRegistry);
    }
    state.SetComplexityN(state.range(0));
}

void SaveRules(benchmark::State& state) {
    Setting setting(static_cast<size_t>(state.range(0)));
    const platform::Machine machine = setting.Over(setting.machine.StoredRegistry);
    for (auto _ : state) {
        const bench::Counted counted;
        bench::Save(machine, setting.screen, setting.sample);
    }
    state.SetComplexityN(state.range(0));
}

void SaveOwnShare(benchmark::State& state) {
    Setting setting(static_cast<size_t>(state.range(0)));
    bench::RecordingRegistry recorder(setting.machine.StoredRegistry);
    bench::Save(setting.Over(recorder), setting.screen, setting.sample);
    for (auto _ : state) {
        const bench::Counted counted;
        bench::RecalledRegistry registry(recorder.Session());
        bench::Save(setting.Over(registry), setting.screen, setting.sample);
    }
    state.SetComplexityN(state.range(0));
}

void SaveCallsAlone(benchmark::State& state) {
    Setting setting(static_cast<size_t>(state.range(0)));
    bench::RecordingRegistry recorder(setting.machine.StoredRegistry);
    bench::Save(setting.Over(recorder), setting.screen, setting.sample);
    for (auto _ : state) {
        const bench::Counted counted;
        bench::Replay(recorder.Session(), setting.machine.StoredRegistry);
    }
    state.SetComplexityN(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->Arg(500)->Arg(5000)->Arg(50000)->Unit(benchmark::kMillisecond)->Complexity();
}

BENCHMARK(LoadRules)->Apply(Sizes);
BENCHMARK(LoadOwnShare)->Apply(Sizes);
BENCHMARK(LoadCallsAlone)->Apply(Sizes);
BENCHMARK(SaveRules)->Apply(Sizes);
BENCHMARK(SaveOwnShare)->Apply(Sizes);
BENCHMARK(SaveCallsAlone)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
