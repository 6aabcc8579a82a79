// The exchange text that is written, byte for byte, and what is made of one that is read.
#include <gtest/gtest.h>

#include <string_view>

#include "config/ExchangeFormat.h"
#include "platform/memory/MemoryCodePage.h"
#include "tests/config/ExchangeText.h"

namespace {

using config::Rule;
using platform::memory::AnsiCodePage;
using platform::memory::MemoryCodePage;
using tests::Record;
namespace field = tests::field;
using namespace std::string_literals;
using config::ExchangedRules;
using Texts = std::vector<std::wstring>;
using SignerLists = std::vector<config::SignerListEntry>;

std::string Written(const std::vector<Rule>& rules, AnsiCodePage page = AnsiCodePage::Western1252) {
    return config::ExchangeText(rules, MemoryCodePage(page));
}

TEST(ExchangeWrite, ARecordIsTwentyFiveLinesAndACarriageReturn) {
    EXPECT_EQ(Written({tests::FullRule()}), tests::FullRecord);
}

TEST(ExchangeWrite, EmptyListsAreWrittenAsZero) {
    EXPECT_EQ(Written({Rule()}), "\n\n\n\n0\n0\n0\n\n0\n0\n\n\n\n0\n0\n\n\n\n\n0\n0\n0\n\n\n0\n\r");
    EXPECT_EQ(Written({Rule()}), Record());
}

TEST(ExchangeWrite, AnEncryptionRule) {
    Rule rule;
    rule.Operation = L"ENCR";
    rule.PathIn = L"C:\\In";
    rule.PathOut = L"C:\\Out";
    rule.PathError = L"C:\\Error";
    rule.Masks = {L"*.txt", L"*.doc"};
    rule.IsOn = 1;
    const std::string text = Written({rule});
    EXPECT_TRUE(text.starts_with("ENCR\nC:\\In\nC:\\Out\nC:\\Error\n*.txt;;*.doc\n0\n1\n"));
    EXPECT_TRUE(text.ends_with("\n0\n\r"));
}

TEST(ExchangeWrite, RecordsFollowEachOtherInTheOrderOfTheRules) {
    Rule first;
    first.Operation = L"DELE";
    EXPECT_EQ(Written({first, tests::FullRule(), first}),
              Record({{field::Operation, "DELE"}}) + tests::FullRecord + Record({{field::Operation, "DELE"}}));
    EXPECT_EQ(Written({}), "");
}

TEST(ExchangeWrite, ListsWithEmptyEntries) {
    Rule rule;
    rule.Masks = {L""};
    rule.Certificates = {L"", L"a", L""};
    rule.SignerLists = {{L"", {}}, {L"", {L""}}, {L"A", {L"", L"s"}}};
    EXPECT_EQ(Written({rule}),
              Record({{field::Masks, ""}, {field::Certificates, ";;a;;"}, {field::SignerLists, ";\\;;;;\\;A;;;;s"}}));
}

TEST(ExchangeWrite, NothingIsEscaped) {
    Rule rule;
    rule.PathError = L"a\nb";
    rule.Masks = {L"a;;b", L"0"};
    rule.Descryption = L"a;\\;b\n\r";
    EXPECT_EQ(Written({rule}),
              Record({{field::PathError, "a\nb"}, {field::Masks, "a;;b;;0"}, {field::Descryption, "a;\\;b\n\r"}}));
}

TEST(ExchangeWrite, TheOlderFormatsMaskIsNotCarried) {
    Rule rule;
    rule.Mask = L"*.old";
    EXPECT_EQ(Written({rule}), Record());
}

TEST(ExchangeWrite, ACharacterIsOneByteOfTheCodePage) {
    Rule rule;
    rule.Descryption = L"\x0416\x0451 \x00E9 \x20AC";
    EXPECT_EQ(Written({rule}, AnsiCodePage::Cyrillic1251), Record({{field::Descryption, "\xC6\xB8 ? \x88"}}));
    EXPECT_EQ(Written({rule}, AnsiCodePage::Western1252), Record({{field::Descryption, "?? \xE9 \x80"}}));
}

ExchangedRules Read(std::string_view text, AnsiCodePage page = AnsiCodePage::Western1252) {
    return config::ParseExchangeText(text, MemoryCodePage(page));
}

// The rule of a text that holds just one.
Rule ReadOne(std::string_view text, AnsiCodePage page = AnsiCodePage::Western1252) {
    const ExchangedRules exchanged = Read(text, page);
    EXPECT_TRUE(exchanged.anyRecord);
    EXPECT_EQ(exchanged.rules.size(), 1U);
    return exchanged.rules.empty() ? Rule() : exchanged.rules.front();
}

Rule ReadField(size_t place, const std::string& text) {
    return ReadOne(Record({{place, text}}));
}

Texts OperationsIn(std::string_view text) {
    Texts operations;
    for (const Rule& rule : Read(text).rules) operations.emplace_back(rule.Operation);
    return operations;
}

std::string Named(const std::string& operation) {
    return Record({{field::Operation, operation}});
}

TEST(ExchangeRead, EveryField) {
    EXPECT_EQ(ReadOne(tests::FullRecord), tests::FullRule());
}

TEST(ExchangeRead, ARecordOfZerosAndEmptyTextsIsADefaultRule) {
    EXPECT_EQ(ReadOne(Record()), Rule());
}

TEST(ExchangeRead, RulesComeInTheOrderOfTheFile) {
    EXPECT_EQ(OperationsIn(Named("A") + Named("B") + Named("C")), (Texts{L"A", L"B", L"C"}));
}

TEST(ExchangeRead, TextsWithoutARecord) {
    for (const std::string& text :
         {""s, "\n"s, "\r"s, "\n\r"s, "\n\r\n\r"s, "\r\n\r"s, "just a line\n\r"s, "\0"s, std::string(100, '\n'),
          "no end\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n"s, "\0\n\n\n\n\n\n\n\n\n\n\n\n\r"s}) {
        EXPECT_FALSE(Read(text).anyRecord) << testing::PrintToString(text);
        EXPECT_TRUE(Read(text).rules.empty()) << testing::PrintToString(text);
    }
}

TEST(ExchangeRead, WhatFollowsTheLastRecordEndIsIgnored) {
    std::string unfinished = Named("B");
    unfinished.resize(unfinished.size() - 2);
    EXPECT_EQ(OperationsIn(Named("A") + unfinished), Texts{L"A"});
    EXPECT_EQ(OperationsIn(Named("A") + unfinished + "\n"), Texts{L"A"});
    EXPECT_EQ(OperationsIn(Named("A") + unfinished + "\r"), Texts{L"A"});
    EXPECT_EQ(OperationsIn(Named("A") + "\r\n"), Texts{L"A"});
}

TEST(ExchangeRead, EmptyRecordsAndSingleLinesAreSteppedOver) {
    EXPECT_EQ(OperationsIn("\n\r" + Named("A") + "\n\r\n\rone line\n\r" + Named("B") + "\n\r"), (Texts{L"A", L"B"}));
}

TEST(ExchangeRead, ACarriageReturnElsewhereBelongsToTheText) {
    EXPECT_EQ(ReadField(field::PathError, "a\rb\r").PathError, L"a\rb\r");
    EXPECT_EQ(OperationsIn("\r" + Named("\rA")), Texts{L"\r\rA"});
}

TEST(ExchangeRead, TheFirstZeroByteEndsTheText) {
    EXPECT_EQ(OperationsIn(Named("A") + "\0"s + Named("B")), Texts{L"A"});
    std::string cut = Named("A") + Named("B") + Named("C");
    cut[Named("A").size() + 3] = '\0';
    EXPECT_EQ(OperationsIn(cut), Texts{L"A"});
}

TEST(ExchangeRead, ARecordNeedsTwelveFields) {
    for (size_t fields = 2; fields < 12; ++fields) {
        EXPECT_TRUE(Read(Record({}, fields)).anyRecord) << fields;
        EXPECT_TRUE(Read(Record({}, fields)).rules.empty()) << fields;
    }
    EXPECT_FALSE(Read(Record({}, 1)).anyRecord);
    EXPECT_EQ(Read(Record({}, 12)).rules.size(), 1U);
    EXPECT_EQ(OperationsIn(Record({{0, "A"}}, 11) + Named("B") + Record({{0, "C"}}, 2)), Texts{L"B"});
}

TEST(ExchangeRead, TheTwelfthFieldMayBeEmpty) {
    EXPECT_EQ(ReadOne("A\n\n\n\n0\n0\n1\nkeys\n0\n0\n\n\n\r").ZCSProfile, L"keys");
}

TEST(ExchangeRead, MissingFieldsKeepTheirDefaults) {
    const std::string_view whole(tests::FullRecord);
    size_t end = 0;
    for (size_t fields = 1; fields <= tests::ExchangeFields; ++fields) {
        end = whole.find('\n', end) + 1;
        if (fields < 12) continue;
        const Rule rule = ReadOne(std::string(whole.substr(0, end)) + "\r");
        const Rule full = tests::FullRule();
        EXPECT_EQ(rule.PathOut2, full.PathOut2);
        EXPECT_EQ(rule.Descryption, fields > 12 ? full.Descryption : L"") << fields;
        EXPECT_EQ(rule.SignerLists, fields > 13 ? full.SignerLists : SignerLists{}) << fields;
        EXPECT_EQ(rule.ZipFile, fields > 14 ? full.ZipFile : 0) << fields;
        EXPECT_EQ(rule.Copyfolders, fields > 18 ? full.Copyfolders : L"") << fields;
        EXPECT_EQ(rule.ExecName, fields > 23 ? full.ExecName : L"") << fields;
        EXPECT_EQ(rule.ExecTimeout, fields > 24 ? full.ExecTimeout : 0) << fields;
    }
}

TEST(ExchangeRead, FieldsBeyondTheLastAreIgnored) {
    std::string longer(tests::FullRecord);
    longer.insert(longer.size() - 2, "\nmore\nand more");
    EXPECT_EQ(ReadOne(longer), tests::FullRule());
}

TEST(ExchangeRead, ArchivesHaveAKind) {
    struct Case {
        std::string operation;
        std::string stored;
        int32_t read;
    };
    for (const Case& c : {Case{"ARCH", "0", 1}, Case{"UNAR", "0", 1}, Case{"ARCH", "2", 2}, Case{"UNAR", "x", 1},
                          Case{"ARCH", "-1", -1}, Case{"PACK", "0", 0}, Case{"arch", "0", 0}})
        EXPECT_EQ(ReadOne(Record({{field::Operation, c.operation}, {field::ZipFile, c.stored}})).ZipFile, c.read)
            << c.operation << " " << c.stored;
    EXPECT_EQ(ReadOne(Record({{field::Operation, "ARCH"}}, 12)).ZipFile, 1);
}

TEST(ExchangeRead, ListsOfTexts) {
    const std::pair<std::string, Texts> cases[] = {
        {"0", {}},
        {"", {}},
        {"a", {L"a"}},
        {"a;;b", {L"a", L"b"}},
        {";;a;;;;b;;", {L"a", L"b"}},
        {";;", {}},
        {"a;b;", {L"a;b;"}},
        {"a;;;b", {L"a", L";b"}},
        {"a;\\;b", {L"a;\\;b"}},
        {"00", {L"00"}},
        {" 0", {L" 0"}},
        {"0;;0", {L"0", L"0"}},
        {"0;;", {L"0"}},
    };
    for (const auto& [text, entries] : cases) {
        EXPECT_EQ(ReadField(field::Masks, text).Masks, entries) << text;
        EXPECT_EQ(ReadField(field::Certificates, text).Certificates, entries) << text;
    }
}

TEST(ExchangeRead, ListsOfSigners) {
    const std::pair<std::string, SignerLists> cases[] = {
        {"0", {}},
        {"", {{L"", {}}}},
        {"A", {{L"A", {}}}},
        {"A;;s1;\\;B", {{L"A", {L"s1"}}, {L"B", {}}}},
        {"A;;s1;;s2;\\;B;;s3", {{L"A", {L"s1", L"s2"}}, {L"B", {L"s3"}}}},
        {"A;;;;s", {{L"A", {L"", L"s"}}}},
        {"A;;", {{L"A", {L""}}}},
        {";;s", {{L"", {L"s"}}}},
        {";\\;", {{L"", {}}, {L"", {}}}},
        {"A;\\;A", {{L"A", {}}, {L"A", {}}}},
        {"A;;\\;B", {{L"A;", {}}, {L"B", {}}}},
        {"A;\\B", {{L"A;\\B", {}}}},
        {"0;\\;0", {{L"0", {}}, {L"0", {}}}},
    };
    for (const auto& [text, lists] : cases) EXPECT_EQ(ReadField(field::SignerLists, text).SignerLists, lists) << text;
}

TEST(ExchangeRead, Numbers) {
    const std::pair<std::string, int32_t> cases[] = {
        {"", 0},
        {"abc", 0},
        {"7abc", 7},
        {"-7", -7},
        {"+7", 7},
        {"  12 3", 12},
        {"--7", 0},
        {"0x10", 0},
        {"007", 7},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"-99999999999999999999999", -2147483647 - 1},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(ReadField(field::IsOn, text).IsOn, number) << text;
        EXPECT_EQ(ReadField(field::InFormatDet, text).InFormatDet, number) << text;
        EXPECT_EQ(ReadField(field::ExecTimeout, text).ExecTimeout, number) << text;
    }
}

TEST(ExchangeRead, BytesAreCharactersOfTheCodePage) {
    const std::string text = Record({{field::Descryption, "\xC6\xB8 \x88"}, {field::Masks, "\xFF;;\x80"}});
    const Rule cyrillic = ReadOne(text, AnsiCodePage::Cyrillic1251);
    EXPECT_EQ(cyrillic.Descryption, L"\x0416\x0451 \x20AC");
    EXPECT_EQ(cyrillic.Masks, (Texts{L"\x044F", L"\x0402"}));
    const Rule western = ReadOne(text, AnsiCodePage::Western1252);
    EXPECT_EQ(western.Descryption, L"\x00C6\x00B8 \x02C6");
    EXPECT_EQ(western.Masks, (Texts{L"\x00FF", L"\x20AC"}));
}

TEST(ExchangeRead, AMaskThatIsJustZeroIsLostOnTheWay) {
    Rule rule;
    rule.Masks = {L"0"};
    EXPECT_TRUE(ReadOne(config::ExchangeText({&rule, 1}, MemoryCodePage())).Masks.empty());
}

}  // namespace
