// Saving the whole configuration: what the registry holds afterwards, value for value.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "config/Operations.h"
#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenModel.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/TreeText.h"

namespace {

using tests::BelowService;
using tests::Canonical;
using tests::GoldenLibrary;
using tests::GoldenModel;
using tests::GoldenTrees;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using tests::Replace;
using tests::ServiceKey;
using Texts = std::vector<std::wstring>;
namespace code = platform::code;

class SaveTest : public tests::ConfigTest {
  protected:
    // The trees after saving into these ones.
    std::string Saved(const config::Configuration& configuration, const std::string& into) {
        SeedTrees(into);
        EXPECT_TRUE(Save(configuration));
        return DumpTrees();
    }
    // One profile "P" with these rules.
    static config::Configuration WithRules(std::vector<config::Rule> rules) {
        config::Configuration configuration;
        configuration.CsProfiles = tests::GoldenCsProfiles();
        configuration.Profiles.resize(1);
        configuration.Profiles[0].Name = L"P";
        configuration.Profiles[0].Rules = std::move(rules);
        return configuration;
    }
    static config::Rule RuleOf(const std::wstring& operation) {
        config::Rule rule;
        rule.Operation = operation;
        rule.Masks = {L"*." + operation};
        return rule;
    }
    // The names of the values written below the path, in their order.
    Texts WrittenBelow(const std::wstring& path) {
        Texts names;
        const std::wstring beginning = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\" + path + L"\\";
        for (const auto& call : Registry().Calls())
            if (call.call == RegistryCall::Set && call.target.starts_with(beginning))
                names.push_back(call.target.substr(beginning.size()));
        return names;
    }
};

const std::string emptyService = Key(ServiceKey);

TEST_F(SaveTest, AFullConfigurationIntoAnEmptyService) {
    EXPECT_EQ(Saved(GoldenModel(), GoldenLibrary + emptyService), Canonical(GoldenTrees));
}

TEST_F(SaveTest, AFullConfigurationOverItself) {
    EXPECT_EQ(Saved(GoldenModel(), GoldenTrees), Canonical(GoldenTrees));
    EXPECT_TRUE(Save(GoldenModel()));
    EXPECT_EQ(DumpTrees(), Canonical(GoldenTrees)) << "a second save changes nothing";
}

TEST_F(SaveTest, TheServicesKeyIsNotCreated) {
    SeedTrees(GoldenLibrary);
    ExpectReport(L"Create (open) register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice",
                 code::FileNotFound);
    EXPECT_FALSE(Save(GoldenModel()));
    EXPECT_EQ(DumpTrees(), Canonical(GoldenLibrary));
}

TEST_F(SaveTest, SettingsComeInTheirOrderAndLdapLast) {
    SeedTrees(GoldenLibrary + emptyService);
    EXPECT_TRUE(Save(config::Configuration()));
    Texts names;
    for (const auto& call : Registry().Calls())
        if (call.call == RegistryCall::Set) names.push_back(call.target.substr(call.target.rfind(L'\\') + 1));
    EXPECT_EQ(names, (Texts{L"Unfinished save", L"Window_top", L"Window_bottom", L"Window_left", L"Window_right",
                            L"SigExt", L"DsigExt", L"EncExt", L"B64Ext", L"HashExt", L"VerifyFileExt", L"ZIPArchiveExt",
                            L"GZIPArchiveExt", L"ExtExt", L"LogPath", L"Log filesize", L"LDAP"}));
}

TEST_F(SaveTest, ProfilesAndRulesComeInTheirOrder) {
    SeedTrees(GoldenLibrary + emptyService);
    EXPECT_TRUE(Save(GoldenModel()));
    EXPECT_EQ(
        WrittenBelow(L"Reports"),
        (Texts{L"ServerTSP", L"ZCSProfile", L"NotUseLDAP", L"NotCopyToLocal", L"AutoUseTSP", L"AutoVerifyTSP",
               L"NoTSPisError", L"UseAIA", L"NotAddCert", L"NotLoadCrl", L"CrlUpdatePeriod", L"Verify File",
               L"Verify x file", L"Verify det file", L"Verify resign file", L"Handler timeout", L"Rename conf files"}));
    EXPECT_EQ(WrittenBelow(L"Exchange\\rules\\Rule 0"), (Texts{L"Operation",
                                                               L"Path In",
                                                               L"Path Out",
                                                               L"Path Out 2",
                                                               L"Path Error",
                                                               L"DelExt",
                                                               L"AddExt",
                                                               L"Folders",
                                                               L"Copyfolders",
                                                               L"ArchCount",
                                                               L"ArchSize",
                                                               L"ArchTimeout",
                                                               L"ArchName",
                                                               L"ExecName",
                                                               L"ExecTimeout",
                                                               L"Mask num",
                                                               L"M0",
                                                               L"M1",
                                                               L"Ext num",
                                                               L"Is on",
                                                               L"ZCSProfile",
                                                               L"ResignProfile",
                                                               L"In format det",
                                                               L"Out format det",
                                                               L"Descryption",
                                                               L"ZipFile",
                                                               L"PSE",
                                                               L"LOCAL",
                                                               L"PSE2",
                                                               L"LOCAL2",
                                                               L"C0",
                                                               L"C1",
                                                               L"Chiefs\\Signer Num",
                                                               L"Chiefs\\S0",
                                                               L"Chiefs\\S1",
                                                               L"Nobody\\Signer Num"}));
}

TEST_F(SaveTest, ARuleWithoutOperationIsSkippedButUsesItsNumberUp) {
    const auto rules = std::vector{RuleOf(L"ENCR"), RuleOf(L""), RuleOf(L"DECR")};
    const std::string saved = Saved(WithRules(rules), GoldenLibrary + emptyService);
    EXPECT_NE(saved.find(BelowService("P\\rules\\Rule 0")), std::string::npos);
    EXPECT_EQ(saved.find("Rule 1"), std::string::npos);
    EXPECT_NE(saved.find(BelowService("P\\rules\\Rule 2")), std::string::npos);
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Profiles.at(0).Rules, (std::vector{RuleOf(L"ENCR"), RuleOf(L"DECR")}));
}

TEST_F(SaveTest, RulesAreWrittenFromScratch) {
    const std::string rest =
        BelowService("Exchange\\rules\\Rule 0") + "Mask = \"*.old\"\nunknown = 1\nM7 = \"left over\"\n" +
        BelowService("Exchange\\rules\\Rule 0\\Former list\\deep\\deeper") + "x = 1\n" +
        BelowService("Exchange\\rules\\Rule 9") + "Operation = \"ENCR\"\n" +
        BelowService("Exchange\\rules\\strange key") + BelowService("Reports\\rules") + "value = 1\n";
    EXPECT_EQ(Saved(GoldenModel(), GoldenTrees + rest), Canonical(GoldenTrees));
}

TEST_F(SaveTest, WhatItDoesNotWriteSurvives) {
    const std::string rest = Key(ServiceKey) +
                             "LastCrlUpdate = { \"Bank keys;;1763712000\" }\nunknown = hex(3): 01 02\n" +
                             BelowService("Exchange") + "unknown = \"text\"\n" + BelowService("Exchange\\other\\deep") +
                             "x = 1\n" + Key(LibraryKey + "\\Profiles\\1") + "unknown = 5\n";
    EXPECT_EQ(Saved(GoldenModel(), GoldenTrees + rest), Canonical(GoldenTrees + rest));
}

TEST_F(SaveTest, AnOlderRuleIsBroughtUpToDate) {
    SeedTrees(Key(LibraryKey + "\\Profiles") + BelowService("P\\rules\\Rule 4") +
              "Operation = \"MOVE\"\nMask = \"*.txt\"\nExt num = 1\nC0 = \"C:\\Second\"\n");
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(Save(*loaded));
    const std::string saved = Dump();
    EXPECT_NE(saved.find(BelowService("P\\rules\\Rule 0")), std::string::npos);
    EXPECT_NE(saved.find("\nMask num = 1\n"), std::string::npos);
    EXPECT_NE(saved.find("\nM0 = \"*.txt\"\n"), std::string::npos);
    EXPECT_NE(saved.find("\nPath Out 2 = \"C:\\Second\"\n"), std::string::npos);
    EXPECT_NE(saved.find("\nC0 = \"C:\\Second\"\n"), std::string::npos);
    EXPECT_EQ(saved.find("\nMask = "), std::string::npos);
    EXPECT_EQ(saved.find("Rule 4"), std::string::npos);
}

TEST_F(SaveTest, EmptyTextsInListsOfTextsBecomeZero) {
    config::Configuration model = GoldenModel();
    model.Profiles[0].ServerTSP = {L"", L"http://tsp"};
    model.Profiles[0].ZCSProfile = {L"Bank keys", L""};
    model.Settings.ExtExt = {L"csv", L"", L"edi"};
    std::string expected = Replace(GoldenTrees, ServiceKey + "\\Exchange", "ServerTSP", "{ \"0\", \"http://tsp\" }");
    expected = Replace(expected, ServiceKey + "\\Exchange", "ZCSProfile", "{ \"Bank keys\", \"0\" }");
    // The extensions are written as they are, although an empty one ends the list for whoever reads it.
    expected =
        Replace(expected, ServiceKey, "ExtExt", "hex(7): 63 00 73 00 76 00 00 00 00 00 65 00 64 00 69 00 00 00 00 00");
    EXPECT_EQ(Saved(model, GoldenTrees), Canonical(expected));
}

TEST_F(SaveTest, NumbersAreWrittenWhateverTheyAre) {
    config::Configuration model = GoldenModel();
    model.Profiles[0].NotLoadCrl = {-1, 2147483647};
    model.Profiles[0].HandlerTimeout = -2147483647 - 1;
    model.Settings.LogFilesize = 3;
    model.Settings.WindowTop = -8;
    std::string expected = Replace(GoldenTrees, ServiceKey + "\\Exchange", "NotLoadCrl", "{ \"-1\", \"2147483647\" }");
    expected = Replace(expected, ServiceKey + "\\Exchange", "Handler timeout", "-2147483648");
    expected = Replace(expected, ServiceKey, "Log filesize", "3");
    expected = Replace(expected, ServiceKey, "Window_top", "-8");
    EXPECT_EQ(Saved(model, GoldenTrees), Canonical(expected));
}

TEST_F(SaveTest, EveryOperationWritesEveryValue) {
    for (const config::Operation& operation : config::Operations()) {
        config::Rule rule = tests::GoldenExecRule();
        rule.Operation = operation.code;
        SeedTrees(GoldenLibrary + emptyService);
        EXPECT_TRUE(Save(WithRules({rule})));
        const size_t resignStores = operation.code == L"RESG" ? 2 : 0;
        EXPECT_EQ(WrittenBelow(L"P\\rules\\Rule 0").size(), 24U + 1 + 1 + 2 + 2 + resignStores)
            << testing::PrintToString(operation.code);
        config::Configuration expected = WithRules({rule});
        EXPECT_EQ(Load(), expected) << testing::PrintToString(operation.code);
    }
}

}  // namespace
