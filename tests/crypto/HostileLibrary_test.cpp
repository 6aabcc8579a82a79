// A library that answers with counts without entries, entries without names, and lengths without bounds.
#include <array>
#include <cstring>

#include "crypto/CryptoContext.h"
#include "tests/crypto/LibrarySearchTest.h"

namespace tests {
namespace {

using crypto::LibrarySearch;
using platform::kseal::CertEntry;

// Its answers are what a test gives it.
class HostileLibrary : public LibrarySearchTest {
  protected:
    HostileLibrary() {
        exports_.FindCert = [](platform::kseal::Context, const platform::kseal::CertFindRequest* request,
                               platform::kseal::CertFindResult* result) {
            requests.emplace_back();
            std::memcpy(requests.back().data(), request, 432);
            *result = answer;
            return code;
        };
        exports_.FreeFindResult = [](platform::kseal::Context, platform::kseal::CertFindResult* result) {
            EXPECT_EQ(result->Entries, answer.Entries);
            ++released;
            return uint32_t{0};
        };
        exports_.Uninitialize = [](platform::kseal::Context) { return uint32_t{0}; };
        answer = {};
        code = 0;
        released = 0;
        requests.clear();
    }
    bool FindNames() { return search_.FindAllLocalNames(opener_, names_); }
    bool FindCertificates() { return search_.FindCertificatesByName(opener_, L"a", certificates_); }
    void Answer(std::vector<CertEntry>& entries) {
        answer.Count = static_cast<uint32_t>(entries.size());
        answer.Entries = entries.data();
    }

    inline static platform::kseal::CertFindResult answer;
    inline static uint32_t code = 0;
    inline static int released = 0;
    inline static std::vector<std::array<uint8_t, 432>> requests;

    platform::kseal::Exports exports_ = demo::StandInLibrary::Exports();
    int somewhere_ = 0;
    crypto::CryptoContext hostile_{exports_, &somewhere_, reporter_};
    LibrarySearch search_{services_, hostile_, settings_};
    std::string name_ = "A";
    std::string text_ = "text";
    std::vector<uint8_t> serial_ = std::vector<uint8_t>(crypto::LongestSerial, 0xAB);
};

TEST_F(HostileLibrary, RequestsAreTheseBytes) {
    const auto number = [](std::array<uint8_t, 432>& bytes, size_t offset, uint32_t value) {
        for (size_t i = 0; i < 4; ++i) bytes[offset + i] = static_cast<uint8_t>(value >> (8 * i));
    };
    FindNames();
    std::array<uint8_t, 432> expected{};
    number(expected, 0, 0x100);
    number(expected, 424, 132);
    EXPECT_EQ(requests.at(0), expected);

    search_.FindOwnerNames(opener_, L"CN=*", names_);
    std::array<uint8_t, 432> given = requests.at(1);
    EXPECT_NE(std::vector<uint8_t>(given.begin() + 40, given.begin() + 48), std::vector<uint8_t>(8));
    std::fill(given.begin() + 40, given.begin() + 48, uint8_t{0});
    number(expected, 0, 0xF04);
    number(expected, 16, 4);
    EXPECT_EQ(given, expected);

    FindCertificates();
    given = requests.at(2);
    std::fill(given.begin() + 40, given.begin() + 48, uint8_t{0});
    number(expected, 0, 0x104);
    number(expected, 424, 163972);
    EXPECT_EQ(given, expected);
}

TEST_F(HostileLibrary, ACountWithoutEntriesIsNothing) {
    answer.Count = 0xFFFFFFFF;
    EXPECT_TRUE(FindNames());
    EXPECT_TRUE(names_.IsEmpty());
    EXPECT_TRUE(FindCertificates());
    EXPECT_TRUE(search_.FindOwnerNames(opener_, L"*", names_));
    EXPECT_EQ(released, 3);
}

TEST_F(HostileLibrary, EntriesWithoutACountAreNotRead) {
    std::vector<CertEntry> entries(1);
    Answer(entries);
    entries[0].OwnerName = name_.data();
    answer.Count = 0;
    EXPECT_TRUE(FindNames());
    EXPECT_TRUE(names_.IsEmpty());
    EXPECT_EQ(released, 1);
}

TEST_F(HostileLibrary, WhatAFailedSearchLeavesIsNeitherReadNorReleased) {
    std::vector<CertEntry> entries(1);
    Answer(entries);
    entries[0].OwnerName = name_.data();
    code = 0xE0700046;
    EXPECT_TRUE(search_.FindOwnerNames(opener_, L"*", names_));
    EXPECT_TRUE(names_.IsEmpty());
    EXPECT_EQ(released, 0);
    EXPECT_TRUE(crypto::FindResult(hostile_, {}).Entries().empty());
    EXPECT_EQ(released, 0);
    EXPECT_TRUE(crypto::FindResult(hostile_, {}, crypto::FindResult::Released::Always).Entries().empty());
    EXPECT_EQ(released, 1);
}

TEST_F(HostileLibrary, ACertificateWithoutAnOwnerIsNobodys) {
    std::vector<CertEntry> entries(3);
    entries[1].OwnerName = name_.data();
    Answer(entries);
    EXPECT_TRUE(FindNames());
    EXPECT_EQ(NamesOf(names_), Names{L"A"});
    EXPECT_TRUE(FindCertificates());
    EXPECT_EQ(certificates_.Texts, Names{L""});
    EXPECT_EQ(certificates_.Serials, Names{L""});
    EXPECT_TRUE(search_.FindCertificatesByName(opener_, L"", certificates_));
    EXPECT_TRUE(certificates_.Texts.empty());
    EXPECT_EQ(released, 3);
}

TEST_F(HostileLibrary, SerialNumbersBeyondAllBoundsAreLeftOut) {
    std::vector<CertEntry> entries(4);
    for (CertEntry& entry : entries) {
        entry.OwnerName = name_.data();
        entry.SecondText = text_.data();
        entry.Serial = serial_.data();
    }
    entries[0].SerialLength = crypto::LongestSerial;
    entries[1].SerialLength = crypto::LongestSerial + 1;
    entries[2].SerialLength = 0xFFFFFFFF;
    entries[3].SerialLength = 4;
    entries[3].Serial = nullptr;
    Answer(entries);
    EXPECT_TRUE(FindCertificates());
    EXPECT_EQ(certificates_.Texts, Names(4, L"text"));
    ASSERT_EQ(certificates_.Serials.size(), 4U);
    EXPECT_EQ(certificates_.Serials[0].size(), 3U * crypto::LongestSerial - 1);
    EXPECT_TRUE(certificates_.Serials[0].starts_with(L"AB:AB:"));
    EXPECT_EQ(Names(certificates_.Serials.begin() + 1, certificates_.Serials.end()), Names(3, L""));
}

}  // namespace
}  // namespace tests
