// Where saving can fail: what is said, what is written all the same, and whether the configuration counts as
// saved.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/TreeText.h"

namespace {

using config::Configuration;
using config::Rule;
using config::ServiceProfile;
using tests::BelowService;
using tests::RegistryCall;
namespace code = platform::code;

const std::wstring service = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice";

Rule RuleOf(const std::wstring& age) {
    Rule rule;
    rule.Operation = L"CHCK";
    rule.PathIn = age;
    rule.Masks = {age};
    rule.SignerLists = {{L"First", {age}}, {L"Second", {age}}};
    return rule;
}

ServiceProfile ProfileOf(const std::wstring& name, const std::wstring& age) {
    ServiceProfile profile;
    profile.Name = name;
    profile.ServerTSP = {age};
    profile.HandlerTimeout = age == L"old" ? 1 : 2;
    profile.Rules = {RuleOf(age), RuleOf(age)};
    return profile;
}

// Profiles A, B and C with two rules each that have two signer lists each.
Configuration ConfigurationOf(const std::wstring& age) {
    Configuration configuration;
    configuration.Settings.SigExt = age;
    configuration.Settings.LogPath = age;
    for (const wchar_t* name : {L"A", L"B", L"C"}) configuration.Profiles.push_back(ProfileOf(name, age));
    return configuration;
}

class SaveFailures : public tests::ConfigTest {
  protected:
    void SetUp() override {
        SeedTrees(tests::Key(tests::LibraryKey + "\\Profiles") + tests::Key(tests::LibraryKey + "\\store\\2") +
                  tests::Key(tests::ServiceKey));
        ASSERT_TRUE(Save(ConfigurationOf(L"old")));
        before_ = Dump();
        Registry().ForgetCalls();
    }
    void Refuse(RegistryCall call, const std::wstring& targetEnd) {
        Registry().FailWhere(call, targetEnd, code::AccessDenied);
    }
    // The call is refused and reported; the save goes on without it.
    void SaveAround(RegistryCall call, const std::wstring& targetEnd, const std::wstring& report) {
        Refuse(call, targetEnd);
        ExpectReport(report, code::AccessDenied);
        EXPECT_TRUE(Save(new_));
    }
    // The same, and nothing has been written.
    void SaveInVain(RegistryCall call, const std::wstring& targetEnd, const std::wstring& report) {
        Refuse(call, targetEnd);
        ExpectReport(report, code::AccessDenied);
        EXPECT_FALSE(Save(new_));
        Registry().NoFaults();
        EXPECT_EQ(Dump(), before_);
    }
    // Refuses to open the service's key once, the next time after the creation of the other key.
    void RefuseServiceBehindCreating(const std::wstring& targetEnd) {
        Registry().SetFault([targetEnd, armed = std::make_shared<bool>(false)](size_t, const auto& call) {
            if (call.call == RegistryCall::Create && call.target.ends_with(targetEnd)) *armed = true;
            const bool fails = *armed && call.call == RegistryCall::Open && call.target == service;
            if (fails) *armed = false;
            return fails ? code::AccessDenied : code::Success;
        });
    }
    // The registry as it is read afterwards.
    Configuration Reloaded() {
        Registry().NoFaults();
        return Load().value_or(Configuration());
    }
    // Without its rules key a profile cannot be loaded.
    void GiveRulesKey(const std::string& profile) { Seed(BelowService(profile + "\\rules")); }
    bool KeyExists(const std::string& path) { return Dump().find(BelowService(path)) != std::string::npos; }

    Configuration new_ = ConfigurationOf(L"new");
    std::string before_;
};

TEST_F(SaveFailures, NoneOfThemWithoutFaults) {
    EXPECT_TRUE(Save(new_));
    EXPECT_EQ(Reloaded(), new_);
}

TEST_F(SaveFailures, TheLibrarysStore) {
    SaveInVain(RegistryCall::Open, L"\\store\\2",
               L"Create (open) register key HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\store\\2");
}

TEST_F(SaveFailures, TheServicesKey) {
    SaveInVain(RegistryCall::Open, L"\\morcelservice", L"Create (open) register key " + service);
}

TEST_F(SaveFailures, LookingForTheProfiles) {
    SaveInVain(RegistryCall::EnumerateSubkey, L"\\morcelservice", L"Search register key " + service + L" subkeys");
}

TEST_F(SaveFailures, DeletingAProfile) {
    new_.Profiles.erase(new_.Profiles.begin());
    Refuse(RegistryCall::DeleteSubkey, L"\\A\\rules\\Rule 1");
    ExpectReport(L"Delete register key " + service, 5);
    EXPECT_FALSE(Save(new_));
    EXPECT_EQ(Registry().CountOf(RegistryCall::Set), 1U) << "the record alone";
    Configuration expected = ConfigurationOf(L"old");
    expected.Profiles[0].Rules.pop_back();
    expected.Profiles[0].Rules[0].SignerLists.clear();
    // Rule 0 went before the failure; of Rule 1 the key with its values is left.
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, DeletingOneOfSeveralProfilesEndsItThere) {
    new_.Profiles.clear();
    Refuse(RegistryCall::DeleteSubkey, L"\\morcelservice\\B");
    ExpectReport(L"Delete register key " + service, 5);
    EXPECT_FALSE(Save(new_));
    Registry().NoFaults();
    EXPECT_FALSE(KeyExists("A"));
    EXPECT_TRUE(KeyExists("B"));
    EXPECT_FALSE(KeyExists("B\\rules"));
    EXPECT_TRUE(KeyExists("C\\rules\\Rule 1\\Second"));
}

TEST_F(SaveFailures, ASetting) {
    for (const wchar_t* name : {L"LogPath", L"SigExt"}) {
        SaveAround(RegistryCall::Set, std::wstring(L"\\") + name,
                   std::wstring(L"Writing string value '") + name + L"' into register");
        Configuration expected = new_;
        (name[0] == L'L' ? expected.Settings.LogPath : expected.Settings.SigExt) = L"old";
        EXPECT_EQ(Reloaded(), expected);
        EXPECT_TRUE(Save(ConfigurationOf(L"old")));
    }
}

TEST_F(SaveFailures, CreatingANewProfile) {
    new_.Profiles.insert(new_.Profiles.begin() + 1, ProfileOf(L"AB", L"new"));
    new_.Profiles.push_back(ProfileOf(L"D", L"new"));
    Refuse(RegistryCall::Create, L"\\morcelservice\\AB");
    ExpectReport(L"Create (open) register key " + service + L"\\AB", 5);
    ExpectReport(L"Create (open) register key " + service + L"\\AB",
                 code::FileNotFound);  // when it is to be written
    EXPECT_TRUE(Save(new_));
    Registry().NoFaults();
    EXPECT_FALSE(KeyExists("AB"));
    EXPECT_TRUE(KeyExists("D")) << "the next new profile is created all the same";
    EXPECT_FALSE(KeyExists("D\\rules")) << "but nothing is written behind the missing one";
    GiveRulesKey("D");
    Configuration expected = ConfigurationOf(L"old");
    expected.Settings = new_.Settings;
    expected.Profiles[0] = ProfileOf(L"A", L"new");
    expected.Profiles.emplace_back().Name = L"D";
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, OpeningTheServicesKeyBehindANewProfile) {
    new_.Profiles.push_back(ProfileOf(L"D", L"new"));
    new_.Profiles.push_back(ProfileOf(L"E", L"new"));
    RefuseServiceBehindCreating(L"\\morcelservice\\D");
    ExpectReport(L"Create (open) register key " + service, 5);
    EXPECT_TRUE(Save(new_));
    EXPECT_EQ(Reloaded(), new_);
}

TEST_F(SaveFailures, OpeningAProfileEndsTheWriting) {
    SaveAround(RegistryCall::Open, L"\\morcelservice\\B", L"Create (open) register key " + service + L"\\B");
    Configuration expected = new_;
    expected.Profiles[1] = ProfileOf(L"B", L"old");
    expected.Profiles[2] = ProfileOf(L"C", L"old");
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, AValueOfAProfile) {
    SaveAround(RegistryCall::Set, L"\\B\\ServerTSP", L"Writing multistring value 'ServerTSP' into register");
    Configuration expected = new_;
    expected.Profiles[1].ServerTSP = {L"old"};
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, DeletingTheFormerRulesEndsTheWriting) {
    SaveAround(RegistryCall::OpenSubkey, L"\\B\\rules", L"Delete register key " + service + L"\\B\\rules");
    Configuration expected = new_;
    expected.Profiles[1].Rules = {RuleOf(L"old"), RuleOf(L"old")};
    expected.Profiles[2] = ProfileOf(L"C", L"old");
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, DeletingTheFormerRulesHalfWayEndsTheWriting) {
    SaveAround(RegistryCall::DeleteSubkey, L"\\B\\rules\\Rule 1\\Second",
               L"Delete register key " + service + L"\\B\\rules");
    Configuration expected = new_;
    expected.Profiles[1].Rules = {RuleOf(L"old")};
    expected.Profiles[1].Rules[0].SignerLists.erase(expected.Profiles[1].Rules[0].SignerLists.begin());
    expected.Profiles[2] = ProfileOf(L"C", L"old");
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, CreatingTheRulesKeyEndsTheWriting) {
    SaveAround(RegistryCall::Create, L"\\B\\rules", L"Create (open) register key " + service + L"\\B\\rules");
    Registry().NoFaults();
    EXPECT_FALSE(KeyExists("B\\rules"));
    GiveRulesKey("B");
    Configuration expected = new_;
    expected.Profiles[1].Rules.clear();
    expected.Profiles[2] = ProfileOf(L"C", L"old");
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, CreatingARuleSkipsTheOtherRulesOfItsProfile) {
    for (const size_t failing : {0U, 1U}) {
        const std::wstring rule = L"\\B\\rules\\Rule " + std::to_wstring(failing);
        SaveAround(RegistryCall::Create, rule, L"Create (open) register key " + service + rule);
        Configuration expected = new_;
        expected.Profiles[1].Rules.resize(failing);
        EXPECT_EQ(Reloaded(), expected);
    }
}

TEST_F(SaveFailures, AValueOfARule) {
    SaveAround(RegistryCall::Set, L"\\B\\rules\\Rule 0\\Path In", L"Writing string value 'Path In' into register");
    Configuration expected = new_;
    expected.Profiles[1].Rules[0].PathIn.clear();
    EXPECT_EQ(Reloaded(), expected);
}

TEST_F(SaveFailures, CreatingASignerListSkipsTheOtherListsOfItsRule) {
    for (const wchar_t* name : {L"First", L"Second"}) {
        const std::wstring list = std::wstring(L"\\B\\rules\\Rule 0\\") + name;
        SaveAround(RegistryCall::Create, list, L"Create (open) register key " + service + list);
        Configuration expected = new_;
        expected.Profiles[1].Rules[0].SignerLists.resize(name[0] == L'F' ? 0 : 1);
        EXPECT_EQ(Reloaded(), expected);
    }
}

TEST_F(SaveFailures, OpeningTheServicesKeyBehindAProfile) {
    RefuseServiceBehindCreating(L"\\B\\rules\\Rule 1\\Second");
    ExpectReport(L"Create (open) register key " + service, 5);
    EXPECT_TRUE(Save(new_));
    EXPECT_EQ(Reloaded(), new_);
}

TEST_F(SaveFailures, EverySettingOfThemAtOnce) {
    Refuse(RegistryCall::Set, L"");
    new_.Profiles.clear();
    for (const wchar_t* value :
         {L"integer value 'Window_top'", L"integer value 'Window_bottom'", L"integer value 'Window_left'",
          L"integer value 'Window_right'", L"string value 'SigExt'", L"string value 'DsigExt'",
          L"string value 'EncExt'", L"string value 'B64Ext'", L"string value 'HashExt'",
          L"string value 'VerifyFileExt'", L"string value 'ZIPArchiveExt'", L"string value 'GZIPArchiveExt'",
          L"multistring value 'ExtExt'", L"string value 'LogPath'", L"integer value 'Log filesize'",
          L"string value 'LDAP'"})
        ExpectReport(std::wstring(L"Writing ") + value + L" into register", 5);
    EXPECT_TRUE(Save(new_));
}

}  // namespace
