#include "crypto/LibrarySearch.h"

#include <string_view>

#include "text/Case.h"

namespace crypto {
namespace {

using platform::kseal::CertEntry;
using platform::kseal::CertFindRequest;

constexpr uint32_t namesOnly = 132;
constexpr uint32_t wholeCertificates = 163972;
constexpr uint32_t everyScope = 4;
constexpr uint32_t includeAllBit = 0x100;
constexpr uint8_t usableBits = 0x1C;

constexpr wchar_t searchingByName[] = L"Searching for certificate %s";

}  // namespace

bool LibrarySearch::FindAllLocalNames(ui::Dialog& parent, NameList& names) {
    names.Clear();
    CertFindRequest request;
    request.SearchWord = SearchWord(0);
    request.FieldsWanted = namesOnly;
    const FindResult found(context_, request);
    if (found.Code() != 0) {
        services_.Errors.ErrorReport({&parent, errors::ReportMode::ShowAndCollect},
                                     {.code = found.Code(),
                                      .operation = L"Searching of all certificate in local store",
                                      .argument = {},
                                      .context = DetailContext()});
        return false;
    }
    AddNames(found.Entries(), names);
    return true;
}

bool LibrarySearch::FindOwnerNames(ui::Dialog& parent, const std::wstring& pattern, NameList& names) {
    names.Clear();
    const std::string query = pattern == L"*" ? std::string("*=*") : services_.Machine.CodePage.ToAnsi(pattern);
    CertFindRequest request;
    request.SearchWord = SearchWord(0xE04);
    request.StoreScope = everyScope;
    request.Query = query.c_str();
    request.FieldsWanted = namesOnly;
    const FindResult found(context_, request);
    if (found.Code() == platform::kseal::NothingFound) return true;
    if (found.Code() != 0) {
        services_.Errors.ErrorReport(
            {&parent, errors::ReportMode::Show},
            {.code = found.Code(), .operation = searchingByName, .argument = pattern, .context = context_.Handle()});
        return false;
    }
    AddNames(found.Entries(), names);
    return true;
}

bool LibrarySearch::FindCertificatesByName(ui::Dialog& parent, const std::wstring& name, OwnerCertificates& found) {
    found = {};
    const std::wstring upperName = text::Upper(name);
    const std::string query = services_.Machine.CodePage.ToAnsi(name);
    CertFindRequest request;
    request.SearchWord = SearchWord(settings_.NotUseLDAP == 0 ? 4 : 0);
    request.StoreScope = everyScope;
    request.Query = query.c_str();
    request.FieldsWanted = wholeCertificates;
    const FindResult result(context_, request);
    if (result.Code() != 0) {
        services_.Errors.ErrorReport(
            {&parent, errors::ReportMode::ShowAndCollect},
            {.code = result.Code(), .operation = searchingByName, .argument = name, .context = DetailContext()});
        return false;
    }
    for (const CertEntry& entry : result.Entries()) {
        const bool sameOwner = entry.OwnerName != nullptr && text::Upper(Wide(entry.OwnerName)) == upperName;
        if (!sameOwner || !IsWanted(entry)) continue;
        found.Texts.push_back(Wide(entry.SecondText));
        found.Serials.push_back(SerialText(entry));
    }
    return true;
}

bool LibrarySearch::IsWanted(const CertEntry& entry) const {
    return settings_.IncludeAllCertificates != 0 || (entry.UsageBits & usableBits) != 0;
}

uint32_t LibrarySearch::SearchWord(uint32_t base) const {
    return settings_.IncludeAllCertificates != 0 ? base | includeAllBit : base;
}

std::wstring LibrarySearch::Wide(const char* text) const {
    return text == nullptr ? std::wstring() : services_.Machine.CodePage.ToWide(text);
}

// A certificate without an owner's name is nobody's and cannot be chosen.
void LibrarySearch::AddNames(std::span<const CertEntry> entries, NameList& names) const {
    for (const CertEntry& entry : entries)
        if (entry.OwnerName != nullptr && IsWanted(entry)) names.Add(Wide(entry.OwnerName));
}

platform::kseal::Context LibrarySearch::DetailContext() const {
    return settings_.ReportLibraryDetail != 0 ? context_.Handle() : nullptr;
}

std::wstring SerialText(const CertEntry& entry) {
    if (entry.Serial == nullptr || entry.SerialLength > LongestSerial) return {};
    constexpr std::wstring_view digits = L"0123456789ABCDEF";
    std::wstring serial;
    for (const uint8_t byte : std::span(entry.Serial, entry.SerialLength)) {
        if (!serial.empty()) serial += L':';
        serial += digits[byte >> 4];
        serial += digits[byte & 0xF];
    }
    return serial;
}

}  // namespace crypto
