// Looking certificates up in the open stores.
#pragma once

#include <string>
#include <vector>

#include "config/CsProfileSettings.h"
#include "crypto/NameList.h"
#include "ui/Dialog.h"

namespace crypto {

// What the certificate picker and the searches are given: the CS profile's settings as taken when the
// context was opened, and what no configuration says yet.
struct PickerSettings : config::CsProfileSettings {
    std::wstring GroupFilesFolder;            // where user groups files are; empty: the system chooses
    config::Flag IncludeAllCertificates = 1;  // 0: only certificates with a usage bit of 0x1C
    config::Flag ReportLibraryDetail = 0;     // reports of failed searches show the library's error stack
};

// The certificates of one owner, index for index.
struct OwnerCertificates {
    std::vector<std::wstring> Texts;
    std::vector<std::wstring> Serials;  // "01:A2"
};

// Every out list is emptied first. False: the search failed, which has been reported with the parent as
// owner.
class CertificateSearch {
  public:
    virtual ~CertificateSearch() = default;

    // Every owner name of the local store, once.
    virtual bool FindAllLocalNames(ui::Dialog& parent, NameList& names) = 0;
    // Every owner name that the query matches ("CN=Iv*"; "*" for everything), once. Finding none is a
    // success.
    virtual bool FindOwnerNames(ui::Dialog& parent, const std::wstring& pattern, NameList& names) = 0;
    // The certificates whose owner has this name; letter case does not matter.
    virtual bool FindCertificatesByName(ui::Dialog& parent, const std::wstring& name, OwnerCertificates& found) = 0;
};

}  // namespace crypto
