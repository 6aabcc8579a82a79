// The keys that loading and saving ask the system for, from the first to the last.
#include <algorithm>

#include "tests/config/ConfigTest.h"
#include "tests/config/GoldenTree.h"
#include "tests/support/win32/RegistryCalls.h"

namespace tests {
namespace {

using Kind = KeyCall::Kind;

constexpr wchar_t libraryProfiles[] = L"SOFTWARE\\TALVERON\\morcel\\Profiles";
constexpr wchar_t serviceRoot[] = L"SOFTWARE\\TALVERON\\morcelservice";

using LoadAndSaveKeys = ConfigTest;

void ExpectUsualRights(const std::vector<KeyCall>& calls) {
    for (const KeyCall& call : calls) {
        EXPECT_EQ(call.options, DWORD{REG_OPTION_NON_VOLATILE}) << testing::PrintToString(call.path);
        EXPECT_EQ(call.access, call.kind == Kind::Delete ? 0U : 0x2001FU) << testing::PrintToString(call.path);
        EXPECT_TRUE(call.isPlain) << testing::PrintToString(call.path);
    }
}

TEST_F(LoadAndSaveKeys, AreAllOpenedWithTheSameRights) {
    SeedTrees(GoldenLibrary + GoldenService);
    const RegistryCalls calls;
    const auto loaded = Load();
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(Save(*loaded));
    const auto count = [&](Kind kind) {
        return std::count_if(calls.Calls().begin(), calls.Calls().end(),
                             [kind](const KeyCall& call) { return call.kind == kind; });
    };
    EXPECT_GT(count(Kind::Open), 0);
    EXPECT_GT(count(Kind::Create), 0);
    EXPECT_GT(count(Kind::Delete), 0);
    ExpectUsualRights(calls.Calls());
}

TEST_F(LoadAndSaveKeys, OfTheMachineAreMadeOnlyAfterThatOfTheLibraryHasOpened) {
    SeedTrees(GoldenLibrary);
    const RegistryCalls calls;
    EXPECT_TRUE(Load());
    ExpectUsualRights(calls.Calls());
    ASSERT_FALSE(calls.Calls().empty());
    EXPECT_EQ(calls.Calls().front(), (KeyCall{Kind::Open, HKEY_CURRENT_USER, libraryProfiles, 0, 0x2001F}));
    const auto ofTheMachine = std::ranges::find(calls.Calls(), HKEY_LOCAL_MACHINE, &KeyCall::parent);
    ASSERT_NE(ofTheMachine, calls.Calls().end());
    EXPECT_EQ(*ofTheMachine, (KeyCall{Kind::Create, HKEY_LOCAL_MACHINE, serviceRoot, 0, 0x2001F}));
    EXPECT_TRUE(std::none_of(ofTheMachine, calls.Calls().end(),
                             [](const KeyCall& call) { return call.parent == HKEY_CURRENT_USER; }));
}

TEST_F(LoadAndSaveKeys, NoneIsMadeWithoutTheKeyOfTheLibrary) {
    SeedTrees({});
    ExpectReport(std::wstring(L"Create (open) register key HKEY_CURRENT_USER\\") + libraryProfiles, 2);
    const RegistryCalls calls;
    EXPECT_EQ(Load(), std::nullopt);
    EXPECT_EQ(calls.Calls(), (std::vector<KeyCall>{{Kind::Open, HKEY_CURRENT_USER, libraryProfiles, 0, 0x2001F}}));
}

}  // namespace
}  // namespace tests
