// Deleting a key with everything below it, and what is left when a step of it fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "tests/config/StoreTest.h"

namespace {

using tests::RegistryCall;
namespace code = platform::code;

constexpr platform::Win32Code refused = 32;  // a code that nothing answers by itself

const std::string prefix = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\key\\";
const std::string kept = "a = 1\n\n" + prefix + "before]\nv = 1\n\n" + prefix + "behind]\nv = 2\n";
const std::string doomed = prefix + "doomed]\nv = 1\n" + prefix + "doomed\\a]\n" + prefix +
                           "doomed\\a\\deep]\n" + prefix + "doomed\\a\\deep\\deeper]\nv = 2\n" + prefix +
                           "doomed\\b]\n" + prefix + "doomed\\c]\n" + prefix + "doomed\\c\\last]\n";

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
    return static_cast<size_t>(
        std::count_if(calls.begin(), calls.begin() + static_cast<ptrdiff_t>(count), isDeletion));
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
    EXPECT_EQ(DumpKey(), KeyWith("a = 1\n\n" + prefix + "before]\nv = 1\n\n" + prefix + "behind]\nv = 2\n\n" +
                                 prefix + "doomed]\nv = 1\n\n" + prefix + "doomed\\b]\n\n" + prefix +
                                 "doomed\\c]\n\n" + prefix + "doomed\\c\\last]\n"));
}

}  // namespace
