#include "config/FieldReader.h"

#include "text/Numbers.h"

namespace config {
namespace {

// A stored count can be far beyond the values that are there. When so many in a row are missing, the list has
// ended: reading on would take time and memory for nothing but empty entries.
constexpr size_t longestGap = 256;

}  // namespace

int32_t FieldReader::ReadCount(const wchar_t* name) {
    int32_t count = 0;
    store_.ReadInteger(name, count, context_, 0);
    return count;
}

void FieldReader::ReadNumbered(const wchar_t* prefix, int32_t count, std::vector<std::wstring>& target) {
    size_t gap = 0;  // missing values since the last one that was there
    for (int32_t number = 0; number < count; ++number) {
        std::wstring entry;
        const ReadOutcome outcome = store_.ReadString(prefix + text::Decimal(number), entry, context_);
        gap = outcome == ReadOutcome::Value ? 0 : gap + 1;
        target.push_back(std::move(entry));
        if (gap > longestGap) {
            target.resize(target.size() - gap);
            return;
        }
    }
}

void FieldReader::Masks(const wchar_t* countName, const wchar_t* prefix, Rule& rule) {
    const int32_t count = ReadCount(countName);
    if (count == 0) {
        Text(L"Mask", rule.Mask);
        rule.Masks.push_back(rule.Mask);
    } else {
        ReadNumbered(prefix, count, rule.Masks);
    }
}

void FieldReader::CertificateCount(const wchar_t* name, std::vector<CertificateRef>& /*certificates*/) {
    certificateCount_ = ReadCount(name);
}

void FieldReader::Certificates(const wchar_t* prefix, std::vector<CertificateRef>& certificates) {
    ReadNumbered(prefix, certificateCount_, certificates);
}

void FieldReader::Numbered(const wchar_t* countName, const wchar_t* prefix,
                           std::vector<std::wstring>& target) {
    ReadNumbered(prefix, ReadCount(countName), target);
}

}  // namespace config
