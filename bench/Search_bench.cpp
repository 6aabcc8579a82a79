// What a search costs the program itself: the names that the library found are read, widened and kept once
// each.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/Counted.h"
#include "crypto/LibrarySearch.h"
#include "platform/memory/MemoryMachine.h"
#include "ui/memory/MemoryScreen.h"

namespace {

namespace kseal = platform::kseal;

// A library that has always found the same certificates.
class Found {
    inline static std::vector<kseal::CertEntry>* entries = nullptr;

  public:
    explicit Found(size_t owners) : names_(owners), entries_(owners) {
        for (size_t i = 0; i < owners; ++i) {
            names_[i] = "CN=Owner " + std::to_string(i) + ",O=Branch office 7,L=Hamburg,C=DE";
            entries_[i].OwnerName = names_[i].data();
            entries_[i].UsageBits = 0x1C;
        }
        entries = &entries_;
    }
    ~Found() { entries = nullptr; }
    Found(const Found&) = delete;
    Found& operator=(const Found&) = delete;

    static constexpr kseal::Exports Exports{
        .Uninitialize = [](kseal::Context) { return kseal::Code{0}; },
        .FindCert =
            [](kseal::Context, const kseal::CertFindRequest*, kseal::CertFindResult* result) {
                result->Count = static_cast<uint32_t>(entries->size());
                result->Entries = entries->data();
                return kseal::Code{0};
            },
        .FreeFindResult = [](kseal::Context, kseal::CertFindResult*) { return kseal::Code{0}; },
    };

  private:
    std::vector<std::string> names_;
    std::vector<kseal::CertEntry> entries_;
};

struct Searching {
    int somewhere = 0;
    platform::memory::MemoryMachine machine;
    ui::memory::MemoryScreen screen{machine.ScreenMetrics};
    errors::ErrorReporter reporter{machine.Machine, screen};
    config::RegistryStore store{machine.Machine, reporter};
    config::Services services{machine.Machine, screen, reporter, store};
    ui::Dialog parent{screen, nullptr, {.size = {100, 50}}};
    crypto::CryptoContext context{Found::Exports, &somewhere, reporter};
    crypto::LibrarySearch search{services, context, {}};
};

void FindAllLocalNames(benchmark::State& state) {
    const Found found(static_cast<size_t>(state.range(0)));
    Searching searching;
    for (auto _ : state) {
        const bench::Counted counted;
        crypto::NameList names;
        benchmark::DoNotOptimize(searching.search.FindAllLocalNames(searching.parent, names));
        benchmark::DoNotOptimize(names.Size());
    }
}

// As many certificates, of which the owner sought has one.
void FindCertificatesByName(benchmark::State& state) {
    const Found found(static_cast<size_t>(state.range(0)));
    Searching searching;
    for (auto _ : state) {
        const bench::Counted counted;
        crypto::OwnerCertificates certificates;
        benchmark::DoNotOptimize(searching.search.FindCertificatesByName(
            searching.parent, L"cn=owner 7,o=branch office 7,l=hamburg,c=de", certificates));
        if (certificates.Texts.size() != 1) state.SkipWithError("not found");
    }
}

void Sizes(benchmark::internal::Benchmark* line) {
    line->RangeMultiplier(10)->Range(1'000, 1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(FindAllLocalNames)->Apply(Sizes);
BENCHMARK(FindCertificatesByName)->Apply(Sizes);

}  // namespace
