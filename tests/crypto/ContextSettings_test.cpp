#include "crypto/ContextSettings.h"

#include <gtest/gtest.h>

namespace {

using crypto::ContextSettings;
using crypto::SettingsOf;

config::ServiceProfile TwoStoreProfiles() {
    config::ServiceProfile profile;
    profile.ZCSProfile = {L"Office", L"Bank"};
    profile.ServerTSP = {L"0", L"tsp.example"};
    profile.NotUseLDAP = {1, 11};
    profile.NotAddCert = {1, 12};
    profile.NotCopyToLocal = {1, 13};
    profile.AutoVerifyTSP = {1, 14};
    profile.NoTSPisError = {1, 15};
    profile.UseAIA = {1, 16};
    profile.AutoUseTSP = {1, 17};
    profile.NotLoadCrl = {1, 18};
    profile.CrlUpdatePeriod = {1, 19};
    return profile;
}

TEST(ContextSettingsTest, AreTakenFromOneIndexOfEveryList) {
    const ContextSettings settings = SettingsOf(TwoStoreProfiles(), 1);
    EXPECT_EQ(settings.ZCSProfile, L"Bank");
    EXPECT_EQ(settings.CrlUpdatePeriod, 19);
    EXPECT_EQ(settings.Picker.ServerTSP, L"tsp.example");
    EXPECT_EQ(settings.Picker.NotUseLDAP, 11);
    EXPECT_EQ(settings.Picker.NotAddCert, 12);
    EXPECT_EQ(settings.Picker.NotCopyToLocal, 13);
    EXPECT_EQ(settings.Picker.AutoVerifyTSP, 14);
    EXPECT_EQ(settings.Picker.NoTSPisError, 15);
    EXPECT_EQ(settings.Picker.UseAIA, 16);
    EXPECT_EQ(settings.Picker.AutoUseTSP, 17);
    EXPECT_EQ(settings.Picker.NotLoadCrl, 18);
    EXPECT_EQ(SettingsOf(TwoStoreProfiles(), 0).ZCSProfile, L"Office");
}

TEST(ContextSettingsTest, WhatThePickerIsToldBesidesHasItsDefaults) {
    const crypto::PickerSettings picker = SettingsOf(TwoStoreProfiles(), 1).Picker;
    EXPECT_EQ(picker.IncludeAllCertificates, 1);
    EXPECT_EQ(picker.ReportLibraryDetail, 0);
    EXPECT_EQ(picker.GroupFilesFolder, L"");
}

TEST(ContextSettingsTest, WhereAListEndsEarlyThereIsTheValueOfANewStoreProfile) {
    for (const int index : {-1, 2, 1'000'000}) {
        const ContextSettings settings = SettingsOf(TwoStoreProfiles(), index);
        EXPECT_EQ(settings.ZCSProfile, L"") << index;
        EXPECT_EQ(settings.CrlUpdatePeriod, 1) << index;
        EXPECT_EQ(settings.Picker.ServerTSP, L"0") << index;
        EXPECT_EQ(settings.Picker.NotUseLDAP, 1) << index;
        EXPECT_EQ(settings.Picker.NotAddCert, 0) << index;
        EXPECT_EQ(settings.Picker.NotCopyToLocal, 0) << index;
        EXPECT_EQ(settings.Picker.AutoVerifyTSP, 0) << index;
        EXPECT_EQ(settings.Picker.NoTSPisError, 0) << index;
        EXPECT_EQ(settings.Picker.UseAIA, 0) << index;
        EXPECT_EQ(settings.Picker.AutoUseTSP, 0) << index;
        EXPECT_EQ(settings.Picker.NotLoadCrl, 0) << index;
    }
    config::ServiceProfile unequal = TwoStoreProfiles();
    unequal.NotUseLDAP = {0};
    unequal.CrlUpdatePeriod.clear();
    const ContextSettings settings = SettingsOf(unequal, 1);
    EXPECT_EQ(settings.ZCSProfile, L"Bank");
    EXPECT_EQ(settings.Picker.NotUseLDAP, 1);
    EXPECT_EQ(settings.CrlUpdatePeriod, 1);
    EXPECT_EQ(settings.Picker.UseAIA, 16);
}

}  // namespace
