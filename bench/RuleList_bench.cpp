// What a keystroke in the search box and a command on rules cost the program itself.
#include <benchmark/benchmark.h>

#include "app/RuleCommands.h"
#include "app/RuleTexts.h"
#include "bench/Sample.h"

namespace {

std::vector<config::Rule> Rules(const benchmark::State& state) {
    return bench::SampleConfiguration(static_cast<size_t>(state.range(0))).Profiles.front().Rules;
}

void SearchKeystroke(benchmark::State& state) {
    const std::vector<config::Rule> rules = Rules(state);
    for (auto _ : state) benchmark::DoNotOptimize(app::ListedRules(rules, L"office 7"));
}

void MoveFirstToLast(benchmark::State& state) {
    std::vector<config::Rule> rules = Rules(state);
    for (auto _ : state) {
        app::MoveRule(rules, 0, rules.size() - 1);
        benchmark::DoNotOptimize(app::ListedRules(rules, {}));
    }
}

void CopyFirst(benchmark::State& state) {
    std::vector<config::Rule> rules = Rules(state);
    rules.reserve(2 * rules.size());
    for (auto _ : state) {
        rules.insert(rules.begin() + 1, config::Rule(rules.front()));
        benchmark::DoNotOptimize(app::ListedRules(rules, {}));
        state.PauseTiming();
        rules.erase(rules.begin());
        state.ResumeTiming();
    }
}

void OfferMasks(benchmark::State& state) {
    const std::vector<config::Rule> rules = Rules(state);
    for (auto _ : state) benchmark::DoNotOptimize(app::SuggestedMasks({}, rules));
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->RangeMultiplier(10)->Range(100, 10'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(SearchKeystroke)->Apply(Sizes);
BENCHMARK(MoveFirstToLast)->Apply(Sizes);
BENCHMARK(CopyFirst)->Apply(Sizes);
BENCHMARK(OfferMasks)->Apply(Sizes);

}  // namespace
