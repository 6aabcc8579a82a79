// Reading exchange text of any shape costs in proportion to its bytes. Counted are the memory asked for and
// the bytes converted, which are the same on every machine; how long it takes is measured by the benchmarks.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "config/ExchangeFormat.h"
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
    struct Shape {
        const char* what;
        std::string_view part;  // time and again
        size_t field = 0;       // of a record which it is; 0: the text itself
        const char* end = "";
    };
    const Shape shapes[] = {
        {"line feeds", "\n", 0, "\n\r"},
        {"no record end", "\n"},
        {"record ends", "\n\r"},
        {"carriage returns", "\r"},
        {"single lines", "a\n\r"},
        {"short records", "\n\n\n\r"},
        {"rules", FullRecord},
        {"a long text", "a", 12},
        {"a long number", "9", 6},
        {"many masks", "a;;", 4},
        {"empty masks", ";", 4},
        {"many signer lists", "a;\\;", 13},
        {"a long signer list", "a;;", 13},
        {"nearly separators", ";\\", 13},
    };
    const auto text = [](const Shape& shape, size_t bytes) {
        const std::string repeated = Repeated(shape.part, bytes);
        return shape.field == 0 ? repeated + shape.end : Record({{shape.field, repeated}});
    };
    constexpr size_t small = 10'000;
    constexpr size_t times = 32;  // in proportion to the square it would be 1024 times
    for (const Shape& shape : shapes) {
        SCOPED_TRACE(shape.what);
        const Cost once = CostOfReading(text(shape, small));
        const Cost large = CostOfReading(text(shape, times * small));
        // A list that grows doubles what it holds: up to twice the memory, in a few steps more.
        EXPECT_LE(large.allocations, times * once.allocations + 64);
        EXPECT_LE(large.allocatedBytes, 2 * times * once.allocatedBytes + 4096);
        EXPECT_LE(large.convertedBytes, times * (once.convertedBytes + 1024));
        EXPECT_LE(large.convertedBytes, 2 * times * small);
    }
}

}  // namespace
}  // namespace tests
