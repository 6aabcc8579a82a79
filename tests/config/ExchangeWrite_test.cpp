// The exchange text that is written, byte for byte.
#include <gtest/gtest.h>

#include "config/ExchangeFile.h"
#include "platform/memory/MemoryCodePage.h"
#include "tests/config/ExchangeText.h"

namespace {

using config::Rule;
using platform::memory::AnsiCodePage;
using platform::memory::MemoryCodePage;
using tests::Record;
namespace field = tests::field;

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
    EXPECT_EQ(
        Written({first, tests::FullRule(), first}),
        Record({{field::Operation, "DELE"}}) + tests::FullRecord + Record({{field::Operation, "DELE"}}));
    EXPECT_EQ(Written({}), "");
}

TEST(ExchangeWrite, ListsWithEmptyEntries) {
    Rule rule;
    rule.Masks = {L""};
    rule.Certificates = {L"", L"a", L""};
    rule.SignerLists = {{L"", {}}, {L"", {L""}}, {L"A", {L"", L"s"}}};
    EXPECT_EQ(Written({rule}), Record({{field::Masks, ""},
                                       {field::Certificates, ";;a;;"},
                                       {field::SignerLists, ";\\;;;;\\;A;;;;s"}}));
}

TEST(ExchangeWrite, NothingIsEscaped) {
    Rule rule;
    rule.PathError = L"a\nb";
    rule.Masks = {L"a;;b", L"0"};
    rule.Descryption = L"a;\\;b\n\r";
    EXPECT_EQ(
        Written({rule}),
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

}  // namespace
