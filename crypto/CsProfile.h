// A store profile of the cryptographic library: where its certificates lie. The editor only ever reads them.
#pragma once

#include <string>
#include <vector>

namespace crypto {

struct CsProfile {
    std::wstring ProfileName;  // its identity everywhere in the editor; need not be unique
    std::wstring Store0;       // location of the personal store
    std::wstring Store1;       // location of the local certificate store
    bool operator==(const CsProfile&) const = default;
};

// The profile's names in their order.
std::vector<std::wstring> CsProfileNames(const std::vector<CsProfile>& profiles);

}  // namespace crypto
