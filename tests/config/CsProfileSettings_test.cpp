// The parallel lists of a service profile, equal in length and not.
#include "config/CsProfileSettings.h"

#include <gtest/gtest.h>

#include "tests/editors/ProfileEditor.h"

namespace tests {
namespace {

using config::AttachCsProfile;
using config::CsProfileSettings;
using config::DetachCsProfile;
using config::PutSettings;
using config::ServiceProfile;
using config::SettingsAt;
using Flags = std::vector<config::Flag>;

// Settings that are told apart in every list.
CsProfileSettings Marked(int mark) {
    return {.ServerTSP = std::to_wstring(mark),
            .NotUseLDAP = mark + 1,
            .NotCopyToLocal = mark + 2,
            .AutoUseTSP = mark + 3,
            .AutoVerifyTSP = mark + 4,
            .NoTSPisError = mark + 5,
            .UseAIA = mark + 6,
            .NotAddCert = mark + 7,
            .NotLoadCrl = mark + 8,
            .CrlUpdatePeriod = mark + 9};
}

TEST(CsProfileSettings, EachGoesToTheListOfItsName) {
    ServiceProfile profile;
    AttachCsProfile(profile, L"Office");
    PutSettings(profile, 0, Marked(100));
    ServiceProfile expected;
    expected.ZCSProfile = {L"Office"};
    expected.ServerTSP = {L"100"};
    expected.NotUseLDAP = {101};
    expected.NotCopyToLocal = {102};
    expected.AutoUseTSP = {103};
    expected.AutoVerifyTSP = {104};
    expected.NoTSPisError = {105};
    expected.UseAIA = {106};
    expected.NotAddCert = {107};
    expected.NotLoadCrl = {108};
    expected.CrlUpdatePeriod = {109};
    EXPECT_EQ(profile, expected);
    EXPECT_EQ(SettingsAt(profile, 0), Marked(100));
}

TEST(CsProfileSettings, WhatIsNotThereIsTheDefault) {
    CsProfileSettings defaults;
    EXPECT_EQ(defaults.ServerTSP, L"0");
    EXPECT_EQ(defaults.NotUseLDAP, 1);
    EXPECT_EQ(defaults.CrlUpdatePeriod, 1);
    ServiceProfile profile;
    EXPECT_EQ(SettingsAt(profile, 0), defaults);
    EXPECT_EQ(SettingsAt(profile, 1'000'000), defaults);
    profile.UseAIA = {0, 7};
    defaults.UseAIA = 7;
    EXPECT_EQ(SettingsAt(profile, 1), defaults);
}

TEST(CsProfileSettings, AMissingDefaultIsNotWritten) {
    ServiceProfile profile;
    profile.ZCSProfile = {L"Office", L"Bank", L"Tax"};
    PutSettings(profile, 2, {});
    EXPECT_EQ(ListLengths(profile), (std::vector<size_t>{3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    CsProfileSettings settings;
    settings.NotUseLDAP = 0;
    PutSettings(profile, 2, settings);
    EXPECT_EQ(profile.NotUseLDAP, (Flags{1, 1, 0}));
    PutSettings(profile, 2, {});
    EXPECT_EQ(profile.NotUseLDAP, (Flags{1, 1, 1}));
    EXPECT_TRUE(profile.ServerTSP.empty());
}

TEST(CsProfileSettings, OneIsAttachedAtTheEndOfTheNames) {
    ServiceProfile profile;
    profile.ZCSProfile = {L"Office"};
    profile.NotUseLDAP = {0, 0, 5};  // the second and third are nobody's
    AttachCsProfile(profile, L"Bank");
    EXPECT_EQ(profile.ZCSProfile, (std::vector<std::wstring>{L"Office", L"Bank"}));
    EXPECT_EQ(profile.NotUseLDAP, (Flags{0, 1, 0, 5}));
    EXPECT_EQ(profile.ServerTSP, (std::vector<std::wstring>{L"0", L"0"}));
    EXPECT_EQ(SettingsAt(profile, 1), CsProfileSettings());
}

TEST(CsProfileSettings, OneGoesFromEveryListThatReachesIt) {
    ServiceProfile profile;
    profile.ZCSProfile = {L"Office", L"Bank", L"Tax"};
    profile.NotUseLDAP = {5};
    profile.UseAIA = {1, 2};
    profile.NotAddCert = {1, 2, 3, 4};
    DetachCsProfile(profile, 1);
    EXPECT_EQ(profile.ZCSProfile, (std::vector<std::wstring>{L"Office", L"Tax"}));
    EXPECT_EQ(profile.NotUseLDAP, Flags{5});
    EXPECT_EQ(profile.UseAIA, Flags{1});
    EXPECT_EQ(profile.NotAddCert, (Flags{1, 3, 4}));
}

TEST(CsProfileSettings, AttachedIsWhatHasTheWholeNameInAnyCase) {
    ServiceProfile profile;
    profile.ZCSProfile = {L"Office", L"\u0411\u0430\u043D\u043A"};
    for (const wchar_t* name : {L"Office", L"OFFICE", L"office", L"\u0431\u0410\u041D\u041A"})
        EXPECT_TRUE(config::IsAttached(profile, name));
    for (const wchar_t* name : {L"", L"Offic", L"Office ", L"Bank"}) EXPECT_FALSE(config::IsAttached(profile, name));
}

}  // namespace
}  // namespace tests
