// Searches by the cryptographic library.
#pragma once

#include <span>
#include <string>
#include <utility>

#include "config/Services.h"
#include "crypto/CertificateSearch.h"
#include "crypto/CryptoContext.h"

namespace crypto {

class LibrarySearch final : public CertificateSearch {
  public:
    // Services and context must outlive it.
    LibrarySearch(const config::Services& services, const CryptoContext& context, PickerSettings settings)
        : services_(services),
          context_(context),
          settings_(std::move(settings)) {}

    bool FindAllLocalNames(ui::Dialog& parent, NameList& names) override;
    bool FindOwnerNames(ui::Dialog& parent, const std::wstring& pattern, NameList& names) override;
    bool FindCertificatesByName(ui::Dialog& parent, const std::wstring& name, OwnerCertificates& found) override;

  private:
    bool IsWanted(const platform::kseal::CertEntry& entry) const;
    uint32_t SearchWord(uint32_t base) const;
    std::wstring Wide(const char* text) const;
    void AddNames(std::span<const platform::kseal::CertEntry> entries, NameList& names) const;
    platform::kseal::Context DetailContext() const;

    const config::Services& services_;
    const CryptoContext& context_;
    const PickerSettings settings_;
};

// "01:A2"; empty where there are no bytes. A length beyond this is taken for garbage and gives an empty text,
// too: serial numbers have at most 20 bytes.
inline constexpr uint32_t LongestSerial = 256;
std::wstring SerialText(const platform::kseal::CertEntry& entry);

}  // namespace crypto
