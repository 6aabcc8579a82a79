// What the rule editor is offered, and what looking at every rule costs at least.
#include <benchmark/benchmark.h>

#include "app/RuleCommands.h"
#include "bench/Counted.h"
#include "bench/Sample.h"

namespace {

std::vector<config::Rule> Rules(const benchmark::State& state) {
    return bench::SampleConfiguration(static_cast<size_t>(state.range(0))).Profiles.front().Rules;
}

// The reference of every command: the least that anything can do that has to look at all rules.
void ReadEveryRule(benchmark::State& state) {
    const std::vector<config::Rule> rules = Rules(state);
    for (auto _ : state) {
        const bench::Counted counted;
        size_t units = 0;
        for (const config::Rule& rule : rules)
            for (const wchar_t unit : std::wstring_view(rule.Descryption)) units += unit != L' ' ? 1U : 0U;
        benchmark::DoNotOptimize(units);
    }
}

void OfferMasks(benchmark::State& state) {
    const std::vector<config::Rule> rules = Rules(state);
    for (auto _ : state) {
        const bench::Counted counted;
        benchmark::DoNotOptimize(app::SuggestedMasks({}, rules));
    }
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->RangeMultiplier(10)->Range(1000, 100'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(ReadEveryRule)->Apply(Sizes);
BENCHMARK(OfferMasks)->Apply(Sizes);

}  // namespace
