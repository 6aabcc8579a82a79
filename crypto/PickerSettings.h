// What the certificate picker and the searches are told: the store profile's settings as taken when the
// context was opened.
#pragma once

#include <cstdint>
#include <string>

namespace crypto {

struct PickerSettings {
    std::wstring ServerTSP;
    std::wstring GroupFilesFolder;  // where user groups files are looked for; empty: the system chooses
    int32_t AutoUseTSP = 0;
    int32_t NotAddCert = 0;
    int32_t NotCopyToLocal = 0;
    int32_t NotUseLDAP = 0;
    int32_t NotLoadCrl = 0;
    int32_t AutoVerifyTSP = 0;
    int32_t NoTSPisError = 0;
    int32_t UseAIA = 0;
    int32_t IncludeAllCertificates = 1;  // 0: only certificates with a usage bit of 0x1C
    int32_t ReportLibraryDetail = 0;     // reports of failed searches show the library's error stack
};

}  // namespace crypto
