// The library's CS profiles, as they are read from the user's part of the registry.
#include "config/Load.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/TreeText.h"

namespace {

using config::CsProfile;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using Profiles = std::vector<CsProfile>;
namespace code = platform::code;

class LoadCsProfilesTest : public tests::ConfigTest {
  protected:
    // Nothing when loading ended.
    std::optional<Profiles> LoadProfiles() {
        config::RegistryStore store(world_->Machine(), reporter_);
        return config::LoadCsProfiles(store, nullptr);
    }
    static std::string Profile(const std::string& key, const std::string& values) {
        return Key(LibraryKey + "\\Profiles\\" + key) + values;
    }
};

TEST_F(LoadCsProfilesTest, WhereTheStoresLie) {
    const std::wstring derived0 = L"pse://signed/C:\\keys\\local.pse";
    const std::wstring derived1 = L"file://C:\\keys\\local.gdbm";
    struct Case {
        const char* what;
        const char* values;
        std::wstring store0;
        std::wstring store1;
    };
    const Case cases[] = {
        {"both given", "store_0 = \"a\"\nstore_1 = \"b\"\nBasePath = \"C:\\keys\"\n", L"a", L"b"},
        {"the second empty", "store_0 = \"a\"\nstore_1 = \"\"\nBasePath = \"C:\\keys\"\n", derived0, derived1},
        {"the second missing", "store_0 = \"a\"\nBasePath = \"C:\\keys\"\n", derived0, derived1},
        {"the first empty", "store_0 = \"\"\nstore_1 = \"b\"\nBasePath = \"C:\\keys\"\n", derived0, derived1},
        {"the first missing", "store_1 = \"b\"\nBasePath = \"C:\\keys\"\n", derived0, derived1},
        {"both missing", "BasePath = \"C:\\keys\"\n", derived0, derived1},
        {"the first of a wrong type", "store_0 = 1\nstore_1 = \"b\"\nBasePath = \"C:\\keys\"\n", derived0, derived1},
        {"nothing at all", "", L"pse://signed/\\local.pse", L"file://\\local.gdbm"},
        {"per cent signs", "BasePath = \"%s%d\"\n", L"pse://signed/%s%d\\local.pse", L"file://%s%d\\local.gdbm"},
        {"zero is a location", "store_0 = \"0\"\nstore_1 = \"0\"\nBasePath = \"C:\\keys\"\n", L"0", L"0"},
    };
    for (const Case& c : cases) {
        SeedTrees(Profile("k", std::string("ProfileName = \"N\"\n") + c.values));
        EXPECT_EQ(LoadProfiles(), (Profiles{{L"N", c.store0, c.store1}})) << c.what;
    }
}

TEST_F(LoadCsProfilesTest, TheNameIsAValueAndTheKeysGiveTheOrder) {
    const std::string stores = "store_0 = \"a\"\nstore_1 = \"b\"\n";
    SeedTrees(Profile("c", "ProfileName = \"First\"\n" + stores) + Profile("B", "ProfileName = \"Twin\"\n" + stores) +
              Profile("a", "ProfileName = \"Twin\"\n" + stores) + Profile("d", stores));
    EXPECT_EQ(LoadProfiles(),
              (Profiles{{L"Twin", L"a", L"b"}, {L"Twin", L"a", L"b"}, {L"First", L"a", L"b"}, {L"", L"a", L"b"}}));
    EXPECT_EQ(config::CsProfileNames(*LoadProfiles()), (std::vector<std::wstring>{L"Twin", L"Twin", L"First", L""}));
}

TEST_F(LoadCsProfilesTest, NoProfilesIsNoFailure) {
    SeedTrees(Key(LibraryKey + "\\Profiles"));
    EXPECT_EQ(LoadProfiles(), Profiles{});
    EXPECT_EQ(config::CsProfileNames({}), std::vector<std::wstring>{});
}

TEST_F(LoadCsProfilesTest, NothingIsEverWritten) {
    SeedTrees(Profile("k", ""));
    LoadProfiles();
    for (const RegistryCall call : {RegistryCall::Create, RegistryCall::Set, RegistryCall::DeleteSubkey})
        EXPECT_EQ(Registry().CountOf(call), 0U);
}

TEST_F(LoadCsProfilesTest, KeyFailuresEndLoadingAfterOneReport) {
    const std::wstring path = L"HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles";
    const std::string two = Profile("a", "ProfileName = \"A\"\n") + Profile("b", "ProfileName = \"B\"\n");
    struct Case {
        RegistryCall call;
        std::wstring target;
        std::wstring report;
    };
    const Case cases[] = {
        {RegistryCall::Open, path, L"Create (open) register key " + path},
        {RegistryCall::EnumerateSubkey, path, L"Search register key " + path + L" subkeys"},
        {RegistryCall::Open, path + L"\\b", L"Create (open) register key " + path + L"\\b"},
    };
    for (const Case& c : cases) {
        SeedTrees(two);
        Registry().FailWhere(c.call, c.target, code::AccessDenied);
        ExpectReport(c.report, code::AccessDenied);
        EXPECT_EQ(LoadProfiles(), std::nullopt);
        EXPECT_EQ(Registry().OpenKeys(), 0U);
    }
}

TEST_F(LoadCsProfilesTest, ValuesThatCannotBeReadAreReportedAndStayEmpty) {
    const std::string full = Profile("k", "ProfileName = \"N\"\nstore_0 = \"a\"\nstore_1 = \"b\"\nBasePath = \"C:\"\n");
    struct Case {
        const wchar_t* value;
        CsProfile profile;
    };
    const Case cases[] = {
        {L"ProfileName", {L"", L"a", L"b"}},
        {L"store_0", {L"N", L"pse://signed/C:\\local.pse", L"file://C:\\local.gdbm"}},
        {L"store_1", {L"N", L"pse://signed/C:\\local.pse", L"file://C:\\local.gdbm"}},
    };
    for (const Case& c : cases) {
        SeedTrees(full);
        Registry().FailWhere(RegistryCall::Query, std::wstring(L"\\") + c.value, code::AccessDenied);
        ExpectReport(std::wstring(L"Reading string value '") + c.value + L"' from register", code::AccessDenied);
        EXPECT_EQ(LoadProfiles(), Profiles{c.profile});
    }
    SeedTrees(Profile("k", "ProfileName = \"N\"\nBasePath = \"C:\"\n"));
    Registry().FailWhere(RegistryCall::Query, L"\\BasePath", code::AccessDenied);
    ExpectReport(L"Reading string value 'BasePath' from register", code::AccessDenied);
    EXPECT_EQ(LoadProfiles(), (Profiles{{L"N", L"pse://signed/\\local.pse", L"file://\\local.gdbm"}}));
}

TEST_F(LoadCsProfilesTest, TheBasePathIsReadOnlyWhenItIsNeeded) {
    SeedTrees(Profile("k", "store_0 = \"a\"\nstore_1 = \"b\"\n"));
    LoadProfiles();
    EXPECT_EQ(Registry().CountOf(RegistryCall::Query), 3U);
    SeedTrees(Profile("k", "store_0 = \"a\"\n"));
    LoadProfiles();
    EXPECT_EQ(Registry().CountOf(RegistryCall::Query), 4U);
}

}  // namespace
