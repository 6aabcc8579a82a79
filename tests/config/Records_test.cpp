// The records of the configuration: their defaults, their lists of fields, and that they are plain values.
#include "config/Records.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/config/Fields.h"
#include "tests/config/GoldenModel.h"

namespace {

using tests::FieldsOf;
using Texts = std::vector<std::wstring>;

template <class Record>
Texts NamesOf(Record record) {
    Texts names;
    for (const tests::Field& field : FieldsOf(record)) names.push_back(field.name);
    return names;
}

TEST(Records, ANewProfileHasATimeoutAndNothingElse) {
    config::ServiceProfile profile;
    EXPECT_EQ(profile.HandlerTimeout, 15);
    EXPECT_EQ(profile.Name, L"");
    EXPECT_TRUE(profile.Rules.empty());
    for (const tests::Field& field : FieldsOf(profile)) {
        EXPECT_EQ(field.IsEmptyOrZero(), field.name != L"Handler timeout") << testing::PrintToString(field.name);
    }
}

TEST(Records, ANewRuleIsEmpty) {
    config::Rule rule;
    EXPECT_EQ(rule.Mask, L"");
    EXPECT_TRUE(rule.SignerLists.empty());
    for (const tests::Field& field : FieldsOf(rule)) {
        EXPECT_TRUE(field.IsEmptyOrZero()) << testing::PrintToString(field.name);
    }
}

TEST(Records, NewSettingsHaveTheServicesExtensions) {
    const config::GlobalSettings settings;
    EXPECT_EQ(settings.SigExt, L"p7s");
    EXPECT_EQ(settings.DsigExt, L"p7d");
    EXPECT_EQ(settings.EncExt, L"p7e");
    EXPECT_EQ(settings.B64Ext, L"b64");
    EXPECT_EQ(settings.HashExt, L"hsh");
    EXPECT_EQ(settings.VerifyFileExt, L"vrf");
    EXPECT_EQ(settings.ZIPArchiveExt, L"zip");
    EXPECT_EQ(settings.GZIPArchiveExt, L"gz");
    EXPECT_EQ(settings.ExtExt, Texts{});
    EXPECT_EQ(settings.LogPath, L"");
    EXPECT_EQ(settings.LogFilesize, 4000);
    EXPECT_EQ(settings.WindowTop, 0);
    EXPECT_EQ(settings.WindowBottom, 0);
    EXPECT_EQ(settings.WindowLeft, 0);
    EXPECT_EQ(settings.WindowRight, 0);
}

TEST(Records, FieldsHaveTheRegistrysNames) {
    EXPECT_EQ(NamesOf(config::GlobalSettings()),
              (Texts{L"Window_top", L"Window_bottom", L"Window_left", L"Window_right", L"SigExt", L"DsigExt", L"EncExt",
                     L"B64Ext", L"HashExt", L"VerifyFileExt", L"ZIPArchiveExt", L"GZIPArchiveExt", L"ExtExt",
                     L"LogPath", L"Log filesize"}));
    EXPECT_EQ(
        NamesOf(config::ServiceProfile()),
        (Texts{L"ServerTSP", L"ZCSProfile", L"NotUseLDAP", L"NotCopyToLocal", L"AutoUseTSP", L"AutoVerifyTSP",
               L"NoTSPisError", L"UseAIA", L"NotAddCert", L"NotLoadCrl", L"CrlUpdatePeriod", L"Verify File",
               L"Verify x file", L"Verify det file", L"Verify resign file", L"Handler timeout", L"Rename conf files"}));
    EXPECT_EQ(
        NamesOf(config::Rule()),
        (Texts{L"Operation",  L"Path In",       L"Path Out",      L"Path Out 2",     L"Path Error",  L"DelExt",
               L"AddExt",     L"Folders",       L"Copyfolders",   L"ArchCount",      L"ArchSize",    L"ArchTimeout",
               L"ArchName",   L"ExecName",      L"ExecTimeout",   L"Mask num",       L"Ext num",     L"Is on",
               L"ZCSProfile", L"ResignProfile", L"In format det", L"Out format det", L"Descryption", L"ZipFile"}));
}

TEST(Records, EditingACopyLeavesTheSourceUnchanged) {
    const config::ServiceProfile source = tests::GoldenExchange();
    config::ServiceProfile copy = source;
    EXPECT_EQ(copy, source);
    copy.Rules[0].SignerLists[0].Signers.push_back(L"CN=New");
    copy.Rules[0].SignerLists[0].Name = L"Renamed";
    copy.Rules[1].Masks.clear();
    copy.Rules[1].Certificates[0] = L"CN=Other";
    copy.ZCSProfile.pop_back();
    EXPECT_EQ(source, tests::GoldenExchange());
}

TEST(Records, EveryFieldCountsInAComparison) {
    const config::Rule rule;
    config::Rule full = tests::GoldenExecRule();
    for (size_t i = 0; i < FieldsOf(full).size(); ++i) {
        config::Rule changed = rule;
        FieldsOf(changed)[i].TakeFrom(FieldsOf(full)[i]);
        EXPECT_NE(changed, rule) << i;
    }
    config::Rule changed = rule;
    changed.Mask = L"*";
    EXPECT_NE(changed, rule);
    changed = rule;
    changed.SignerLists = {{L"a", {}}};
    EXPECT_NE(changed, rule);
}

TEST(Records, CertificatesAreComparedWithTheirCase) {
    EXPECT_NE((config::SignerListEntry{L"a", {L"CN=x"}}), (config::SignerListEntry{L"a", {L"cn=X"}}));
    EXPECT_NE((config::SignerListEntry{L"a", {}}), (config::SignerListEntry{L"A", {}}));
}

}  // namespace
