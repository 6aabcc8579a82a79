// Scenarios that search in an open context.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "crypto/LibrarySearch.h"
#include "tests/crypto/CryptoTest.h"

namespace tests {

using Names = std::vector<std::wstring>;

inline Names NamesOf(const crypto::NameList& list) {
    Names names;
    for (size_t row = 0; row < list.Size(); ++row) names.emplace_back(list[row]);
    return names;
}

class LibrarySearchTest : public CryptoTest {
  protected:
    LibrarySearchTest() {
        settings_.NotUseLDAP = 0;
        names_.Add(L"from before");
        certificates_.Texts = {L"from before"};
        certificates_.Serials = {L"00"};
    }
    template <class Search>
    bool Run(const Search& search, const std::function<void()>& expectations) {
        bool succeeded = false;
        library_.ForgetCalls();
        InDialog(
            [&] {
                crypto::LibrarySearch searching(services_, context_, settings_);
                succeeded = search(searching);
            },
            expectations);
        return succeeded;
    }
    bool FindAll(const std::function<void()>& expectations = [] {}) {
        return Run([this](crypto::LibrarySearch& search) { return search.FindAllLocalNames(opener_, names_); },
                   expectations);
    }
    bool FindOwners(
        const std::wstring& pattern, const std::function<void()>& expectations = [] {}) {
        return Run([&](crypto::LibrarySearch& search) { return search.FindOwnerNames(opener_, pattern, names_); },
                   expectations);
    }
    bool FindByName(
        const std::wstring& name, const std::function<void()>& expectations = [] {}) {
        return Run(
            [&](crypto::LibrarySearch& search) { return search.FindCertificatesByName(opener_, name, certificates_); },
            expectations);
    }
    void ServeLocal(std::vector<demo::StandInCertificate> certificates) {
        library_.Serve({.Certificates = std::move(certificates)});
    }
    void TearDown() override {
        context_.Close();
        CryptoTest::TearDown();
    }

    crypto::PickerSettings settings_;
    crypto::NameList names_;
    crypto::OwnerCertificates certificates_;
    crypto::CryptoContext context_ = OpenedContext();
};

}  // namespace tests
