// Profiles that are new, renamed or deleted since the registry was read; and what saving copies for the
// service out of the user's part of the registry: store locations and the LDAP name.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenModel.h"
#include "tests/config/GoldenTree.h"
#include "tests/config/TreeText.h"

namespace {

using tests::BelowService;
using tests::Key;
using tests::LibraryKey;
using tests::RegistryCall;
using tests::ServiceKey;
using Names = std::vector<std::wstring>;
using tests::Canonical;
using tests::GoldenModel;
using tests::GoldenTrees;
using tests::Replace;
namespace code = platform::code;

// Each profile's key holds a value that no save writes, which tells a kept key from a new one.
std::string Existing(const std::string& name) {
    return BelowService(name) + "kept = 1\n" + BelowService(name + "\\rules\\Rule 0") + "Operation = \"ENCR\"\n" +
           BelowService(name + "\\rules\\Rule 0\\List") + "Signer Num = 0\n" + BelowService(name + "\\other\\deep") +
           "x = 1\n";
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

const std::vector<config::CsProfile> csProfiles{{L"One", L"one0", L"one1"},
                                                {L"Twin", L"first0", L"first1"},
                                                {L"Other", L"other0", L"other1"},
                                                {L"Twin", L"last0", L"last1"},
                                                {L"", L"unnamed0", L"unnamed1"}};

class SaveStores : public tests::ConfigTest {
  protected:
    // The value in the saved rule, with its quotes; nothing when there is none.
    std::optional<std::string> Stored(const std::string& tree, const std::string& name) {
        const size_t at = tree.find("\n" + name + " = ");
        if (at == std::string::npos) return std::nullopt;
        const size_t value = at + name.size() + 4;
        return tree.substr(value, tree.find('\n', value) - value);
    }
    std::string SavedRule(const std::wstring& operation, const std::wstring& profile, const std::wstring& resign) {
        SeedTrees(Key(LibraryKey) + Key(ServiceKey));
        config::Configuration configuration;
        configuration.CsProfiles = csProfiles;
        configuration.Profiles.resize(1);
        configuration.Profiles[0].Name = L"P";
        config::Rule& rule = configuration.Profiles[0].Rules.emplace_back();
        rule.Operation = operation;
        rule.ZCSProfile = profile;
        rule.ResignProfile = resign;
        EXPECT_TRUE(Save(configuration));
        return Dump();
    }
};

TEST_F(SaveStores, EveryProfileOfThatNameGivesItsStoresSoThatTheLastOnesStay) {
    using Value = std::optional<std::string>;
    struct Case {
        const wchar_t* operation;
        const wchar_t* profile;
        const wchar_t* resign;
        Value pse, local, pse2, local2;
    };
    const Case cases[] = {
        {L"SIGN", L"One", L"", "\"one0\"", "\"one1\"", {}, {}},
        {L"SIGN", L"Twin", L"", "\"last0\"", "\"last1\"", {}, {}},
        {L"SIGN", L"Nobody", L"", {}, {}, {}, {}},
        {L"SIGN", L"one", L"", {}, {}, {}, {}},
        {L"SIGN", L"One ", L"", {}, {}, {}, {}},
        {L"DELE", L"", L"", "\"unnamed0\"", "\"unnamed1\"", {}, {}},
        {L"SIGN", L"One", L"Other", "\"one0\"", "\"one1\"", {}, {}},
        {L"RESG", L"One", L"Other", "\"one0\"", "\"one1\"", "\"other0\"", "\"other1\""},
        {L"RESG", L"One", L"One", "\"one0\"", "\"one1\"", "\"one0\"", "\"one1\""},
        {L"RESG", L"Other", L"Twin", "\"other0\"", "\"other1\"", "\"last0\"", "\"last1\""},
        {L"RESG", L"One", L"Nobody", "\"one0\"", "\"one1\"", {}, {}},
        {L"RESG", L"Nobody", L"One", {}, {}, "\"one0\"", "\"one1\""},
        {L"resg", L"One", L"Other", "\"one0\"", "\"one1\"", {}, {}},
    };
    for (const Case& c : cases) {
        const std::string tree = SavedRule(c.operation, c.profile, c.resign);
        SCOPED_TRACE(tree);
        EXPECT_EQ(Stored(tree, "PSE"), c.pse);
        EXPECT_EQ(Stored(tree, "LOCAL"), c.local);
        EXPECT_EQ(Stored(tree, "PSE2"), c.pse2);
        EXPECT_EQ(Stored(tree, "LOCAL2"), c.local2);
    }
}

TEST_F(SaveStores, EachMatchIsWritten) {
    SavedRule(L"RESG", L"Twin", L"Twin");
    size_t writes = 0;
    for (const auto& call : Registry().Calls())
        if (call.call == RegistryCall::Set &&
            (call.target.find(L"\\PSE") != std::wstring::npos || call.target.find(L"\\LOCAL") != std::wstring::npos))
            ++writes;
    EXPECT_EQ(writes, 8U);
}

TEST_F(SaveStores, StoresOfAFormerProfileGoWithTheFormerRule) {
    config::Configuration model = GoldenModel();
    model.Profiles[0].Rules[1].ZCSProfile = L"Gone";
    const std::string rule = ServiceKey + "\\Exchange\\rules\\Rule 1";
    std::string expected = Replace(GoldenTrees, rule, "ZCSProfile", "\"Gone\"");
    expected = tests::Without(tests::Without(expected, rule, "PSE"), rule, "LOCAL");
    SeedTrees(GoldenTrees);
    EXPECT_TRUE(Save(model));
    EXPECT_EQ(DumpTrees(), Canonical(expected));
}

TEST_F(SaveStores, LdapIsTheNameOfTheLibrarysStore) {
    const std::string store = LibraryKey + "\\store\\2";
    const std::pair<const char*, const char*> cases[] = {
        {"\"ldap://other\"", "\"ldap://other\""},
        {"\"\"", "\"\""},
        {"", "\"\""},
        {"7", "\"\""},
        {"hex(1): 61 00", "\"\""},
        {"hex(2): 25 00 00 00", "\"%\""},
    };
    for (const auto& [stored, written] : cases) {
        SeedTrees(Replace(GoldenTrees, store, "name", stored));
        EXPECT_TRUE(Save(GoldenModel()));
        EXPECT_EQ(DumpTrees(),
                  Canonical(Replace(Replace(GoldenTrees, store, "name", stored), ServiceKey, "LDAP", written)));
    }
}

TEST_F(SaveStores, LdapIsEmptyWithoutTheLibrarysStore) {
    const std::string library = Key(LibraryKey + "\\Profiles");
    for (const std::string& without : {library, library + Key(LibraryKey + "\\store")}) {
        SeedTrees(without + tests::GoldenService);
        EXPECT_TRUE(Save(GoldenModel()));
        EXPECT_EQ(DumpTrees(), Canonical(without + Replace(tests::GoldenService, ServiceKey, "LDAP", "\"\"")));
    }
}

TEST_F(SaveStores, ANameThatCannotBeReadIsReportedAndLdapIsEmpty) {
    const std::string tooLong =
        Replace(GoldenTrees, LibraryKey + "\\store\\2", "name", "\"" + std::string(600, 'x') + "\"");
    SeedTrees(tooLong);
    ExpectReport(L"Reading string value 'name' from register", code::MoreData);
    EXPECT_TRUE(Save(GoldenModel()));
    EXPECT_EQ(DumpTrees(), Canonical(Replace(tooLong, ServiceKey, "LDAP", "\"\"")));
}

TEST_F(SaveStores, AStoreThatCannotBeOpenedEndsTheSave) {
    for (const platform::Win32Code failure : {code::AccessDenied, code::PathNotFound, code::KeyDeleted}) {
        SeedTrees(GoldenTrees);
        Registry().FailWhere(RegistryCall::Open, L"\\store\\2", failure);
        ExpectReport(L"Create (open) register key HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\store\\2", failure);
        EXPECT_FALSE(Save(config::Configuration()));
        EXPECT_EQ(DumpTrees(), Canonical(GoldenTrees));
    }
}

}  // namespace
