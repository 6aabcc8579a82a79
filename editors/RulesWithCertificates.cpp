#include "editors/RulesWithCertificates.h"

#include <cstddef>
#include <cstdint>

#include "text/Numbers.h"

namespace editors {

std::wstring RulesWithCertificatesOf(std::span<const config::Rule> rules, std::wstring_view storeProfile) {
    std::wstring positions;
    for (size_t i = 0; i < rules.size(); ++i) {
        const config::Rule& rule = rules[i];
        if (rule.ZCSProfile != storeProfile || (rule.Certificates.empty() && rule.SignerLists.empty()))
            continue;
        if (!positions.empty()) positions += L',';
        positions += text::Decimal(static_cast<int64_t>(i) + 1);
    }
    return positions;
}

}  // namespace editors
