#include "demo/OwnersText.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using demo::ParseOwners;
using demo::StandInCertificate;
using Certificates = std::vector<StandInCertificate>;

std::string ErrorOf(const std::string& text) {
    try {
        ParseOwners(text);
        return "none";
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(OwnersTextTest, ALineIsACertificate) {
    const demo::StandInOwners owners = ParseOwners(
        "# comment | with | many | fields\n\n"
        "local | 1C | 01:A2 | CN=Anna,O=A = B | her text\r\n"
        "  network|0||CN=Jean\n");
    EXPECT_EQ(owners.Certificates, (Certificates{{false, 0x1C, {0x01, 0xA2}, "CN=Anna,O=A = B", "her text"},
                                                 {true, 0, {}, "CN=Jean", ""}}));
    EXPECT_EQ(owners.Delay.count(), 0);
    EXPECT_TRUE(owners.NetworkAnswers);
    EXPECT_EQ(owners.CrlDiagnostic, "");
}

TEST(OwnersTextTest, SettingsSayHowTheLibraryBehaves) {
    const demo::StandInOwners owners = ParseOwners("delay = 1500\nnetwork=off\ncrl = no = list");
    EXPECT_EQ(owners.Delay.count(), 1500);
    EXPECT_FALSE(owners.NetworkAnswers);
    EXPECT_EQ(owners.CrlDiagnostic, "no = list");
    EXPECT_TRUE(ParseOwners("network = off\nnetwork = on").NetworkAnswers);
    EXPECT_TRUE(ParseOwners("").Certificates.empty());
}

TEST(OwnersTextTest, WhatIsWrongIsToldWithItsLine) {
    EXPECT_EQ(ErrorOf("\nlocal | 1C | CN=A"), "line 2: a certificate has four or five fields");
    EXPECT_EQ(ErrorOf("here | 1C | 01 | CN=A"), "line 1: the store is neither local nor network");
    EXPECT_EQ(ErrorOf("local | 1CC | 01 | CN=A"), "line 1: '1CC' is not a number that fits here");
    EXPECT_EQ(ErrorOf("local | 1C | 01: | CN=A"), "line 1: '' is not a number that fits here");
    EXPECT_EQ(ErrorOf("delay = soon"), "line 1: 'soon' is not a number that fits here");
    EXPECT_EQ(ErrorOf("network = maybe"), "line 1: neither a certificate nor a setting");
    EXPECT_EQ(ErrorOf("colour"), "line 1: neither a certificate nor a setting");
}

}  // namespace
