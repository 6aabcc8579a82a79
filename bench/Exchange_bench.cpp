// The exchange text of a profile written and read, beside a file of the same bytes written and read: the
// least that carrying them in or out of the program costs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/Counted.h"
#include "bench/Sample.h"
#include "config/ExchangeFormat.h"

namespace {

// Every byte is the character of the same number. As quick as a conversion can be, so that what is measured
// is the program's own work.
class PlainCodePage final : public platform::CodePage {
  public:
    std::wstring ToWide(std::string_view ansi) const override { return {ansi.begin(), ansi.end()}; }
    std::string ToAnsi(std::wstring_view wide) const override {
        std::string ansi(wide.size(), '\0');
        std::transform(wide.begin(), wide.end(), ansi.begin(), [](wchar_t c) { return static_cast<char>(c); });
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
    for (auto _ : state) {
        const bench::Counted counted;
        benchmark::DoNotOptimize(config::ExchangeText(rules.records, rules.codePage));
    }
    rules.Count(state);
}

void ImportText(benchmark::State& state) {
    const Rules rules(state);
    for (auto _ : state) {
        const bench::Counted counted;
        config::ExchangedRules exchanged = config::ParseExchangeText(rules.text, rules.codePage);
        benchmark::DoNotOptimize(exchanged.rules.data());
        state.PauseTiming();  // the program keeps the rules: letting go of them is no part of it
        exchanged.rules = {};
        state.ResumeTiming();
    }
    rules.Count(state);
}

std::string BenchFile() {
    return (std::filesystem::temp_directory_path() / "brisgate_bench.prx").string();
}

void WriteBytes(const std::string& bytes) {
    std::ofstream(BenchFile(), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void WriteFile(benchmark::State& state) {
    const Rules rules(state);
    for (auto _ : state) {
        const bench::Counted counted;
        WriteBytes(rules.text);
    }
    std::filesystem::remove(BenchFile());
    rules.Count(state);
}

void ReadFile(benchmark::State& state) {
    const Rules rules(state);
    WriteBytes(rules.text);
    for (auto _ : state) {
        const bench::Counted counted;
        std::string bytes(rules.text.size(), '\0');
        std::ifstream(BenchFile(), std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        benchmark::DoNotOptimize(bytes.data());
    }
    std::filesystem::remove(BenchFile());
    rules.Count(state);
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(ExportText)->Apply(Sizes);
BENCHMARK(ImportText)->Apply(Sizes);
BENCHMARK(WriteFile)->Apply(Sizes);
BENCHMARK(ReadFile)->Apply(Sizes);

}  // namespace
