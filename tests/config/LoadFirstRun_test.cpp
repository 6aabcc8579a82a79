// The first start on a machine: there is no configuration, and loading makes a minimal one.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/TreeText.h"

namespace {

using tests::GoldenLibrary;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using tests::ServiceKey;
namespace code = platform::code;

const std::string serviceBefore = "LogPath = \"\"\nLog filesize = 4000\nLDAP = \"\"\n";
const std::string defaultBeforeItsStoreProfile =
    "AutoUseTSP = { \"0\" }\nAutoVerifyTSP = { \"0\" }\nNotAddCert = { \"0\" }\nNotCopyToLocal = { \"0\" }\n"
    "NotLoadCrl = { \"0\" }\nCrlUpdatePeriod = {}\nNoTSPisError = { \"0\" }\nNotUseLDAP = { \"1\" }\n"
    "ServerTSP = { \"0\" }\nUseAIA = { \"0\" }\nVerify File = 0\nVerify x file = 0\nVerify det file = 0\n"
    "Verify resign file = 0\nHandler timeout = 15\nRename conf files = 0\n";

std::string FirstService(const std::string& otherSettings = "") {
    return Key(ServiceKey) + serviceBefore + otherSettings + tests::BelowService("default") +
           defaultBeforeItsStoreProfile + "ZCSProfile = { \"Bank keys\" }\n" +
           tests::BelowService("default\\rules");
}

config::ServiceProfile FirstProfile() {
    config::ServiceProfile profile;
    profile.Name = L"default";
    profile.ServerTSP = {L"0"};
    profile.ZCSProfile = {L"Bank keys"};
    profile.NotUseLDAP = {1};
    profile.NotCopyToLocal = profile.AutoUseTSP = profile.AutoVerifyTSP = profile.NoTSPisError = {0};
    profile.UseAIA = profile.NotAddCert = profile.NotLoadCrl = {0};
    profile.CrlUpdatePeriod = {1};
    profile.HandlerTimeout = 15;
    return profile;
}

class FirstRun : public tests::ConfigTest {
  protected:
    // The names of the values written, in their order, with the last part of their key in front.
    std::vector<std::wstring> Written() {
        std::vector<std::wstring> names;
        for (const auto& call : Registry().Calls()) {
            if (call.call != RegistryCall::Set) continue;
            const size_t name = call.target.rfind(L'\\');
            names.push_back(call.target.substr(call.target.rfind(L'\\', name - 1) + 1));
        }
        return names;
    }
};

TEST_F(FirstRun, MakesOneProfileWithTheFirstStoreProfile) {
    SeedTrees(GoldenLibrary);
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Profiles, std::vector{FirstProfile()});
    EXPECT_EQ(loaded->Settings, config::GlobalSettings());
    EXPECT_EQ(loaded->CsProfiles.size(), 2U);
    EXPECT_EQ(DumpTrees(), tests::Canonical(GoldenLibrary + FirstService()));
}

TEST_F(FirstRun, KeepsTheSettingsThatItDoesNotWrite) {
    const std::string other = "SigExt = \"sig\"\nLastCrlUpdate = { \"Bank keys;;1\" }\n";
    SeedTrees(GoldenLibrary + Key(ServiceKey) + other +
              "LogPath = \"D:\\Old\"\nLog filesize = 9000\nLDAP = \"ldap://old\"\n");
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Settings.SigExt, L"sig");
    EXPECT_EQ(loaded->Settings.LogPath, L"");
    EXPECT_EQ(loaded->Settings.LogFilesize, 4000);
    EXPECT_EQ(DumpTrees(), tests::Canonical(GoldenLibrary + FirstService(other)));
}

TEST_F(FirstRun, IsNotRepeated) {
    SeedTrees(GoldenLibrary);
    const auto first = Load();
    Registry().ForgetCalls();
    EXPECT_EQ(Load(), first);
    EXPECT_EQ(Registry().CountOf(RegistryCall::Set), 0U);
}

TEST_F(FirstRun, WritesInAFixedOrder) {
    SeedTrees(GoldenLibrary);
    EXPECT_TRUE(Load());
    const std::vector<std::wstring> order{L"morcelservice\\LogPath",
                                          L"morcelservice\\Log filesize",
                                          L"morcelservice\\LDAP",
                                          L"default\\AutoUseTSP",
                                          L"default\\AutoVerifyTSP",
                                          L"default\\NotAddCert",
                                          L"default\\NotCopyToLocal",
                                          L"default\\NotLoadCrl",
                                          L"default\\CrlUpdatePeriod",
                                          L"default\\NoTSPisError",
                                          L"default\\NotUseLDAP",
                                          L"default\\ServerTSP",
                                          L"default\\UseAIA",
                                          L"default\\Verify File",
                                          L"default\\Verify x file",
                                          L"default\\Verify det file",
                                          L"default\\Verify resign file",
                                          L"default\\Handler timeout",
                                          L"default\\Rename conf files",
                                          L"default\\ZCSProfile"};
    EXPECT_EQ(Written(), order);
}

TEST_F(FirstRun, WithoutAStoreProfileItFailsBeforeNamingOne) {
    SeedTrees(Key(LibraryKey + "\\Profiles"));
    EXPECT_THROW(Load(), std::invalid_argument);
    EXPECT_EQ(Registry().OpenKeys(), 0U);
    EXPECT_EQ(DumpTrees(), tests::Canonical(Key(LibraryKey + "\\Profiles") + Key(ServiceKey) + serviceBefore +
                                            tests::BelowService("default") + defaultBeforeItsStoreProfile));
}

TEST_F(FirstRun, AStoreProfileWithoutNameIsWrittenAsZero) {
    SeedTrees(Key(LibraryKey + "\\Profiles\\1"));
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Profiles.at(0).ZCSProfile, std::vector<std::wstring>{L"0"});
}

TEST_F(FirstRun, KeysThatCannotBeMadeEndIt) {
    struct Case {
        RegistryCall call;
        const wchar_t* path;  // below the service's key
    };
    const Case cases[] = {{RegistryCall::Create, L""},
                          {RegistryCall::Create, L"\\default"},
                          {RegistryCall::Create, L"\\default\\rules"},
                          {RegistryCall::Open, L""},
                          {RegistryCall::Open, L"\\default"},
                          {RegistryCall::Open, L"\\default\\rules"}};
    for (const Case& c : cases) {
        SeedTrees(GoldenLibrary);
        const std::wstring path =
            std::wstring(L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice") + c.path;
        Registry().FailWhere(c.call, path, code::AccessDenied);
        ExpectReport(L"Create (open) register key " + path, code::AccessDenied);
        EXPECT_EQ(Load(), std::nullopt);
        EXPECT_EQ(Registry().OpenKeys(), 0U);
    }
}

TEST_F(FirstRun, ValuesThatCannotBeWrittenAreReportedAndItGoesOn) {
    SeedTrees(GoldenLibrary);
    Registry().FailWhere(RegistryCall::Set, L"", code::AccessDenied);
    for (const wchar_t* value : {L"string value 'LogPath'",
                                 L"integer value 'Log filesize'",
                                 L"string value 'LDAP'",
                                 L"multistring value 'AutoUseTSP'",
                                 L"multistring value 'AutoVerifyTSP'",
                                 L"multistring value 'NotAddCert'",
                                 L"multistring value 'NotCopyToLocal'",
                                 L"multistring value 'NotLoadCrl'",
                                 L"multistring value 'CrlUpdatePeriod'",
                                 L"multistring value 'NoTSPisError'",
                                 L"multistring value 'NotUseLDAP'",
                                 L"multistring value 'ServerTSP'",
                                 L"multistring value 'UseAIA'",
                                 L"integer value 'Verify File'",
                                 L"integer value 'Verify x file'",
                                 L"integer value 'Verify det file'",
                                 L"integer value 'Verify resign file'",
                                 L"integer value 'Handler timeout'",
                                 L"integer value 'Rename conf files'",
                                 L"multistring value 'ZCSProfile'"})
        ExpectReport(std::wstring(L"Writing ") + value + L" into register", code::AccessDenied);
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    config::ServiceProfile empty;
    empty.Name = L"default";
    EXPECT_EQ(loaded->Profiles, std::vector{empty});
}

}  // namespace
