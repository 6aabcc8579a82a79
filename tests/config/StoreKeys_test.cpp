// The current key of the registry store: what makes a key current, and what leaves the former one in place.
// Deleting a key with everything below it, and what is left when a step of it fails.
#include "config/RegistryStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "tests/config/StoreTest.h"

namespace {

using platform::RootKey;
using tests::RegistryCall;
using Names = std::vector<std::wstring>;
namespace code = platform::code;

constexpr wchar_t otherPath[] = L"SOFTWARE\\TALVERON\\morcelservice\\other";
const std::wstring otherKey = std::wstring(L"HKEY_LOCAL_MACHINE\\") + otherPath;

class StoreKeys : public tests::StoreTest {
  protected:
    // Where a written value arrives tells which key is current.
    void Mark(const wchar_t* name) { EXPECT_TRUE(Store().WriteInteger(name, 1, {})); }
    void SeedOther() { Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\other]\n"); }
    // Reports name the key with its root.
    void ExpectNoKey(const std::wstring& path, platform::Win32Code code = code::FileNotFound) {
        ExpectReport(L"Create (open) register key " + path, code);
    }
    size_t Closed() { return Registry().CountOf(RegistryCall::Close); }
};

TEST_F(StoreKeys, AnOpenedKeyBecomesCurrentAndTheFormerOneIsClosed) {
    SeedOther();
    Registry().ForgetCalls();
    EXPECT_TRUE(Store().Open(RootKey::LocalMachine, otherPath, {}));
    EXPECT_EQ(Registry().OpenKeys(), 1U);
    EXPECT_EQ(Closed(), 1U);
    Mark(L"mark");
    EXPECT_EQ(DumpMachine(otherPath), "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\other]\nmark = 1\n");
    EXPECT_EQ(DumpKey(), KeyWith(""));
}

TEST_F(StoreKeys, AMissingKeyLeavesTheFormerOneCurrent) {
    ExpectNoKey(otherKey);
    EXPECT_FALSE(Store().Open(RootKey::LocalMachine, otherPath, {}));
    EXPECT_EQ(Closed(), 0U);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("mark = 1\n"));
}

TEST_F(StoreKeys, OpeningNeverCreates) {
    ExpectNoKey(otherKey);
    EXPECT_FALSE(Store().Open(RootKey::LocalMachine, otherPath, {}));
    ExpectNoKey(L"HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\Profiles");
    EXPECT_FALSE(Store().Open(RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel\\Profiles", {}));
    EXPECT_EQ(Registry().CountOf(RegistryCall::Create), 0U);
    ExpectNoKey(otherKey);
    EXPECT_FALSE(Store().Open(RootKey::LocalMachine, otherPath, {}));
}

// Whoever can do without it is not bothered.
TEST_F(StoreKeys, AKeyThatNeedNotBeThere) {
    using config::KeyOutcome;
    EXPECT_EQ(Store().OpenIfThere(RootKey::LocalMachine, otherPath, {}), KeyOutcome::Missing);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("mark = 1\n"));
    SeedOther();
    Registry().FailWhere(RegistryCall::Open, L"\\other", code::AccessDenied);
    ExpectNoKey(otherKey, code::AccessDenied);
    EXPECT_EQ(Store().OpenIfThere(RootKey::LocalMachine, otherPath, {}), KeyOutcome::Failure);
    Registry().NoFaults();
    EXPECT_EQ(Store().OpenIfThere(RootKey::LocalMachine, otherPath, {}), KeyOutcome::Opened);
    Mark(L"mark");
    EXPECT_EQ(DumpMachine(otherPath), "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\other]\nmark = 1\n");
}

TEST_F(StoreKeys, ARefusedKeyLeavesTheFormerOneCurrent) {
    SeedOther();
    Registry().FailWhere(RegistryCall::Open, L"\\other", code::AccessDenied);
    ExpectNoKey(otherKey, code::AccessDenied);
    EXPECT_FALSE(Store().Open(RootKey::LocalMachine, otherPath, {}));
    Registry().FailWhere(RegistryCall::Create, L"\\other", 1450);
    ExpectNoKey(otherKey, 1450);
    EXPECT_FALSE(Store().CreateMachineKey(otherPath, {}));
    EXPECT_EQ(Registry().OpenKeys(), 1U);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("mark = 1\n"));
}

TEST_F(StoreKeys, TheUsersKeysLieUnderTheirOwnRoot) {
    Seed("[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\store]\n");
    EXPECT_TRUE(Store().Open(RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel\\store", {}));
    ExpectNoKey(L"HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcel\\store");
    EXPECT_FALSE(Store().Open(RootKey::LocalMachine, L"SOFTWARE\\TALVERON\\morcel\\store", {}));
    Mark(L"mark");
    EXPECT_EQ(demo::DumpRegistryKey(Registry(), RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel\\store"),
              "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\store]\nmark = 1\n");
}

TEST_F(StoreKeys, ACreatedKeyGetsItsParentsAndBecomesCurrent) {
    EXPECT_TRUE(Store().CreateMachineKey(std::wstring(KeyPath) + L"\\a\\b", {}));
    EXPECT_EQ(Registry().OpenKeys(), 1U);
    EXPECT_EQ(Closed(), 1U);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\a]\n"
                                 "\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\a\\b]\nmark = 1\n"));
}

TEST_F(StoreKeys, CreatingAKeyThatExistsOpensItAsItIs) {
    const std::string below = "\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\sub]\nb = 2\n";
    SeedValues("a = 1\n" + below);
    EXPECT_TRUE(Store().CreateMachineKey(KeyPath, {}));
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("a = 1\nmark = 1\n" + below));
}

TEST_F(StoreKeys, AfterClosingNoKeyIsCurrent) {
    SeedValues("value = 1\n");
    EXPECT_TRUE(Store().Close({}, KeyPath));
    EXPECT_EQ(Registry().OpenKeys(), 0U);
    int32_t target = 5;
    ExpectReport(L"Reading integer value 'value' from register", code::InvalidHandle);
    EXPECT_EQ(Store().ReadInteger(L"value", target, {}, 7), config::ReadOutcome::Failure);
    EXPECT_EQ(target, 5);
    ExpectNoKey(otherKey, code::InvalidHandle);
    EXPECT_FALSE(Store().Close({}, otherPath));
    EXPECT_TRUE(Store().Open(RootKey::LocalMachine, KeyPath, {}));
    EXPECT_EQ(Registry().OpenKeys(), 1U);
}

TEST_F(StoreKeys, TheStoreClosesItsKeyWhenItGoes) {
    {
        config::RegistryStore store(world_->Machine(), reporter_);
        EXPECT_TRUE(store.Open(RootKey::LocalMachine, KeyPath, {}));
        EXPECT_EQ(Registry().OpenKeys(), 2U);
    }
    EXPECT_EQ(Registry().OpenKeys(), 1U);
}

TEST_F(StoreKeys, AStoreThatNeverOpenedAKeyClosesNone) {
    Registry().ForgetCalls();
    { const config::RegistryStore store(world_->Machine(), reporter_); }
    EXPECT_TRUE(Registry().Calls().empty());
}

TEST_F(StoreKeys, SubkeysAreEnumeratedInAlphabeticalOrder) {
    std::string subkeys;
    for (const char* name : {"b", "Rule 10", "A", "Rule 2", "C", "rule 1"})
        subkeys += "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\" + std::string(name) + "]\n";
    SeedValues(subkeys);
    Names names{L"something older"};
    EXPECT_TRUE(Store().EnumerateSubkeys(names, {}));
    EXPECT_EQ(names, (Names{L"A", L"b", L"C", L"rule 1", L"Rule 10", L"Rule 2"}));
    EXPECT_EQ(Registry().Calls().size(), names.size() + 1);
}

TEST_F(StoreKeys, NoSubkeysIsNoFailure) {
    Names names{L"something older"};
    EXPECT_TRUE(Store().EnumerateSubkeys(names, {}));
    EXPECT_EQ(names, Names{});
}

TEST_F(StoreKeys, TheLongestNamesAreEnumerated) {
    const std::wstring longest(255, L'n');
    SeedValues("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\" + std::string(255, 'n') + "]\n");
    Names names;
    EXPECT_TRUE(Store().EnumerateSubkeys(names, {}));
    EXPECT_EQ(names, Names{longest});
}

TEST_F(StoreKeys, AnyOtherEndOfTheEnumerationIsReported) {
    for (const platform::Win32Code failure : {code::FileNotFound, code::AccessDenied, code::MoreData}) {
        for (size_t failing = 0; failing <= 2; ++failing) {
            SeedValues(
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\a]\n"
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\b]\n");
            Registry().FailNth(failing, failure);
            Names names;
            ExpectReport(L"Search register key HKEY_LOCAL_MACHINE\\" + std::wstring(KeyPath) + L" subkeys", failure);
            EXPECT_FALSE(Store().EnumerateSubkeys(names, {}));
            EXPECT_EQ(Registry().Calls().size(), failing + 1);
        }
    }
}

constexpr platform::Win32Code refused = 32;  // a code that nothing answers by itself

const std::string prefix = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\";
const std::string kept = "a = 1\n\n" + prefix + "before]\nv = 1\n\n" + prefix + "behind]\nv = 2\n";
const std::string doomed = prefix + "doomed]\nv = 1\n" + prefix + "doomed\\a]\n" + prefix + "doomed\\a\\deep]\n" +
                           prefix + "doomed\\a\\deep\\deeper]\nv = 2\n" + prefix + "doomed\\b]\n" + prefix +
                           "doomed\\c]\n" + prefix + "doomed\\c\\last]\n";

class StoreDelete : public tests::StoreTest {
  protected:
    bool Delete() { return Store().DeleteKeyTreeIfThere(L"doomed", {}); }
    void ExpectFailure(platform::Win32Code code) {
        ExpectReport(L"Delete register key HKEY_LOCAL_MACHINE\\" + std::wstring(KeyPath) + L"\\doomed", code);
    }
    void SetUp() override {
        StoreTest::SetUp();
        SeedValues(kept + doomed);
    }
    // The calls that deleting the whole tree takes.
    std::vector<platform::memory::RecordedCall> AllCalls() {
        EXPECT_TRUE(Delete());
        const auto calls = Registry().Calls();
        SeedValues(kept + doomed);
        return calls;
    }
};

TEST_F(StoreDelete, RemovesTheKeyWithEverythingBelowIt) {
    EXPECT_TRUE(Delete());
    EXPECT_EQ(DumpKey(), KeyWith(kept));
    EXPECT_EQ(Registry().OpenKeys(), 1U);
}

TEST_F(StoreDelete, LeavesTheCurrentKeyCurrent) {
    EXPECT_TRUE(Delete());
    EXPECT_TRUE(Store().WriteInteger(L"a", 7, {}));
    EXPECT_EQ(DumpKey(), KeyWith("a = 7\n" + kept.substr(kept.find('\n') + 1)));
}

TEST_F(StoreDelete, AMissingKeyIsAFailureWhereItHasToBeThere) {
    EXPECT_TRUE(Store().DeleteKeyTreeIfThere(L"nobody", {}));
    EXPECT_EQ(Registry().Calls().size(), 1U);
    ExpectReport(L"Delete register key HKEY_LOCAL_MACHINE\\shown", code::FileNotFound);
    EXPECT_FALSE(Store().DeleteKeyTree(L"nobody", {}, L"shown"));
    EXPECT_TRUE(Store().DeleteKeyTree(L"doomed", {}, L"shown"));
    EXPECT_EQ(DumpKey(), KeyWith(kept));
}

TEST_F(StoreDelete, NamesUpToTheLongestAreDeleted) {
    const std::string longest(255, 'x');
    SeedValues(kept + prefix + "doomed\\" + longest + "\\" + longest + "]\n");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(DumpKey(), KeyWith(kept));
}

TEST_F(StoreDelete, TakesOpenEnumerateCloseAndDeleteForEachKey) {
    AllCalls();
    Registry().ForgetCalls();
    EXPECT_TRUE(Delete());
    constexpr size_t keys = 7;
    EXPECT_EQ(Registry().CountOf(RegistryCall::OpenSubkey), keys);
    EXPECT_EQ(Registry().CountOf(RegistryCall::Close), keys);
    EXPECT_EQ(Registry().CountOf(RegistryCall::DeleteSubkey), keys);
    // Once for every key below, and once more in each to see that there is none left.
    EXPECT_EQ(Registry().CountOf(RegistryCall::EnumerateSubkey), (keys - 1) + keys);
    EXPECT_EQ(Registry().Calls().size(), 3 * keys + (keys - 1) + keys);
}

// Whether the key still has a subkey when the walk makes this call: then the next deletion below it follows.
bool HasSubkeysLeft(const std::vector<platform::memory::RecordedCall>& calls, size_t enumeration) {
    return calls[enumeration + 1].call == RegistryCall::OpenSubkey;
}

size_t DeletionsAmong(const std::vector<platform::memory::RecordedCall>& calls, size_t count) {
    const auto isDeletion = [](const auto& call) { return call.call == RegistryCall::DeleteSubkey; };
    return static_cast<size_t>(std::count_if(calls.begin(), calls.begin() + static_cast<ptrdiff_t>(count), isDeletion));
}

TEST_F(StoreDelete, EveryStepCanFail) {
    const auto calls = AllCalls();
    for (size_t n = 0; n < calls.size(); ++n) {
        const RegistryCall call = calls[n].call;
        if (call == RegistryCall::Close) continue;  // its failure is nobody's business
        SCOPED_TRACE(n);
        SeedValues(kept + doomed);
        Registry().FailNth(n, refused);
        // An enumeration that fails is taken for the end: what still has subkeys then cannot be deleted.
        const bool enumerates = call == RegistryCall::EnumerateSubkey;
        const bool fails = !enumerates || HasSubkeysLeft(calls, n);
        if (fails) ExpectFailure(enumerates ? code::AccessDenied : refused);
        EXPECT_EQ(Delete(), !fails);
        if (!enumerates) {
            EXPECT_EQ(Registry().CountOf(RegistryCall::DeleteSubkey), DeletionsAmong(calls, n + 1))
                << "the walk went on behind the failure";
        }
        EXPECT_EQ(Registry().OpenKeys(), 1U) << "only the current key stays open";
        Registry().NoFaults();
        EXPECT_TRUE(Delete());
        EXPECT_EQ(DumpKey(), KeyWith(kept));
    }
}

TEST_F(StoreDelete, WhatWasDeletedBeforeAFailureStaysDeleted) {
    Registry().FailWhere(RegistryCall::DeleteSubkey, L"\\doomed\\b", refused);
    ExpectFailure(refused);
    EXPECT_FALSE(Delete());
    Registry().NoFaults();
    EXPECT_EQ(DumpKey(), KeyWith("a = 1\n\n" + prefix + "before]\nv = 1\n\n" + prefix + "behind]\nv = 2\n\n" + prefix +
                                 "doomed]\nv = 1\n\n" + prefix + "doomed\\b]\n\n" + prefix + "doomed\\c]\n\n" + prefix +
                                 "doomed\\c\\last]\n"));
}

}  // namespace
