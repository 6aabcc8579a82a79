// The bytes that the library is given for each search: those that have a meaning, and nothing but zeros
// between them.
#include <array>
#include <cstring>
#include <optional>
#include <span>

#include "crypto/LibrarySearch.h"
#include "crypto/OpenCryptoContext.h"
#include "tests/crypto/CryptoTest.h"

namespace tests {
namespace {

namespace kseal = platform::kseal;

using RequestBytes = std::array<std::byte, 432>;
constexpr size_t wordAt = 0, scopeAt = 16, queryAt = 40, fieldsAt = 424;

// As the library sees it; in place of the pointer to the query, zeros.
struct SeenRequest {
    RequestBytes bytes{};
    std::optional<std::string> query;
};

std::vector<SeenRequest>* seenRequests = nullptr;

kseal::Code LookAndFind(kseal::Context context, const kseal::CertFindRequest* request, kseal::CertFindResult* result) {
    SeenRequest& seen = seenRequests->emplace_back();
    std::memcpy(seen.bytes.data(), request, seen.bytes.size());
    const char* query = nullptr;
    std::memcpy(&query, seen.bytes.data() + queryAt, sizeof query);
    if (query != nullptr) seen.query = query;
    std::ranges::fill(std::span(seen.bytes).subspan(queryAt, sizeof query), std::byte{0});
    return demo::StandInLibrary::Exports().FindCert(context, request, result);
}

RequestBytes Request(uint32_t word, uint32_t scope, uint32_t fields) {
    RequestBytes bytes{};
    std::memcpy(bytes.data() + wordAt, &word, sizeof word);
    std::memcpy(bytes.data() + scopeAt, &scope, sizeof scope);
    std::memcpy(bytes.data() + fieldsAt, &fields, sizeof fields);
    return bytes;
}

class SearchRequestTest : public CryptoTest {
  protected:
    SearchRequestTest() {
        seenRequests = &seen_;
        kseal::Exports exports = demo::StandInLibrary::Exports();
        exports.FindCert = LookAndFind;
        world_->CryptoLibrary().Install(exports);
    }
    // Opens a context with a probe of the network store, and searches in each way.
    void SearchInEachWay() {
        crypto::PickerSettings settings;
        settings.NotUseLDAP = 0;
        settings.NotLoadCrl = 1;
        InDialog([&] {
            const auto opened = crypto::OpenCryptoContext(services_, opener_, L"Office", settings);
            ASSERT_TRUE(opened);
            crypto::LibrarySearch search(services_, opened->Context, settings);
            crypto::NameList names;
            crypto::OwnerCertificates certificates;
            EXPECT_TRUE(search.FindAllLocalNames(opener_, names));
            EXPECT_TRUE(search.FindOwnerNames(opener_, L"CN=Iv*", names));
            EXPECT_TRUE(search.FindCertificatesByName(opener_, L"CN=Ivan", certificates));
        });
    }

    std::vector<SeenRequest> seen_;
};

TEST_F(SearchRequestTest, WhatHasNoMeaningIsZero) {
    SearchInEachWay();
    ASSERT_EQ(seen_.size(), 4U);
    EXPECT_EQ(seen_[0].bytes, Request(0xE04, 0, 4));  // the probe
    EXPECT_EQ(seen_[0].query, "CN=QQQ,C=RU");
    EXPECT_EQ(seen_[1].bytes, Request(0x100, 0, 132));
    EXPECT_EQ(seen_[1].query, std::nullopt);
    EXPECT_EQ(seen_[2].bytes, Request(0xF04, 4, 132));
    EXPECT_EQ(seen_[2].query, "CN=Iv*");
    EXPECT_EQ(seen_[3].bytes, Request(0x104, 4, 163972));
    EXPECT_EQ(seen_[3].query, "CN=Ivan");
}

}  // namespace
}  // namespace tests
