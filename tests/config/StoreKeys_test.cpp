// The current key of the registry store: what makes a key current, and what leaves the former one in place.
#include "config/RegistryStore.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/config/StoreTest.h"

namespace {

using platform::RootKey;
using tests::RegistryCall;
using Names = std::vector<std::wstring>;
namespace code = platform::code;

constexpr wchar_t otherPath[] = L"SOFTWARE\\TALVERON\\morcelservice\\other";

class StoreKeys : public tests::StoreTest {
  protected:
    // Where a written value arrives tells which key is current.
    void Mark(const wchar_t* name) { EXPECT_TRUE(Store().WriteInteger(name, 1, {})); }
    void SeedOther() { Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\other]\n"); }
    size_t Closed() { return Registry().CountOf(RegistryCall::Close); }
};

TEST_F(StoreKeys, AnOpenedKeyBecomesCurrentAndTheFormerOneIsClosed) {
    SeedOther();
    Registry().ForgetCalls();
    EXPECT_EQ(Store().Open(RootKey::LocalMachine, otherPath), code::Success);
    EXPECT_EQ(Registry().OpenKeys(), 1U);
    EXPECT_EQ(Closed(), 1U);
    Mark(L"mark");
    EXPECT_EQ(DumpMachine(otherPath),
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\other]\nmark = 1\n");
    EXPECT_EQ(DumpKey(), KeyWith(""));
}

TEST_F(StoreKeys, AMissingKeyLeavesTheFormerOneCurrent) {
    EXPECT_EQ(Store().Open(RootKey::LocalMachine, otherPath), code::FileNotFound);
    EXPECT_EQ(Closed(), 0U);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("mark = 1\n"));
}

TEST_F(StoreKeys, OpeningNeverCreates) {
    EXPECT_EQ(Store().Open(RootKey::LocalMachine, otherPath), code::FileNotFound);
    EXPECT_EQ(Store().Open(RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel\\Profiles"),
              code::FileNotFound);
    EXPECT_EQ(Registry().CountOf(RegistryCall::Create), 0U);
    EXPECT_EQ(Store().Open(RootKey::LocalMachine, otherPath), code::FileNotFound);
}

TEST_F(StoreKeys, ARefusedKeyLeavesTheFormerOneCurrent) {
    SeedOther();
    Registry().FailWhere(RegistryCall::Open, L"\\other", code::AccessDenied);
    EXPECT_EQ(Store().Open(RootKey::LocalMachine, otherPath), code::AccessDenied);
    Registry().FailWhere(RegistryCall::Create, L"\\other", 1450);
    EXPECT_EQ(Store().CreateMachineKey(otherPath), 1450U);
    EXPECT_EQ(Registry().OpenKeys(), 1U);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("mark = 1\n"));
}

TEST_F(StoreKeys, TheUsersKeysLieUnderTheirOwnRoot) {
    Seed("[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\store]\n");
    EXPECT_EQ(Store().Open(RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel\\store"), code::Success);
    EXPECT_EQ(Store().Open(RootKey::LocalMachine, L"SOFTWARE\\TALVERON\\morcel\\store"), code::FileNotFound);
    Mark(L"mark");
    EXPECT_EQ(demo::DumpRegistryKey(Registry(), RootKey::CurrentUser, L"SOFTWARE\\TALVERON\\morcel\\store"),
              "[HKEY_CURRENT_USER\\SOFTWARE\\TALVERON\\morcel\\store]\nmark = 1\n");
}

TEST_F(StoreKeys, ACreatedKeyGetsItsParentsAndBecomesCurrent) {
    EXPECT_EQ(Store().CreateMachineKey(std::wstring(KeyPath) + L"\\a\\b"), code::Success);
    EXPECT_EQ(Registry().OpenKeys(), 1U);
    EXPECT_EQ(Closed(), 1U);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(),
              KeyWith("\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\a]\n"
                      "\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\a\\b]\nmark = 1\n"));
}

TEST_F(StoreKeys, CreatingAKeyThatExistsOpensItAsItIs) {
    const std::string below = "\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\sub]\nb = 2\n";
    SeedValues("a = 1\n" + below);
    EXPECT_EQ(Store().CreateMachineKey(KeyPath), code::Success);
    Mark(L"mark");
    EXPECT_EQ(DumpKey(), KeyWith("a = 1\nmark = 1\n" + below));
}

TEST_F(StoreKeys, AfterClosingNoKeyIsCurrent) {
    SeedValues("value = 1\n");
    EXPECT_EQ(Store().Close(), code::Success);
    EXPECT_EQ(Registry().OpenKeys(), 0U);
    int32_t target = 5;
    ExpectReport(L"Reading integer value 'value' from register", code::InvalidHandle);
    EXPECT_EQ(Store().ReadInteger(L"value", target, {}, 7), config::ReadOutcome::Failure);
    EXPECT_EQ(target, 5);
    EXPECT_EQ(Store().Close(), code::InvalidHandle);
    EXPECT_EQ(Store().Open(RootKey::LocalMachine, KeyPath), code::Success);
    EXPECT_EQ(Registry().OpenKeys(), 1U);
}

TEST_F(StoreKeys, TheStoreClosesItsKeyWhenItGoes) {
    {
        config::RegistryStore store(world_->Machine(), reporter_);
        EXPECT_EQ(store.Open(RootKey::LocalMachine, KeyPath), code::Success);
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
        subkeys +=
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\" + std::string(name) + "]\n";
    SeedValues(subkeys);
    Names names{L"something older"};
    EXPECT_EQ(Store().EnumerateSubkeys(names), code::Success);
    EXPECT_EQ(names, (Names{L"A", L"b", L"C", L"rule 1", L"Rule 10", L"Rule 2"}));
    EXPECT_EQ(Registry().Calls().size(), names.size() + 1);
}

TEST_F(StoreKeys, NoSubkeysIsNoFailure) {
    Names names{L"something older"};
    EXPECT_EQ(Store().EnumerateSubkeys(names), code::Success);
    EXPECT_EQ(names, Names{});
}

TEST_F(StoreKeys, TheLongestNamesAreEnumerated) {
    const std::wstring longest(255, L'n');
    SeedValues("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\" + std::string(255, 'n') +
               "]\n");
    Names names;
    EXPECT_EQ(Store().EnumerateSubkeys(names), code::Success);
    EXPECT_EQ(names, Names{longest});
}

TEST_F(StoreKeys, AnyOtherEndOfTheEnumerationIsItsCode) {
    for (const platform::Win32Code failure : {code::FileNotFound, code::AccessDenied, code::MoreData}) {
        for (size_t failing = 0; failing <= 2; ++failing) {
            SeedValues(
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\a]\n"
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\b]\n");
            Registry().FailNth(failing, failure);
            Names names;
            EXPECT_EQ(Store().EnumerateSubkeys(names), failure);
            EXPECT_EQ(Registry().Calls().size(), failing + 1);
        }
    }
}

TEST_F(StoreKeys, PathsAreShownWithTheirRoot) {
    EXPECT_EQ(config::DisplayPath(RootKey::LocalMachine, L"SOFTWARE\\a"), L"HKEY_LOCAL_MACHINE\\SOFTWARE\\a");
    EXPECT_EQ(config::DisplayPath(RootKey::CurrentUser, L"SOFTWARE\\a"), L"HKEY_CURRENT_USER\\SOFTWARE\\a");
}

}  // namespace
