// Profiles that are new, renamed or deleted since the registry was read.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/TreeText.h"

namespace {

using tests::BelowService;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using tests::ServiceKey;
using Names = std::vector<std::wstring>;

// Each profile's key holds a value that no save writes, which tells a kept key from a new one.
std::string Existing(const std::string& name) {
    return BelowService(name) + "kept = 1\n" + BelowService(name + "\\rules\\Rule 0") +
           "Operation = \"ENCR\"\n" + BelowService(name + "\\rules\\Rule 0\\List") + "Signer Num = 0\n" +
           BelowService(name + "\\other\\deep") + "x = 1\n";
}

class SaveProfiles : public tests::ConfigTest {
  protected:
    // Saves profiles of these names, without rules, into a service with profiles "alpha", "Beta" and "gamma".
    bool SaveNames(const Names& names) {
        SeedTrees(Key(LibraryKey + "\\Profiles") + Existing("alpha") + Existing("Beta") + Existing("gamma"));
        config::Configuration configuration;
        for (const std::wstring& name : names) configuration.Profiles.emplace_back().Name = name;
        return Save(configuration);
    }
    // The profiles' keys in the registry, those that were there before with a star behind.
    Names Keys() {
        Registry().NoFaults();
        Names keys;
        config::RegistryStore store(world_->Machine(), reporter_);
        const std::wstring root = L"SOFTWARE\\TALVERON\\morcelservice";
        EXPECT_TRUE(store.Open(platform::RootKey::LocalMachine, root, {}));
        EXPECT_TRUE(store.EnumerateSubkeys(keys, {}));
        for (std::wstring& key : keys) {
            EXPECT_TRUE(store.Open(platform::RootKey::LocalMachine, root + L"\\" + key, {}));
            int32_t kept = 0;
            store.ReadInteger(L"kept", kept, {}, 0);
            if (kept != 0) key += L"*";
        }
        return keys;
    }
    // The last parts of the targets of these calls directly below the service's key.
    Names Targets(RegistryCall kind) {
        Names names;
        const std::wstring below = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\";
        for (const auto& call : Registry().Calls()) {
            if (call.call != kind || !call.target.starts_with(below)) continue;
            const std::wstring name = call.target.substr(below.size());
            if (name.find(L'\\') == std::wstring::npos) names.push_back(name);
        }
        return names;
    }
};

TEST_F(SaveProfiles, TheSameNamesKeepTheirKeys) {
    EXPECT_TRUE(SaveNames({L"alpha", L"Beta", L"gamma"}));
    EXPECT_EQ(Targets(RegistryCall::DeleteSubkey), Names{});
    EXPECT_EQ(Targets(RegistryCall::Create), Names{});
    EXPECT_EQ(Keys(), (Names{L"alpha*", L"Beta*", L"gamma*"}));
}

TEST_F(SaveProfiles, DeletedOnesGoWithEverythingBelow) {
    EXPECT_TRUE(SaveNames({L"Beta"}));
    EXPECT_EQ(Targets(RegistryCall::DeleteSubkey), (Names{L"alpha", L"gamma"})) << "in the registry's order";
    EXPECT_EQ(Keys(), Names{L"Beta*"});
}

TEST_F(SaveProfiles, AllCanBeDeleted) {
    EXPECT_TRUE(SaveNames({}));
    EXPECT_EQ(Keys(), Names{});
}

TEST_F(SaveProfiles, NewOnesAreCreatedInTheirOrder) {
    EXPECT_TRUE(SaveNames({L"zeta", L"alpha", L"Beta", L"delta", L"gamma"}));
    EXPECT_EQ(Targets(RegistryCall::Create), (Names{L"zeta", L"delta"}));
    EXPECT_EQ(Keys(), (Names{L"alpha*", L"Beta*", L"delta", L"gamma*", L"zeta"}));
}

TEST_F(SaveProfiles, ARenamedOneIsADeletedAndANewOne) {
    EXPECT_TRUE(SaveNames({L"alpha", L"renamed", L"gamma"}));
    EXPECT_EQ(Keys(), (Names{L"alpha*", L"gamma*", L"renamed"}));
}

TEST_F(SaveProfiles, NamesAreComparedWithTheirCase) {
    EXPECT_TRUE(SaveNames({L"alpha", L"beta", L"GAMMA"}));
    EXPECT_EQ(Targets(RegistryCall::DeleteSubkey), (Names{L"Beta", L"gamma"}));
    EXPECT_EQ(Targets(RegistryCall::Create), (Names{L"beta", L"GAMMA"}));
    EXPECT_EQ(Keys(), (Names{L"alpha*", L"beta", L"GAMMA"}));
}

TEST_F(SaveProfiles, DeletionComesFirstThenTheSettingsThenNewKeysThenTheProfiles) {
    EXPECT_TRUE(SaveNames({L"Beta", L"new"}));
    const auto& calls = Registry().Calls();
    const auto place = [&calls](RegistryCall kind, const std::wstring& end) {
        const auto found = std::find_if(calls.begin(), calls.end(), [&](const auto& call) {
            return call.call == kind && call.target.ends_with(end);
        });
        EXPECT_NE(found, calls.end());
        return found - calls.begin();
    };
    EXPECT_LT(place(RegistryCall::DeleteSubkey, L"\\gamma"), place(RegistryCall::Set, L"\\Window_top"));
    EXPECT_LT(place(RegistryCall::Set, L"\\LDAP"), place(RegistryCall::Create, L"\\new"));
    EXPECT_LT(place(RegistryCall::Create, L"\\new"), place(RegistryCall::Open, L"\\Beta"));
    EXPECT_LT(place(RegistryCall::Set, L"\\Beta\\Rename conf files"), place(RegistryCall::Open, L"\\new"));
}

}  // namespace
