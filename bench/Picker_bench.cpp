// The certificate picker with very many owner names, beside what the standard library takes for the like.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <unordered_set>
#include <vector>

#include "bench/Counted.h"
#include "certs/NameFields.h"
#include "certs/NameRows.h"
#include "certs/OwnerSearch.h"
#include "certs/PickerNames.h"

namespace {

using Names = std::vector<std::wstring>;

constexpr size_t organization = 7;

// 80 to 150 characters each. repeated: every name stands twice, the second time somewhere else.
Names SampleNames(size_t count, bool repeated) {
    std::mt19937 random(7);
    Names names;
    names.reserve(count);
    const size_t distinct = repeated ? count / 2 : count;
    for (size_t i = 0; i < distinct; ++i) {
        std::wstring name = L"CN=User " + std::to_wstring(random()) + L",O=Office " + std::to_wstring(random() % 1000) +
                            L",OU=Department of inner matters,L=Town " + std::to_wstring(i) + L",C=RU,T=";
        name.append(20 + random() % 50, static_cast<wchar_t>(L'a' + random() % 26));
        names.push_back(std::move(name));
    }
    for (size_t i = distinct; i < count; ++i) names.push_back(names[i - distinct]);
    std::shuffle(names.begin(), names.end(), random);
    return names;
}

const Names& Repeated(const benchmark::State& state) {
    static Names names;
    const auto count = static_cast<size_t>(state.range(0));
    if (names.size() != count) names = SampleNames(count, true);
    return names;
}

const Names& Distinct(const benchmark::State& state) {
    static Names names;
    const auto count = static_cast<size_t>(state.range(0));
    if (names.size() != count) names = SampleNames(count, false);
    return names;
}

void Fill(certs::Candidates& candidates, const Names& names) {
    for (const std::wstring& name : names) candidates.Add(name);
    benchmark::DoNotOptimize(candidates.Listed({}));
}

// The names are added and listed, ready to be filtered.
void AddCandidates(benchmark::State& state) {
    const Names& names = Repeated(state);
    for (auto _ : state) {
        const bench::Counted counted;
        certs::Candidates candidates;
        Fill(candidates, names);
    }
}

void AddToUnorderedSet(benchmark::State& state) {
    const Names& names = Repeated(state);
    for (auto _ : state) {
        const bench::Counted counted;
        std::unordered_set<std::wstring> set;
        for (const std::wstring& name : names) set.insert(name);
        benchmark::DoNotOptimize(set);
    }
}

void FilterKeystroke(benchmark::State& state, const wchar_t* text) {
    certs::Candidates candidates;
    Fill(candidates, Distinct(state));
    for (auto _ : state) {
        const bench::Counted counted;
        benchmark::DoNotOptimize(candidates.Listed(text));
    }
}

void SortByField(benchmark::State& state, const wchar_t* field) {
    certs::Candidates candidates;
    Fill(candidates, Distinct(state));
    for (auto _ : state) {
        const bench::Counted counted;
        certs::NameRows rows(candidates.Names());
        rows.Show(candidates.Listed({}));
        rows.Show(rows.InOrder(rows.SortedOrder(field, false)));
        benchmark::DoNotOptimize(rows);
    }
}

void SortReadyKeys(benchmark::State& state, const wchar_t* field) {
    certs::Candidates candidates;
    Fill(candidates, Distinct(state));
    std::vector<std::wstring_view> keys;
    for (size_t i = 0; i < candidates.Names().Size(); ++i) keys.push_back(certs::SortKey(candidates.Names()[i], field));
    for (auto _ : state) {
        const bench::Counted counted;
        std::vector<std::wstring_view> sorted = keys;
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted);
    }
}

void Narrow(benchmark::State& state) {
    const Names& names = Distinct(state);
    const certs::OwnerSearch search(organization, L"*ffice 7*");
    for (auto _ : state) {
        const bench::Counted counted;
        size_t meant = 0;
        for (const std::wstring& name : names) meant += search.IsMeant(name) ? 1U : 0U;
        benchmark::DoNotOptimize(meant);
    }
}

void ChooseAll(benchmark::State& state) {
    certs::Candidates candidates;
    Fill(candidates, Distinct(state));
    certs::NameRows rows(candidates.Names());
    rows.Show(candidates.Listed({}));
    const std::vector<bool> checks(rows.Count(), true);
    for (auto _ : state) {
        const bench::Counted counted;
        certs::ChosenNames chosen({});
        for (const certs::NameId id : rows.Checked(checks)) chosen.Add(candidates.Names()[id]);
        benchmark::DoNotOptimize(chosen.Listed());
    }
}

void ExcludeHalf(benchmark::State& state) {
    const Names& names = Distinct(state);
    const auto half = names.begin() + static_cast<std::ptrdiff_t>(names.size() / 2);
    const std::vector<config::SignerListEntry> lists{{L"others", {names.begin(), half}}};
    for (auto _ : state) {
        state.PauseTiming();
        certs::ChosenNames chosen(names);
        state.ResumeTiming();
        const bench::Counted counted;
        benchmark::DoNotOptimize(chosen.ExcludeSignersOf(lists, {}));
    }
}

void RemoveHalf(benchmark::State& state) {
    const Names& names = Distinct(state);
    for (auto _ : state) {
        state.PauseTiming();
        certs::ChosenNames chosen(names);
        certs::NameRows rows(chosen.Names());
        rows.Show(chosen.Listed());
        std::vector<bool> checks(rows.Count());
        for (size_t row = 0; row < checks.size(); row += 2) checks[row] = true;
        state.ResumeTiming();
        const bench::Counted counted;
        chosen.RemoveEvery(rows.Checked(checks));
        rows.Show(rows.Checked(checks, false));
        benchmark::DoNotOptimize(rows);
    }
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->RangeMultiplier(10)->Range(10'000, 1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(AddCandidates)->Apply(Sizes);
BENCHMARK(AddToUnorderedSet)->Apply(Sizes);
BENCHMARK_CAPTURE(FilterKeystroke, rare, L"quixotic")->Apply(Sizes);
BENCHMARK_CAPTURE(FilterKeystroke, one_letter, L"\\")->Apply(Sizes);
BENCHMARK_CAPTURE(FilterKeystroke, frequent_beginning, L"of x")->Apply(Sizes);
BENCHMARK_CAPTURE(FilterKeystroke, everywhere, L"user")->Apply(Sizes);
BENCHMARK_CAPTURE(SortByField, common_name, L"CN")->Apply(Sizes);
BENCHMARK_CAPTURE(SortReadyKeys, common_name, L"CN")->Apply(Sizes);
BENCHMARK_CAPTURE(SortByField, organization, L"O")->Apply(Sizes);
BENCHMARK_CAPTURE(SortReadyKeys, organization, L"O")->Apply(Sizes);
BENCHMARK(Narrow)->Apply(Sizes);
BENCHMARK(ChooseAll)->Apply(Sizes)->Iterations(bench::Rounds(5));
BENCHMARK(ExcludeHalf)->Apply(Sizes)->Iterations(bench::Rounds(5));
BENCHMARK(RemoveHalf)->Apply(Sizes)->Iterations(bench::Rounds(5));

}  // namespace
