// The exchange text of a profile written and read, beside a plain copy of the same bytes: the least that
// carrying them in or out of the program costs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "bench/Sample.h"
#include "config/ExchangeFile.h"

namespace {

// Every byte is the character of the same number. As quick as a conversion can be, so that what is measured
// is the program's own work.
class PlainCodePage final : public platform::CodePage {
  public:
    std::wstring ToWide(std::string_view ansi) const override { return {ansi.begin(), ansi.end()}; }
    std::string ToAnsi(std::wstring_view wide) const override {
        std::string ansi(wide.size(), '\0');
        std::transform(wide.begin(), wide.end(), ansi.begin(),
                       [](wchar_t c) { return static_cast<char>(c); });
        return ansi;
    }
};

// The rules of a sample profile, as records and as text.
struct Rules {
    explicit Rules(const benchmark::State& state)
        : records(bench::SampleConfiguration(static_cast<size_t>(state.range(0))).Profiles.front().Rules),
          text(config::ExchangeText(records, codePage)) {}

    void Count(benchmark::State& state) const {
        state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
    }

    PlainCodePage codePage;
    std::vector<config::Rule> records;
    std::string text;
};

void ExportText(benchmark::State& state) {
    const Rules rules(state);
    for (auto _ : state) benchmark::DoNotOptimize(config::ExchangeText(rules.records, rules.codePage));
    rules.Count(state);
}

void ImportText(benchmark::State& state) {
    const Rules rules(state);
    for (auto _ : state) {
        config::ExchangedRules exchanged = config::ParseExchangeText(rules.text, rules.codePage);
        benchmark::DoNotOptimize(exchanged.rules.data());
        state.PauseTiming();  // the program keeps the rules: letting go of them is no part of it
        exchanged.rules = {};
        state.ResumeTiming();
    }
    rules.Count(state);
}

void CopyText(benchmark::State& state) {
    const Rules rules(state);
    for (auto _ : state) {
        std::string copy(rules.text);
        benchmark::DoNotOptimize(copy.data());
    }
    rules.Count(state);
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(ExportText)->Apply(Sizes);
BENCHMARK(ImportText)->Apply(Sizes);
BENCHMARK(CopyText)->Apply(Sizes);

}  // namespace
