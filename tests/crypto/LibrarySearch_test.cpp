// The three searches, from the request's bytes to the names.
#include "tests/crypto/LibrarySearchTest.h"

namespace tests {
namespace {

using demo::StandInCall;
using Calls = std::vector<std::string>;

TEST_F(LibrarySearchTest, AllLocalNamesComeInTheirOrderAndOnce) {
    ServeLocal({{.OwnerName = "CN=Ivan Petrov"},
                {.OwnerName = "CN=Anna"},
                {.OwnerName = "CN=IVAN PETROV"},
                {.OwnerName = "CN=Ivan Petrov"},
                {.InNetwork = true, .OwnerName = "CN=Far away"}});
    EXPECT_TRUE(FindAll());
    EXPECT_EQ(NamesOf(names_), (Names{L"CN=Ivan Petrov", L"CN=Anna", L"CN=IVAN PETROV"}));
    EXPECT_EQ(library_.Calls(), (Calls{"FindCert 0x100 scope 0 null fields 132", "FreeFindResult"}));
}

TEST_F(LibrarySearchTest, AnEmptyStoreIsNoFailure) {
    EXPECT_TRUE(FindAll());
    EXPECT_TRUE(names_.IsEmpty());
    EXPECT_EQ(library_.Calls().back(), "FreeFindResult");
}

TEST_F(LibrarySearchTest, TheRequestsFollowTheSettings) {
    library_.SetAnswer(StandInCall::FindCert, 0);
    struct Case {
        int32_t all;
        int32_t notUseLdap;
        const char* local;
        const char* owners;
        const char* byName;
    };
    const Case cases[] = {{1, 0, "0x100", "0xF04", "0x104"},
                          {0, 0, "0x0", "0xE04", "0x4"},
                          {1, 1, "0x100", "0xF04", "0x100"},
                          {0, 1, "0x0", "0xE04", "0x0"},
                          {5, 5, "0x100", "0xF04", "0x100"}};
    for (const Case& c : cases) {
        settings_.IncludeAllCertificates = c.all;
        settings_.NotUseLDAP = c.notUseLdap;
        FindAll();
        EXPECT_EQ(library_.Calls().at(0), "FindCert " + std::string(c.local) + " scope 0 null fields 132");
        FindOwners(L"CN=Iv*");
        EXPECT_EQ(library_.Calls().at(0), "FindCert " + std::string(c.owners) + " scope 4 \"CN=Iv*\" fields 132");
        FindByName(L"CN=Ivan");
        EXPECT_EQ(library_.Calls().at(0), "FindCert " + std::string(c.byName) + " scope 4 \"CN=Ivan\" fields 163972");
    }
}

TEST_F(LibrarySearchTest, WithoutAUsageBitACertificateIsShownOnlyWhereAllAre) {
    std::vector<demo::StandInCertificate> certificates;
    for (const int bits : {0x00, 0x03, 0x04, 0x08, 0x10, 0x20, 0xE3, 0xFF})
        certificates.push_back({.UsageBits = static_cast<uint8_t>(bits),
                                .OwnerName = "CN=" + std::to_string(bits),
                                .SecondText = std::to_string(bits)});
    certificates.push_back({.InNetwork = true, .UsageBits = 0, .OwnerName = "CN=far"});
    certificates.push_back({.InNetwork = true, .UsageBits = 4, .OwnerName = "CN=near"});
    ServeLocal(certificates);
    EXPECT_TRUE(FindAll());
    EXPECT_EQ(names_.Size(), 8U);
    EXPECT_TRUE(FindOwners(L"*"));
    EXPECT_EQ(names_.Size(), 2U);
    settings_.IncludeAllCertificates = 0;
    EXPECT_TRUE(FindAll());
    EXPECT_EQ(NamesOf(names_), (Names{L"CN=4", L"CN=8", L"CN=16", L"CN=255"}));
    EXPECT_TRUE(FindOwners(L"*"));
    EXPECT_EQ(NamesOf(names_), Names{L"CN=near"});
    EXPECT_TRUE(FindByName(L"CN=3"));
    EXPECT_TRUE(certificates_.Texts.empty());
    EXPECT_TRUE(FindByName(L"CN=16"));
    EXPECT_EQ(certificates_.Texts, Names{L"16"});
}

TEST_F(LibrarySearchTest, TextsAreInTheAnsiCodePage) {
    codePage_.Choose(platform::memory::AnsiCodePage::Cyrillic1251);
    ServeLocal({{.OwnerName = "CN=\xCA\xEB\xFE\xF7", .SecondText = "\xCA"}});
    EXPECT_TRUE(FindAll());
    EXPECT_EQ(NamesOf(names_), Names{L"CN=\x041A\x043B\x044E\x0447"});
    EXPECT_TRUE(FindByName(L"CN=\x041A\x043B\x044E\x0447"));
    EXPECT_EQ(library_.Calls().at(0), "FindCert 0x104 scope 4 \"CN=\xCA\xEB\xFE\xF7\" fields 163972");
    EXPECT_EQ(certificates_.Texts, Names{L"\x041A"});
}

TEST_F(LibrarySearchTest, OnlyTheSingleAsteriskIsWrittenOut) {
    ServeLocal({{.InNetwork = true, .OwnerName = "CN=Anna"}, {.OwnerName = "CN=Local"}});
    EXPECT_TRUE(FindOwners(L"*"));
    EXPECT_EQ(library_.Calls(), (Calls{"FindCert 0xF04 scope 4 \"*=*\" fields 132", "FreeFindResult"}));
    EXPECT_EQ(NamesOf(names_), Names{L"CN=Anna"});
    EXPECT_TRUE(FindOwners(L"**"));
    EXPECT_EQ(library_.Calls().at(0), "FindCert 0xF04 scope 4 \"**\" fields 132");
    EXPECT_TRUE(FindOwners(L""));
    EXPECT_EQ(library_.Calls().at(0), "FindCert 0xF04 scope 4 \"\" fields 132");
}

TEST_F(LibrarySearchTest, OwnersFoundComeOnce) {
    ServeLocal({{.InNetwork = true, .OwnerName = "CN=Ivan"},
                {.InNetwork = true, .OwnerName = "CN=IVAN"},
                {.InNetwork = true, .OwnerName = "CN=Ivan"},
                {.InNetwork = true, .OwnerName = "CN=Oleg"}});
    EXPECT_TRUE(FindOwners(L"CN=Iv*"));
    EXPECT_EQ(NamesOf(names_), (Names{L"CN=Ivan", L"CN=IVAN"}));
}

TEST_F(LibrarySearchTest, FindingNobodyIsASuccessWithNothingToRelease) {
    EXPECT_TRUE(FindOwners(L"CN=Nobody"));
    EXPECT_TRUE(names_.IsEmpty());
    EXPECT_EQ(library_.Calls().size(), 1U);
    EXPECT_TRUE(library_.TextsAsked().empty());
}

TEST_F(LibrarySearchTest, CertificatesOfAnOwnerAreFoundInAnyLetterCase) {
    ServeLocal({{.Serial = {0x01, 0xA2}, .OwnerName = "CN=Ivan Petrov", .SecondText = "first"},
                {.Serial = {0xFF}, .OwnerName = "CN=Ivan Petrovich", .SecondText = "another man"},
                {.Serial = {}, .OwnerName = "CN=IVAN PETROV", .SecondText = "second"},
                {.Serial = {0, 0x0B, 0}, .OwnerName = "CN=Ivan Petrov", .SecondText = "first"}});
    EXPECT_TRUE(FindByName(L"cn=ivan petrov"));
    EXPECT_EQ(certificates_.Texts, (Names{L"first", L"second", L"first"}));
    EXPECT_EQ(certificates_.Serials, (Names{L"01:A2", L"", L"00:0B:00"}));
    EXPECT_EQ(library_.Calls().size(), 2U);
}

TEST_F(LibrarySearchTest, WhatTheLibraryFindsBesidesTheOwnerIsLeftOut) {
    ServeLocal({{.OwnerName = "CN=Ivan", .SecondText = "a"}, {.OwnerName = "CN=Ivana", .SecondText = "b"}});
    EXPECT_TRUE(FindByName(L"CN=Iv*"));  // an owner of this very name
    EXPECT_TRUE(certificates_.Texts.empty());
    EXPECT_TRUE(certificates_.Serials.empty());
    EXPECT_TRUE(FindByName(L"CN=Nobody"));
    EXPECT_TRUE(certificates_.Texts.empty());
}

TEST_F(LibrarySearchTest, FailuresAreReportedAndReleaseNothing) {
    library_.SetAnswer(StandInCall::FindCert, failed);
    const Calls one{"FindCert"};
    EXPECT_FALSE(FindAll([this] {
        user_.ExpectBox(
            L"Searching of all certificate in local store.\r\n"
            L"KSEAL error 0x20000010 - It failed.",
            boxes::Report, ui::IdOk);
    }));
    EXPECT_TRUE(names_.IsEmpty());
    EXPECT_EQ(library_.Calls().size(), 1U);
    EXPECT_FALSE(FindByName(L"CN=100%s", [this] {
        user_.ExpectBox(L"Searching for certificate CN=100%s.\r\nKSEAL error 0x20000010 - It failed.", boxes::Report,
                        ui::IdOk);
    }));
    EXPECT_TRUE(certificates_.Texts.empty());
    EXPECT_TRUE(certificates_.Serials.empty());
    EXPECT_EQ(library_.Calls().size(), 1U);
    names_.Add(L"from before");
    EXPECT_FALSE(FindOwners(L"*", [this] {
        user_.ExpectBox(L"Searching for certificate *.\r\nKSEAL error 0x20000010 - It failed.", boxes::Report,
                        ui::IdOk);
    }));
    EXPECT_TRUE(names_.IsEmpty());
    EXPECT_EQ(library_.Calls().size(), 1U);
    EXPECT_EQ(screen_.owners, (std::vector<const ui::Dialog*>{&opener_, &opener_, &opener_}));
}

TEST_F(LibrarySearchTest, NothingFoundIsAFailureOfTheOtherSearches) {
    library_.SetAnswer(StandInCall::FindCert, 0xE0700046);
    library_.SetErrorText(0xE0700046, "Nothing");
    EXPECT_FALSE(FindAll([this] {
        user_.ExpectBox(
            L"Searching of all certificate in local store.\r\n"
            L"KSEAL error 0xE0700046 - Nothing.",
            boxes::Report, ui::IdOk);
    }));
    EXPECT_FALSE(FindByName(L"CN=A", [this] {
        user_.ExpectBox(L"Searching for certificate CN=A.\r\nKSEAL error 0xE0700046 - Nothing.", boxes::Report,
                        ui::IdOk);
    }));
}

TEST_F(LibrarySearchTest, TheErrorStackIsShownWhereItIsWanted) {
    library_.SetAnswer(StandInCall::FindCert, failed);
    const std::wstring stack = L"\r\nbroken,\r\nfile: db.c, line 3, data: x.";
    for (const int32_t detail : {0, 1}) {
        settings_.ReportLibraryDetail = detail;
        const std::wstring end = L".\r\nKSEAL error 0x20000010 - It failed" + (detail ? stack : L".");
        library_.AddError(context_.Handle(), {"broken", "db.c", 3, "x"});
        EXPECT_FALSE(FindAll(
            [&] { user_.ExpectBox(L"Searching of all certificate in local store" + end, boxes::Report, ui::IdOk); }));
        if (detail != 0) library_.AddError(context_.Handle(), {"broken", "db.c", 3, "x"});
        EXPECT_FALSE(FindByName(
            L"CN=A", [&] { user_.ExpectBox(L"Searching for certificate CN=A" + end, boxes::Report, ui::IdOk); }));
        EXPECT_EQ(library_.WaitingErrors(context_.Handle()), detail != 0 ? 0U : 1U);
        if (detail != 0) library_.AddError(context_.Handle(), {"broken", "db.c", 3, "x"});
        EXPECT_FALSE(FindOwners(L"CN=A", [&] {
            user_.ExpectBox(L"Searching for certificate CN=A.\r\nKSEAL error 0x20000010 - It failed" + stack,
                            boxes::Report, ui::IdOk);
        }));
        EXPECT_EQ(library_.WaitingErrors(context_.Handle()), 0U);
    }
}

}  // namespace
}  // namespace tests
