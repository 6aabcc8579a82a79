// Loading the whole configuration: a full one, the very first one, and what older versions of the service
// left behind.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenModel.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/TreeText.h"

namespace {

using tests::BelowService;
using tests::GoldenLibrary;
using tests::GoldenTrees;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using tests::Replace;
using tests::ServiceKey;
using Texts = std::vector<std::wstring>;

class LoadTest : public tests::ConfigTest {
  protected:
    // Loads these trees, which must succeed.
    config::Configuration Loaded(const std::string& trees) {
        SeedTrees(trees);
        auto configuration = Load();
        EXPECT_TRUE(configuration);
        return configuration.value_or(config::Configuration());
    }
    // The rules of a profile whose "rules" key holds these keys and values.
    std::vector<config::Rule> LoadedRules(const std::string& rules) {
        const config::Configuration configuration =
            Loaded(Key(LibraryKey + "\\Profiles") + BelowService("P\\rules") + rules);
        return configuration.Profiles.empty() ? std::vector<config::Rule>() : configuration.Profiles[0].Rules;
    }
    config::Rule LoadedRule(const std::string& values) {
        const auto rules = LoadedRules(BelowService("P\\rules\\Rule 0") + values);
        return rules.empty() ? config::Rule() : rules[0];
    }
    // The path of each rule's input folder, for telling rules apart.
    Texts LoadedOrder(const std::vector<const char*>& keys) {
        std::string trees;
        for (const char* key : keys)
            trees += BelowService("P\\rules\\" + std::string(key)) + "Path In = \"" + key + "\"\n";
        Texts order;
        for (const config::Rule& rule : LoadedRules(trees)) order.emplace_back(rule.PathIn);
        return order;
    }
};

TEST_F(LoadTest, AFullConfiguration) {
    EXPECT_EQ(Loaded(GoldenTrees), tests::GoldenModel());
}

TEST_F(LoadTest, ChangesNothing) {
    Loaded(GoldenTrees);
    EXPECT_EQ(Registry().CountOf(RegistryCall::Set), 0U);
    EXPECT_EQ(Registry().CountOf(RegistryCall::DeleteSubkey), 0U);
    EXPECT_EQ(DumpTrees(), tests::Canonical(GoldenTrees));
}

TEST_F(LoadTest, WithoutTheLibrarysKeyTheProgramCannotStart) {
    SeedTrees(Key(LibraryKey) + tests::GoldenService);
    ExpectReport(L"Create (open) register key HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles", 2);
    EXPECT_EQ(Load(), std::nullopt);
    EXPECT_EQ(DumpTrees(), tests::Canonical(Key(LibraryKey) + tests::GoldenService)) << "it must not be created";
}

TEST_F(LoadTest, WithoutStoreProfilesAnExistingConfigurationLoads) {
    config::Configuration expected = tests::GoldenModel();
    expected.CsProfiles.clear();
    EXPECT_EQ(Loaded(Key(LibraryKey + "\\Profiles") + tests::GoldenService), expected);
}

TEST_F(LoadTest, ProfilesComeInAlphabeticalOrder) {
    const config::Configuration loaded = Loaded(Key(LibraryKey + "\\Profiles") + BelowService("b\\rules") +
                                                BelowService("C\\rules") + BelowService("A\\rules"));
    ASSERT_EQ(loaded.Profiles.size(), 3U);
    EXPECT_EQ(loaded.Profiles[0].Name, L"A");
    EXPECT_EQ(loaded.Profiles[1].Name, L"b");
    EXPECT_EQ(loaded.Profiles[2].Name, L"C");
}

TEST_F(LoadTest, AProfileWithoutRulesKeyEndsTheProgram) {
    SeedTrees(Key(LibraryKey + "\\Profiles") + BelowService("A\\rules") + BelowService("B"));
    ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\B\\rules", 2);
    EXPECT_EQ(Load(), std::nullopt);
}

TEST_F(LoadTest, ALogFileIsNeverSmallerThan400) {
    const std::pair<const char*, int32_t> cases[] = {
        {"100", 400}, {"399", 400}, {"400", 400}, {"401", 401},
        {"0", 400},   {"-5", 400},  {"", 4000},   {"2147483647", 2147483647}};
    for (const auto& [stored, expected] : cases)
        EXPECT_EQ(Loaded(Replace(GoldenTrees, ServiceKey, "Log filesize", stored)).Settings.LogFilesize, expected);
}

TEST_F(LoadTest, PeriodsAreFilledUpToTheLengthOfTheirList) {
    const std::string profile = Key(LibraryKey + "\\Profiles") + BelowService("P\\rules") + BelowService("P");
    using Numbers = std::vector<int32_t>;
    struct Case {
        const char* values;
        Numbers periods;
    };
    const Case cases[] = {
        {"NotLoadCrl = { \"0\", \"1\", \"0\" }\n", {1, 1, 1}},
        {"NotLoadCrl = { \"0\", \"1\", \"0\" }\nCrlUpdatePeriod = {}\n", {1, 1, 1}},
        {"NotLoadCrl = { \"0\", \"1\", \"0\" }\nCrlUpdatePeriod = { \"24\" }\n", {24, 1, 1}},
        {"NotLoadCrl = { \"0\" }\nCrlUpdatePeriod = { \"24\" }\n", {24}},
        {"NotLoadCrl = { \"0\" }\nCrlUpdatePeriod = { \"24\", \"0\", \"-1\" }\n", {24, 0, -1}},
        {"CrlUpdatePeriod = { \"24\" }\n", {24}},
        {"", {}},
    };
    for (const Case& c : cases) {
        const config::Configuration loaded = Loaded(profile + c.values);
        EXPECT_EQ(loaded.Profiles.at(0).CrlUpdatePeriod, c.periods) << c.values;
    }
}

TEST_F(LoadTest, TheOtherListsAreTakenAsStored) {
    const config::Configuration loaded =
        Loaded(Key(LibraryKey + "\\Profiles") + BelowService("P\\rules") + BelowService("P") +
               "ZCSProfile = { \"a\", \"b\", \"c\" }\nUseAIA = { \"1\" }\n");
    config::ServiceProfile expected;
    expected.Name = L"P";
    expected.ZCSProfile = {L"a", L"b", L"c"};
    expected.UseAIA = {1};
    EXPECT_EQ(loaded.Profiles, std::vector{expected});
}

TEST_F(LoadTest, RulesComeInTheOrderOfTheirNumbers) {
    EXPECT_EQ(LoadedOrder({"Rule 1", "Rule 10", "Rule 2"}), (Texts{L"Rule 1", L"Rule 2", L"Rule 10"}));
    EXPECT_EQ(LoadedOrder({"Rule 10", "Rule 2"}), (Texts{L"Rule 10", L"Rule 2"})) << "two are never exchanged";
    EXPECT_EQ(LoadedOrder({"Rule 5"}), (Texts{L"Rule 5"}));
    EXPECT_EQ(LoadedOrder({"A 3", "B 2", "C 1"}), (Texts{L"B 2", L"C 1", L"A 3"})) << "one pass is one too few";
    EXPECT_EQ(LoadedOrder({"Extra", "Rule 0", "Rule 7", "Rule 20"}),
              (Texts{L"Extra", L"Rule 0", L"Rule 7", L"Rule 20"}));
}

TEST_F(LoadTest, ARuleWithoutValuesHasOneEmptyMask) {
    config::Rule expected;
    expected.Masks = {L""};
    EXPECT_EQ(LoadedRule(""), expected);
}

TEST_F(LoadTest, TheOlderSingleMaskCountsOnlyWhenThereAreNoNumberedOnes) {
    config::Rule older;
    older.Mask = L"*.txt";
    older.Masks = {L"*.txt"};
    EXPECT_EQ(LoadedRule("Mask = \"*.txt\"\n"), older);
    EXPECT_EQ(LoadedRule("Mask num = 0\nMask = \"*.txt\"\nM0 = \"*.xml\"\n"), older);
    EXPECT_EQ(LoadedRule("Mask num = 1\nMask = \"*.txt\"\nM0 = \"*.xml\"\n").Masks, Texts{L"*.xml"});
    EXPECT_EQ(LoadedRule("Mask num = 1\nMask = \"*.txt\"\nM0 = \"*.xml\"\n").Mask, L"");
}

TEST_F(LoadTest, TheFirstCertificateMayBeAnOlderFolderOrProfile) {
    const std::string certificates = "Ext num = 2\nC0 = \"first\"\nC1 = \"second\"\n";
    struct Case {
        const char* values;
        const wchar_t* pathOut2;
        const wchar_t* resignProfile;
    };
    const Case cases[] = {
        {"Operation = \"MOVE\"\n", L"first", L""},
        {"Operation = \"MOVE\"\nPath Out 2 = \"\"\n", L"first", L""},
        {"Operation = \"MOVE\"\nPath Out 2 = \"0\"\n", L"0", L""},
        {"Operation = \"MOVE\"\nPath Out 2 = \"own\"\n", L"own", L""},
        {"Operation = \"RESG\"\n", L"", L"first"},
        {"Operation = \"RESG\"\nResignProfile = \"own\"\n", L"", L"own"},
        {"Operation = \"ENCR\"\n", L"", L""},
        {"Operation = \"move\"\n", L"", L""},
        {"", L"", L""},
    };
    for (const Case& c : cases) {
        const config::Rule rule = LoadedRule(c.values + certificates);
        EXPECT_EQ(rule.PathOut2, c.pathOut2) << c.values;
        EXPECT_EQ(rule.ResignProfile, c.resignProfile) << c.values;
        EXPECT_EQ(rule.Certificates, (Texts{L"first", L"second"})) << "the certificate stays: " << c.values;
    }
    EXPECT_EQ(LoadedRule("Operation = \"MOVE\"\nC0 = \"first\"\n").PathOut2, L"") << "there is no certificate";
    EXPECT_EQ(LoadedRule("Operation = \"RESG\"\nC0 = \"first\"\n").ResignProfile, L"");
}

TEST_F(LoadTest, ArchivesHaveAKind) {
    struct Case {
        const char* values;
        int32_t zipFile;
    };
    const Case cases[] = {
        {"Operation = \"ARCH\"\n", 1},
        {"Operation = \"ARCH\"\nZipFile = 0\n", 1},
        {"Operation = \"ARCH\"\nZipFile = 2\n", 2},
        {"Operation = \"UNAR\"\n", 1},
        {"Operation = \"UNAR\"\nZipFile = 2\n", 2},
        {"Operation = \"ENCR\"\nZipFile = 0\n", 0},
        {"Operation = \"PACK\"\n", 0},
        {"Operation = \"arch\"\n", 0},
        {"ZipFile = 7\n", 7},
    };
    for (const Case& c : cases) EXPECT_EQ(LoadedRule(c.values).ZipFile, c.zipFile) << c.values;
}

TEST_F(LoadTest, SignerListsComeInAlphabeticalOrderWhateverTheirNumbers) {
    const auto rules =
        LoadedRules(BelowService("P\\rules\\Rule 0\\List 10") + "Signer Num = 1\nS0 = \"ten\"\n" +
                    BelowService("P\\rules\\Rule 0\\List 2") + "Signer Num = 2\nS0 = \"two\"\nS1 = \"too\"\n" +
                    BelowService("P\\rules\\Rule 0\\List 1"));
    ASSERT_EQ(rules.size(), 1U);
    const std::vector<config::SignerListEntry> expected{
        {L"List 1", {}}, {L"List 10", {L"ten"}}, {L"List 2", {L"two", L"too"}}};
    EXPECT_EQ(rules[0].SignerLists, expected);
}

}  // namespace
