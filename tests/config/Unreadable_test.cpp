// What of a configuration could not be read back once it is saved, and how the user is asked about it.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "config/RoundTrip.h"
#include "tests/config/Fields.h"
#include "tests/config/GoldenModel.h"

namespace {

using config::FindUnreadable;
using config::Unreadable;
using Why = Unreadable::Reason;
using Findings = std::vector<Unreadable>;

const std::wstring longest(519, L'x');
const std::wstring tooLong(520, L'x');
const std::wstring longestName(255, L'n');
const std::wstring tooLongName(256, L'n');
const std::wstring zeroInside(L"a\0b", 3);
const std::wstring zeroBehind(L"a\0", 2);

// One profile, "Alpha", with so many rules that encrypt.
config::Configuration WithRules(size_t rules) {
    config::Configuration configuration;
    configuration.Profiles.resize(1);
    configuration.Profiles[0].Name = L"Alpha";
    configuration.Profiles[0].Rules.resize(rules);
    for (config::Rule& rule : configuration.Profiles[0].Rules) rule.Operation = L"ENCR";
    return configuration;
}

// The words of the fields found, after each field in turn got the text.
template <class Record>
std::map<std::wstring, std::wstring> WordsFor(config::Configuration& configuration, Record& record,
                                              const std::wstring& text) {
    std::map<std::wstring, std::wstring> found;
    for (const tests::Field& field : tests::FieldsOf(record)) {
        if (!field.IsText()) continue;
        const std::wstring before = field.Text();
        field.SetText(text);
        const Findings findings = FindUnreadable(configuration);
        EXPECT_EQ(findings.size(), 1U) << testing::PrintToString(field.name);
        if (!findings.empty()) found[field.name] = findings[0].Field;
        field.SetText(before);
    }
    return found;
}

TEST(UnreadableTexts, NothingIsFoundInWhatCanBeReadBack) {
    EXPECT_EQ(FindUnreadable({}), Findings());
    EXPECT_EQ(FindUnreadable(tests::GoldenModel()), Findings());
}

TEST(UnreadableTexts, EachTextOfARuleHasTheWordsOfTheForm) {
    const std::map<std::wstring, std::wstring> words{{L"Operation", L"Operation"},
                                                     {L"Path In", L"Input folder"},
                                                     {L"Path Out", L"Output folder"},
                                                     {L"Path Out 2", L"Second Output folder"},
                                                     {L"Path Error", L"Error folder"},
                                                     {L"DelExt", L"Delete extension"},
                                                     {L"AddExt", L"Add extension"},
                                                     {L"Folders", L"Accounting format"},
                                                     {L"Copyfolders", L"Accounting copy format"},
                                                     {L"ArchName", L"Archives name format"},
                                                     {L"ExecName", L"Executable file"},
                                                     {L"ZCSProfile", L"CS profile"},
                                                     {L"ResignProfile", L"New signature profile"},
                                                     {L"Descryption", L"Description"}};
    config::Configuration configuration = WithRules(2);
    config::Rule& rule = configuration.Profiles[0].Rules[1];
    EXPECT_EQ(WordsFor(configuration, rule, tooLong), words);
    EXPECT_EQ(WordsFor(configuration, rule, zeroInside), words);
    rule.Descryption = tooLong;
    EXPECT_EQ(FindUnreadable(configuration), (Findings{{L"Alpha", 1, L"Description", Why::TextTooLong}}));
    rule.Descryption = zeroBehind;
    EXPECT_EQ(FindUnreadable(configuration), (Findings{{L"Alpha", 1, L"Description", Why::ZeroCharacter}}));
    rule.Descryption = longest;
    EXPECT_EQ(FindUnreadable(configuration), Findings());
}

TEST(UnreadableTexts, EachTextOfTheSettingsHasTheWordsOfTheForm) {
    const std::map<std::wstring, std::wstring> words{{L"SigExt", L"Signed files"},
                                                     {L"DsigExt", L"Files with detached signature"},
                                                     {L"EncExt", L"Encrypted files"},
                                                     {L"B64Ext", L"Files in b64 format"},
                                                     {L"HashExt", L"Hash files"},
                                                     {L"VerifyFileExt", L"Files with signature verification report"},
                                                     {L"ZIPArchiveExt", L"ZIP archives"},
                                                     {L"GZIPArchiveExt", L"GZIP archives"},
                                                     {L"LogPath", L"Log path"}};
    config::Configuration configuration;
    EXPECT_EQ(WordsFor(configuration, configuration.Settings, tooLong), words);
    configuration.Settings.LogPath = zeroInside;
    EXPECT_EQ(FindUnreadable(configuration), (Findings{{L"", {}, L"Log path", Why::ZeroCharacter}}));
}

TEST(UnreadableTexts, ListsHaveNoLimitButEntriesMustNotEndThem) {
    config::Configuration configuration = WithRules(0);
    config::ServiceProfile& profile = configuration.Profiles[0];
    configuration.Settings.ExtExt = {tooLong, L"", zeroInside};
    profile.ServerTSP = {tooLong, L"", zeroInside};
    profile.ZCSProfile = {zeroBehind, L"", tooLong};
    EXPECT_EQ(FindUnreadable(configuration),
              (Findings{{L"", {}, L"Additional file name extension 3", Why::ZeroCharacter},
                        {L"", {}, L"Additional file name extension 2", Why::Empty},
                        {L"Alpha", {}, L"TSP server 3", Why::ZeroCharacter},
                        {L"Alpha", {}, L"CS profile 1", Why::ZeroCharacter}}));
}

TEST(UnreadableTexts, MasksRecipientsAndSignersAreCountedFromOne) {
    config::Configuration configuration = WithRules(1);
    config::Rule& rule = configuration.Profiles[0].Rules[0];
    rule.Masks = {longest, tooLong, L""};
    rule.Certificates = {zeroInside, L"", longest, tooLong};
    rule.SignerLists = {{L"clerks", {L"", tooLong}}, {L"chiefs", {zeroBehind, longest}}};
    EXPECT_EQ(FindUnreadable(configuration),
              (Findings{{L"Alpha", 0, L"Mask 2", Why::TextTooLong},
                        {L"Alpha", 0, L"Recipient 1", Why::ZeroCharacter},
                        {L"Alpha", 0, L"Recipient 4", Why::TextTooLong},
                        {L"Alpha", 0, L"Signer list 'clerks', signer 2", Why::TextTooLong},
                        {L"Alpha", 0, L"Signer list 'chiefs', signer 1", Why::ZeroCharacter}}));
}

struct NameCase {
    std::vector<std::wstring> names;
    std::vector<std::pair<size_t, Why>> found;  // positions among the names
};
const std::vector<NameCase> nameCases{
    {{L"a", L"b", L"A b", longestName, L"a/b", L" "}, {}},
    {{L"ok", L""}, {{1, Why::Empty}}},
    {{tooLongName}, {{0, Why::NameTooLong}}},
    {{zeroInside}, {{0, Why::ZeroCharacter}}},
    {{L"\\", L"a\\b", L"a\\"}, {{0, Why::Backslash}, {1, Why::Backslash}, {2, Why::Backslash}}},
    {{L"Name", L"other", L"nAME", L"Name"}, {{2, Why::SharedKey}, {3, Why::SharedKey}}},
    {{L"\x0436", L"\x0416"}, {{1, Why::SharedKey}}},
    {{L"\x00E4", L"a", L"\x00C4"}, {{2, Why::SharedKey}}}};

TEST(UnreadableNames, OfProfiles) {
    for (const NameCase& names : nameCases) {
        config::Configuration configuration;
        Findings expected;
        for (const std::wstring& name : names.names) configuration.Profiles.emplace_back().Name = name;
        for (const auto& [position, why] : names.found) expected.push_back({names.names[position], {}, L"Name", why});
        EXPECT_EQ(FindUnreadable(configuration), expected);
    }
}

TEST(UnreadableNames, OfSignerListsAmongThoseOfTheirRule) {
    for (const NameCase& names : nameCases) {
        config::Configuration configuration = WithRules(2);
        for (config::Rule& rule : configuration.Profiles[0].Rules)
            for (const std::wstring& name : names.names) rule.SignerLists.push_back({name, {}});
        const Findings findings = FindUnreadable(configuration);
        ASSERT_EQ(findings.size(), 2 * names.found.size());
        for (size_t i = 0; i < findings.size(); ++i) {
            EXPECT_EQ(findings[i].Rule, i / names.found.size());
            EXPECT_EQ(findings[i].Why, names.found[i % names.found.size()].second);
        }
    }
}

TEST(UnreadableNames, AreShortenedAndShownInOneLine) {
    config::Configuration configuration = WithRules(1);
    configuration.Profiles[0].Rules[0].SignerLists = {
        {std::wstring(40, L'l') + L"m\\", {}}, {std::wstring(39, L'l') + L"\\", {}}, {{L'a', 0, L'\r'}, {}}};
    const Findings findings = FindUnreadable(configuration);
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_EQ(findings[0].Field, L"Signer list '" + std::wstring(40, L'l') + L"...'");
    EXPECT_EQ(findings[1].Field, L"Signer list '" + std::wstring(39, L'l') + L"\\'");
    EXPECT_EQ(findings[2].Field,
              L"Signer list 'a?"
              L"?'");
}

// A save leaves them out.
TEST(UnreadableTexts, RulesWithoutAnOperationAreNotLookedAt) {
    config::Configuration configuration = WithRules(2);
    config::Rule& rule = configuration.Profiles[0].Rules[0];
    rule = {};
    rule.Descryption = tooLong;
    rule.Masks = rule.Certificates = {tooLong};
    rule.SignerLists = {{L"", {tooLong}}};
    configuration.Profiles[0].Rules[1].PathIn = tooLong;
    EXPECT_EQ(FindUnreadable(configuration), (Findings{{L"Alpha", 1, L"Input folder", Why::TextTooLong}}));
}

TEST(UnreadableQuestion, NamesPlaceFieldAndReason) {
    const Findings found{{L"", {}, L"Log path", Why::TextTooLong},
                         {L"a\\b", {}, L"Name", Why::Backslash},
                         {L"Alpha", 2, L"Description", Why::ZeroCharacter},
                         {L"Alpha", 0, L"Signer list 'x'", Why::NameTooLong},
                         {std::wstring(300, L'p'), {}, L"Name", Why::SharedKey},
                         {L"", {}, L"Additional file name extension 1", Why::Empty}};
    EXPECT_EQ(config::UnreadableQuestion(found),
              L"Some texts cannot be read back once they are saved:\r\n"
              L"\r\nLog path: longer than 519 characters"
              L"\r\nProfile 'a\\b', Name: holds a backslash"
              L"\r\nProfile 'Alpha', rule 3, Description: holds a zero character"
              L"\r\nProfile 'Alpha', rule 1, Signer list 'x': longer than 255 characters"
              L"\r\nProfile '" +
                  std::wstring(40, L'p') +
                  L"...', Name: differs from another name at most in case"
                  L"\r\nAdditional file name extension 1: empty"
                  L"\r\n\r\nSave anyway?");
}

TEST(UnreadableQuestion, NamesTenAndCountsTheOthers) {
    Findings found;
    std::wstring lines = L"Some texts cannot be read back once they are saved:\r\n";
    for (size_t i = 0; i < 10; ++i) {
        found.push_back({L"A", i, L"Mask 1", Why::TextTooLong});
        lines += L"\r\nProfile 'A', rule " + std::to_wstring(i + 1) + L", Mask 1: longer than 519 characters";
    }
    const std::wstring end = L"\r\n\r\nSave anyway?";
    EXPECT_EQ(config::UnreadableQuestion(found), lines + end);
    found.insert(found.end(), 2, {L"B", 0, L"Mask 1", Why::TextTooLong});
    EXPECT_EQ(config::UnreadableQuestion(found), lines + L"\r\nand 2 more" + end);
}

}  // namespace
