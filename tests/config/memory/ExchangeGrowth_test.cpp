// Reading exchange text of any shape costs in proportion to its bytes. Counted are the memory asked for and
// the bytes converted, which are the same on every machine; how long it takes is measured by the benchmarks.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "config/ExchangeFile.h"
#include "platform/memory/MemoryCodePage.h"
#include "tests/config/ExchangeText.h"
#include "tests/torture/ShortMemory.h"

namespace tests {
namespace {

class CountingCodePage final : public platform::CodePage {
  public:
    std::wstring ToWide(std::string_view ansi) const override {
        converted += ansi.size();
        return page_.ToWide(ansi);
    }
    std::string ToAnsi(std::wstring_view wide) const override { return page_.ToAnsi(wide); }

    mutable size_t converted = 0;

  private:
    platform::memory::MemoryCodePage page_;
};

struct Cost {
    size_t allocations = 0;
    size_t allocatedBytes = 0;
    size_t convertedBytes = 0;
};

Cost CostOfReading(const std::string& text) {
    const CountingCodePage codePage;
    const torture::ShortMemory memory;
    const auto exchanged = config::ParseExchangeText(text, codePage);
    return {memory.Counted(), memory.Bytes(), codePage.converted};
}

std::string Repeated(std::string_view part, size_t bytes) {
    std::string text;
    while (text.size() < bytes) text += part;
    return text;
}

TEST(ExchangeGrowth, ReadingCostsInProportionToTheBytes) {
    using Shape = std::string (*)(size_t);
    const std::pair<const char*, Shape> shapes[] = {
        {"line feeds", [](size_t n) { return Repeated("\n", n) + "\n\r"; }},
        {"no record end", [](size_t n) { return Repeated("\n", n); }},
        {"record ends", [](size_t n) { return Repeated("\n\r", n); }},
        {"carriage returns", [](size_t n) { return Repeated("\r", n); }},
        {"single lines", [](size_t n) { return Repeated("a\n\r", n); }},
        {"short records", [](size_t n) { return Repeated("\n\n\n\r", n); }},
        {"rules", [](size_t n) { return Repeated(tests::FullRecord, n); }},
        {"a long text",
         [](size_t n) {
             return tests::Record({{12, Repeated("a", n)}});
         }},
        {"a long number",
         [](size_t n) {
             return tests::Record({{6, Repeated("9", n)}});
         }},
        {"many masks",
         [](size_t n) {
             return tests::Record({{4, Repeated("a;;", n)}});
         }},
        {"empty masks",
         [](size_t n) {
             return tests::Record({{4, Repeated(";", n)}});
         }},
        {"many signer lists",
         [](size_t n) {
             return tests::Record({{13, Repeated("a;\\;", n)}});
         }},
        {"a long signer list",
         [](size_t n) {
             return tests::Record({{13, Repeated("a;;", n)}});
         }},
        {"nearly separators",
         [](size_t n) {
             return tests::Record({{13, Repeated(";\\", n)}});
         }},
    };
    constexpr size_t small = 10'000;
    constexpr size_t times = 32;  // in proportion to the square it would be 1024 times
    for (const auto& [what, shape] : shapes) {
        SCOPED_TRACE(what);
        const Cost once = CostOfReading(shape(small));
        const Cost large = CostOfReading(shape(times * small));
        // A list that grows doubles what it holds: up to twice the memory, in a few steps more.
        EXPECT_LE(large.allocations, times * once.allocations + 64);
        EXPECT_LE(large.allocatedBytes, 2 * times * once.allocatedBytes + 4096);
        EXPECT_LE(large.convertedBytes, times * (once.convertedBytes + 1024));
        EXPECT_LE(large.convertedBytes, 2 * times * small);
    }
}

}  // namespace
}  // namespace tests
