// Counts the bytes that the program's records and name lists ask the heap for, at their highest while they
// are built, beside the bytes of the texts that they hold. Prints lines for the table.
#include <cstdio>
#include <cstdlib>
#include <new>
#include <random>
#include <string>
#include <string_view>

#include "bench/Sample.h"
#include "config/ExchangeFormat.h"
#include "config/Records.h"
#include "crypto/NameList.h"
#include "platform/memory/MemoryCodePage.h"

namespace {

size_t held = 0;
size_t highest = 0;

// In front of every block stands its size.
constexpr size_t header = 16;

void* Take(size_t bytes) {
    auto* const block = static_cast<std::byte*>(std::malloc(bytes + header));
    if (block == nullptr) throw std::bad_alloc();
    new (block) size_t(bytes);
    held += bytes;
    if (held > highest) highest = held;
    return block + header;
}

void GiveBack(void* memory) noexcept {
    if (memory == nullptr) return;
    std::byte* const block = static_cast<std::byte*>(memory) - header;
    held -= *std::launder(reinterpret_cast<size_t*>(block));
    std::free(block);
}

// Adds up the bytes of every text of a rule.
struct TextBytes {
    size_t bytes = 0;
    void Add(std::wstring_view text) { bytes += text.size() * sizeof(wchar_t); }
    void Add(const std::vector<std::wstring>& texts) {
        for (const std::wstring& text : texts) Add(text);
    }
    void Text(const wchar_t*, std::wstring_view text) { Add(text); }
    void Number(const wchar_t*, int32_t) {}
    void Masks(const wchar_t*, const wchar_t*, const config::Rule& rule) { Add(rule.Masks); }
    void Count(const wchar_t*, const std::vector<config::CertificateRef>&) {}
    void StoresOf(const config::Rule&) {}
    void Values(const wchar_t*, const std::vector<config::CertificateRef>& certificates) { Add(certificates); }
};

size_t TextBytesOf(const std::vector<config::Rule>& rules) {
    TextBytes texts;
    for (const config::Rule& rule : rules) {
        config::VisitRule(rule, texts);
        for (const config::SignerListEntry& list : rule.SignerLists) {
            texts.Add(list.Name);
            texts.Add(list.Signers);
        }
    }
    return texts.bytes;
}

void Print(const char* what, size_t count, size_t bytes, size_t textBytes) {
    const double ours = static_cast<double>(bytes) / static_cast<double>(count);
    const double texts = static_cast<double>(textBytes) / static_cast<double>(count);
    std::printf("%s\t%zu\tbytes each\t%.6g\t%.6g\t%.6g\n", what, count, ours, texts, ours / texts);
}

void MeasureRules(size_t count) {
    const platform::memory::MemoryCodePage codePage;
    const std::string file = config::ExchangeText(bench::SampleConfiguration(count).Profiles.front().Rules, codePage);
    const size_t before = held;
    highest = held;
    const config::ExchangedRules exchanged = config::ParseExchangeText(file, codePage);
    Print("memory of imported rules", count, highest - before, TextBytesOf(exchanged.rules));
}

void MeasureNames(size_t count) {
    std::mt19937 random(1);
    size_t textBytes = 0;
    const size_t before = held;
    highest = held;
    crypto::NameList names;
    while (names.Size() < count) {
        std::wstring name = L"CN=" + std::to_wstring(names.Size()) + L",O=";
        name.resize(80 + random() % 71, L'o');
        names.Add(name);
        textBytes += name.size() * sizeof(wchar_t);
    }
    Print("memory of names", count, highest - before, textBytes);
}

}  // namespace

void* operator new(size_t bytes) {
    return Take(bytes);
}
void* operator new[](size_t bytes) {
    return Take(bytes);
}
void operator delete(void* memory) noexcept {
    GiveBack(memory);
}
void operator delete[](void* memory) noexcept {
    GiveBack(memory);
}
void operator delete(void* memory, size_t) noexcept {
    GiveBack(memory);
}
void operator delete[](void* memory, size_t) noexcept {
    GiveBack(memory);
}

int main() {
    for (const size_t count : {100U, 1'000U, 10'000U}) MeasureRules(count);
    for (const size_t count : {10'000U, 100'000U, 1'000'000U}) MeasureNames(count);
    return 0;
}
