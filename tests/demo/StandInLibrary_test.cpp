// The stand-in library keeps count: what was not released, or released twice, comes to light. What it is
// asked, and the text of those whom it serves.
#include "demo/StandInLibrary.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

#include "demo/CertificateQuery.h"
#include "demo/OwnersText.h"

namespace {

namespace kseal = platform::kseal;
using demo::ParseOwners;
using demo::StandInCall;
using demo::StandInCertificate;
using demo::StandInLibrary;
using Certificates = std::vector<StandInCertificate>;
using demo::MatchesQuery;
using demo::MatchesSample;

class StandInLibraryTest : public testing::Test {
  protected:
    kseal::Context Open() {
        kseal::Context context = nullptr;
        EXPECT_EQ(exports_.Initialize("Office", 0x41, &context), 0U);
        return context;
    }
    uint32_t Find(kseal::Context context, uint32_t word, const char* query) {
        kseal::CertFindRequest request;
        request.SearchWord = word;
        request.Query = query;
        result_ = {};
        return exports_.FindCert(context, &request, &result_);
    }

    StandInLibrary library_;
    const kseal::Exports& exports_ = StandInLibrary::Exports();
    kseal::CertFindResult result_;
};

TEST_F(StandInLibraryTest, ThereIsOnlyOne) {
    EXPECT_THROW(StandInLibrary(), std::logic_error);
    EXPECT_EQ(exports_.Uninitialize(Open()), 0U);
}

TEST_F(StandInLibraryTest, ContextsAreCounted) {
    const kseal::Context first = Open();
    const kseal::Context second = Open();
    EXPECT_NE(first, second);
    EXPECT_EQ(library_.OpenContexts(), 2U);
    EXPECT_EQ(library_.OnlyContext(), nullptr);
    EXPECT_EQ(exports_.Uninitialize(first), 0U);
    EXPECT_EQ(library_.OnlyContext(), second);
    EXPECT_EQ(library_.WrongReleases(), 0U);
    exports_.Uninitialize(first);
    EXPECT_EQ(library_.WrongReleases(), 1U);
    exports_.Uninitialize(second);
    EXPECT_EQ(library_.OpenContexts(), 0U);
}

TEST_F(StandInLibraryTest, ResultsAreCountedTheEmptyOnesToo) {
    const kseal::Context context = Open();
    EXPECT_EQ(Find(context, 0, nullptr), 0U);
    EXPECT_EQ(result_.Count, 0U);
    EXPECT_EQ(library_.OpenResults(), 1U);
    kseal::CertFindResult copy = result_;
    EXPECT_EQ(exports_.FreeFindResult(context, &result_), 0U);
    EXPECT_EQ(library_.OpenResults(), 0U);
    EXPECT_EQ(result_.Entries, nullptr);
    exports_.FreeFindResult(context, &result_);  // of a search that failed
    EXPECT_EQ(library_.WrongReleases(), 0U);
    exports_.FreeFindResult(context, &copy);
    EXPECT_EQ(library_.WrongReleases(), 1U);
    exports_.Uninitialize(context);
    exports_.FreeFindResult(context, &result_);
    EXPECT_EQ(library_.WrongReleases(), 2U);
    EXPECT_EQ(Find(context, 0, nullptr), StandInLibrary::UnknownContext);
}

TEST_F(StandInLibraryTest, ResultsThatAreNotEmptyBeforehandAreCounted) {
    const kseal::Context context = Open();
    const kseal::CertFindRequest request;
    kseal::CertFindResult padded;
    padded.Unread4[3] = std::byte{1};
    kseal::CertFindResult counted;
    counted.Count = 1;
    kseal::CertEntry entry{};
    kseal::CertFindResult filled;
    filled.Entries = &entry;
    size_t uncleared = 0;
    for (kseal::CertFindResult* const result : {&padded, &counted, &filled}) {
        EXPECT_EQ(exports_.FindCert(context, &request, result), 0U);
        EXPECT_EQ(library_.UnclearedResults(), ++uncleared);
        EXPECT_EQ(exports_.FreeFindResult(context, result), 0U);
    }
    Find(context, 0, nullptr);
    EXPECT_EQ(library_.UnclearedResults(), uncleared);
    exports_.FreeFindResult(context, &result_);
    exports_.Uninitialize(context);
}

TEST_F(StandInLibraryTest, TextsAreCounted) {
    char* text = nullptr;
    char* file = nullptr;
    char* data = nullptr;
    int32_t line = 0;
    EXPECT_NE(exports_.GetErrorLineEx(nullptr, &text, &file, &line, &data), 0U);
    library_.AddError(nullptr, {"text", "", 5, "data"});
    EXPECT_EQ(exports_.GetErrorLineEx(nullptr, &text, &file, &line, &data), 0U);
    EXPECT_EQ(std::string(text), "text");
    EXPECT_EQ(file, nullptr);
    EXPECT_EQ(line, 5);
    EXPECT_EQ(library_.OpenTexts(), 2U);
    exports_.FreeMem(text);
    exports_.FreeMem(data);
    EXPECT_EQ(library_.OpenTexts(), 0U);
    exports_.FreeMem(&line);
    EXPECT_EQ(library_.WrongReleases(), 1U);
}

TEST_F(StandInLibraryTest, StoresAreSearchedAsTheWordSays) {
    library_.Serve({.Certificates = {{.Serial = {7}, .OwnerName = "CN=Near", .SecondText = "text"},
                                     {.InNetwork = true, .UsageBits = 3, .OwnerName = "CN=Far"}}});
    const kseal::Context context = Open();
    const auto found = [&](uint32_t word, const char* query) {
        std::string names;
        EXPECT_EQ(Find(context, word, query), 0U);
        for (uint32_t i = 0; i < result_.Count; ++i) names += result_.Entries[i].OwnerName;
        exports_.FreeFindResult(context, &result_);
        return names;
    };
    EXPECT_EQ(found(0x100, nullptr), "CN=Near");
    EXPECT_EQ(found(0x104, "CN=*"), "CN=NearCN=Far");
    EXPECT_EQ(found(0xE04, "*=*"), "CN=Far");
    EXPECT_EQ(found(0, "CN=Nobody"), "");
    EXPECT_EQ(Find(context, 0xE04, "CN=Nobody"), kseal::NothingFound);
    EXPECT_EQ(Find(context, 0, "*"), 0U);
    EXPECT_EQ(result_.Entries[0].UsageBits, 0x1C);
    EXPECT_EQ(std::string(result_.Entries[0].SecondText), "text");
    EXPECT_EQ(result_.Entries[0].SerialLength, 1U);
    EXPECT_EQ(*result_.Entries[0].Serial, 7);
    exports_.FreeFindResult(context, &result_);
    exports_.Uninitialize(context);
}

TEST_F(StandInLibraryTest, ANetworkThatIsOffSaysSo) {
    library_.Serve({.Certificates = {{.InNetwork = true, .OwnerName = "CN=Far"}}, .NetworkAnswers = false});
    const kseal::Context context = Open();
    EXPECT_EQ(Find(context, 0xE04, "*"), StandInLibrary::NetworkSilent);
    EXPECT_EQ(library_.WaitingErrors(context), 1U);
    EXPECT_EQ(Find(context, 4, "*"), 0U);
    EXPECT_EQ(result_.Count, 0U);
    exports_.FreeFindResult(context, &result_);
    exports_.Uninitialize(context);
}

TEST_F(StandInLibraryTest, RevocationListsFailWithTheirText) {
    const kseal::Context context = Open();
    std::array<char, 8> buffer{};
    kseal::CrlControlBlock block;
    block.BufferLength = buffer.size();
    block.Buffer = buffer.data();
    EXPECT_EQ(exports_.Ctrl(context, 4, &block), 0U);
    EXPECT_EQ(std::string(buffer.data()), "");
    library_.Serve({.CrlDiagnostic = "busy"});
    EXPECT_EQ(exports_.Ctrl(context, 4, &block), StandInLibrary::CrlNotLoaded);
    EXPECT_EQ(std::string(buffer.data()), "busy");
    exports_.Uninitialize(context);
}

TEST_F(StandInLibraryTest, AnswersAsItIsTold) {
    const kseal::Context context = Open();
    library_.SetAnswer(StandInCall::FindCert, 5);
    library_.SetAnswer(StandInCall::FreeFindResult, 6);
    library_.SetAnswer(StandInCall::Uninitialize, 7);
    library_.SetAnswer(StandInCall::Initialize, 8);
    EXPECT_EQ(Find(context, 0, nullptr), 5U);
    EXPECT_EQ(exports_.FreeFindResult(context, &result_), 6U);
    EXPECT_EQ(exports_.Uninitialize(context), 7U);
    kseal::Context none = nullptr;
    EXPECT_EQ(exports_.Initialize("", 0, &none), 8U);
    EXPECT_EQ(none, nullptr);
}

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
    EXPECT_EQ(owners.Certificates,
              (Certificates{{false, 0x1C, {0x01, 0xA2}, "CN=Anna,O=A = B", "her text"}, {true, 0, {}, "CN=Jean", ""}}));
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

TEST(CertificateQueryTest, AsterisksStandForAnyRun) {
    struct Case {
        const char* text;
        const char* sample;
        bool matches;
    };
    const Case cases[] = {
        {"", "", true},         {"", "*", true},          {"a", "", false},        {"abc", "abc", true},
        {"abc", "ABC", true},   {"abc", "ab", false},     {"abc", "abcd", false},  {"abc", "a*", true},
        {"abc", "*c", true},    {"abc", "*b*", true},     {"abc", "a*c", true},    {"abc", "a*b", false},
        {"abc", "**", true},    {"aXbXc", "a*b*c", true}, {"aab", "*ab", true},    {"abab", "*ab", true},
        {"abac", "a*b", false}, {"abc", "abc**", true},   {"abc", "abc*d", false}, {"\xCA", "\xEA", false},
    };
    for (const Case& c : cases) EXPECT_EQ(MatchesSample(c.text, c.sample), c.matches) << c.text << " and " << c.sample;
}

TEST(CertificateQueryTest, AQueryMeansTheWholeNameOrItsAssertions) {
    const char* const name = "CN=Ivan Petrov, O=Bank,C=RU";
    for (const char* query :
         {"*=*", "*", "CN=Ivan Petrov, O=Bank,C=RU", "cn=iv*", "CN=Iv*,C=RU", "O=Bank", "C=RU, CN=*", "*Petrov*"})
        EXPECT_TRUE(MatchesQuery(name, query)) << query;
    for (const char* query : {"", "CN=Iv", "CN=QQQ,C=RU", "CN=Iv*,C=DE", "Ivan Petrov", "U"})
        EXPECT_FALSE(MatchesQuery(name, query)) << query;
}

}  // namespace
