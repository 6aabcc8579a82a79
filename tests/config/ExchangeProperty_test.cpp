// What holds for all rules and for all bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "config/ExchangeFormat.h"
#include "platform/memory/MemoryCodePage.h"
#include "tests/config/ExchangeText.h"

namespace {

using config::Rule;
using platform::memory::AnsiCodePage;
using platform::memory::MemoryCodePage;
using Texts = std::vector<std::wstring>;

// Rules whose texts hold no separators of the places where they are written.
class RandomRules {
  public:
    RandomRules(uint32_t seed, const platform::CodePage& codePage) : random_(seed), codePage_(codePage) {}

    Rule Make() {
        Rule rule;
        for (Rule::Text* text : {&rule.Operation, &rule.PathIn, &rule.PathOut, &rule.PathError, &rule.ZCSProfile,
                                 &rule.ResignProfile, &rule.PathOut2, &rule.Descryption, &rule.DelExt, &rule.AddExt,
                                 &rule.Folders, &rule.Copyfolders, &rule.ArchName, &rule.ExecName})
            *text = Text(0, "\n\r");
        for (int32_t* number : {&rule.IsOn, &rule.InFormatDet, &rule.OutFormatDet, &rule.ZipFile, &rule.ArchCount,
                                &rule.ArchSize, &rule.ArchTimeout, &rule.ExecTimeout})
            *number = static_cast<int32_t>(random_() >> (random_() % 32));
        rule.Masks = List(1);
        rule.Certificates = List(1);
        for (size_t count = random_() % 4; count > 0; --count)
            rule.SignerLists.push_back({Text(0, separators), List(0)});
        if (rule.SignerLists == std::vector<config::SignerListEntry>{{L"0", {}}}) rule.SignerLists.clear();
        return rule;
    }

  private:
    // A lone backslash between semicolons would separate signer lists.
    static constexpr std::string_view separators = "\n\r;\\";

    std::wstring Text(size_t shortest, std::string_view without) {
        std::string bytes(shortest + random_() % 12, ' ');
        for (char& byte : bytes) {
            byte = static_cast<char>(1 + random_() % 255);
            if (without.find(byte) != std::string_view::npos) byte = '0';
        }
        return codePage_.ToWide(bytes);
    }
    Texts List(size_t shortestEntry) {
        Texts entries(random_() % 5);
        for (std::wstring& entry : entries) entry = Text(shortestEntry, separators);
        return entries == Texts{L"0"} ? Texts{} : entries;
    }

    std::mt19937 random_;
    const platform::CodePage& codePage_;
};

TEST(ExchangeProperty, RulesWithoutSeparatorsSurvive) {
    const uint32_t seed = 20'250;
    for (const AnsiCodePage page : {AnsiCodePage::Western1252, AnsiCodePage::Cyrillic1251}) {
        const MemoryCodePage codePage(page);
        RandomRules random(seed, codePage);
        for (int round = 0; round < 300; ++round) {
            std::vector<Rule> rules(static_cast<size_t>(round) % 7);
            std::generate(rules.begin(), rules.end(), [&random] { return random.Make(); });
            const auto read = config::ParseExchangeText(config::ExchangeText(rules, codePage), codePage);
            ASSERT_EQ(read.anyRecord, !rules.empty()) << "seed " << seed << ", round " << round;
            ASSERT_TRUE(read.rules == rules) << "seed " << seed << ", round " << round;
        }
    }
}

// Bytes that have a meaning in the text, mostly.
std::string RandomBytes(std::mt19937& random) {
    constexpr char common[] = {'\n', '\n', '\n', '\n', '\n', '\r', ';', ';', '\\', '0', '-', 'A'};
    std::string bytes(random() % 400, ' ');
    for (char& byte : bytes)
        byte = random() % 16 == 0 ? static_cast<char>(1 + random() % 255) : common[random() % sizeof common];
    if (random() % 8 == 0) bytes.insert(random() % (bytes.size() + 1), 1, '\0');
    return bytes;
}

// An empty list and one whose only entry is "0" look alike; where empty entries in front are left out, a
// carriage return can come to stand behind a line feed.
bool IsWrittenAsSomethingElse(const Texts& entries) {
    return entries == Texts{L"0"} || (!entries.empty() && entries.front().starts_with(L'\r'));
}

bool CanBeWritten(const std::vector<Rule>& rules) {
    return std::none_of(rules.begin(), rules.end(), [](const Rule& rule) {
        return IsWrittenAsSomethingElse(rule.Masks) || IsWrittenAsSomethingElse(rule.Certificates);
    });
}

// Whatever the bytes were, the rules made of them are written so that they come back.
TEST(ExchangeProperty, WhatWasReadOnceIsReadAgain) {
    const uint32_t seed = 77'001;
    const MemoryCodePage codePage;
    std::mt19937 random(seed);
    size_t rulesSeen = 0;
    for (int round = 0; round < 20'000; ++round) {
        const auto first = config::ParseExchangeText(RandomBytes(random), codePage);
        rulesSeen += first.rules.size();
        if (!CanBeWritten(first.rules)) continue;
        const auto again = config::ParseExchangeText(config::ExchangeText(first.rules, codePage), codePage);
        ASSERT_TRUE(again.rules == first.rules) << "seed " << seed << ", round " << round;
        ASSERT_LE(again.anyRecord, first.anyRecord) << "seed " << seed << ", round " << round;
    }
    EXPECT_GT(rulesSeen, 1'000U);
}

}  // namespace
