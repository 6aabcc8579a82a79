// Any text as an owner name, taken apart in each way, beside a plain statement of what has to come out.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "certs/NameFields.h"
#include "fuzz/Text.h"
#include "text/Case.h"

namespace {

bool KeyFollows(const std::wstring& text, size_t comma, size_t keys, const std::wstring& behindKey) {
    for (size_t i = 0; i < keys; ++i) {
        const std::wstring wanted = certs::Fields()[i].key + behindKey;
        if (text.compare(comma + 1, wanted.size(), wanted) == 0) return true;
    }
    return false;
}

void CheckParts(const std::wstring& upper) {
    std::vector<std::wstring> expected(1);
    for (size_t i = 0; i < upper.size(); ++i) {
        if (upper[i] == L',' && KeyFollows(upper, i, certs::Fields().size(), L"")) {
            expected.emplace_back();
        } else {
            expected.back() += upper[i];
        }
    }
    const auto parts = certs::CutName(upper);
    if (!std::equal(parts.begin(), parts.end(), expected.begin(), expected.end())) std::abort();
}

void CheckLines(const std::wstring& name, const std::wstring& upper) {
    std::wstring expected = name;
    for (size_t i = 0; i < name.size(); ++i)
        if (name[i] == L',' && KeyFollows(upper, i, certs::OfferedFieldCount(), L"=")) expected[i] = L'\n';
    if (certs::NameInLines(name) != expected) std::abort();
}

void CheckSortKey(const std::wstring& name, const std::wstring& field) {
    const std::wstring assignment = field + L"=";
    std::wstring expected;
    if (name.compare(0, assignment.size(), assignment) == 0) {
        expected = name;
    } else if (const size_t place = name.find(L"," + assignment); place != std::wstring::npos) {
        expected = name.substr(place + 1);
    }
    if (certs::SortKey(name, field) != expected) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring name = fuzz::WideText(data, size);
    const std::wstring upper = text::Upper(name);
    CheckParts(upper);
    CheckLines(name, upper);
    for (const certs::NameField& field : certs::Fields()) CheckSortKey(name, field.key);
    return 0;
}
