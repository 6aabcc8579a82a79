// Any text as a number, and any lines as the names of rule keys, beside plain statements of what they mean.
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "config/Load.h"
#include "fuzz/Input.h"
#include "fuzz/Text.h"
#include "text/Numbers.h"

namespace {

using fuzz::Require;
using Texts = std::vector<std::wstring>;

bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

// The digits at the front without leading zeros: numbers that are too large for any type are compared so.
std::wstring Digits(const std::wstring& text) {
    size_t begin = 0;
    while (begin < text.size() && text[begin] == L'0') ++begin;
    size_t end = begin;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return text.substr(begin, end - begin);
}

bool IsBeyond(const std::wstring& digits, const std::wstring& limit) {
    if (digits.size() != limit.size()) return digits.size() > limit.size();
    return digits > limit;
}

void CheckDigits(const std::wstring& text) {
    std::wstring expected = Digits(text);
    if (expected.empty()) expected = L"0";
    if (IsBeyond(expected, L"18446744073709551615")) expected = L"18446744073709551615";
    Require(std::to_wstring(text::LeadingDigits(text)) == expected);
}

void CheckNumber(const std::wstring& text) {
    std::wstring rest = text;
    while (!rest.empty() && rest.front() == L' ') rest.erase(0, 1);
    const bool negative = !rest.empty() && rest.front() == L'-';
    if (negative || (!rest.empty() && rest.front() == L'+')) rest.erase(0, 1);
    std::wstring digits = Digits(rest);
    const std::wstring limit = negative ? L"2147483648" : L"2147483647";
    if (IsBeyond(digits, limit)) digits = limit;
    std::wstring expected = digits.empty() ? L"0" : digits;
    if (negative && !digits.empty()) expected = L"-" + expected;
    const int32_t number = text::LeadingNumber(text);
    Require(std::to_wstring(number) == expected);
    Require(text::LeadingNumber(text::Decimal(number)) == number);
}

void CheckWriting(uint64_t number) {
    wchar_t written[32];
    std::swprintf(written, 32, L"%lX", number);
    Require(text::Hexadecimal(number) == written);
    const auto asSigned = static_cast<int64_t>(number);
    Require(text::Decimal(asSigned) == std::to_wstring(asSigned));
    if (asSigned >= 0) Require(text::LeadingDigits(text::Decimal(asSigned)) == number);
}

// Pass by pass, neighbour by neighbour.
Texts Exchanged(Texts names) {
    std::vector<uint64_t> numbers;
    for (const std::wstring& name : names) numbers.push_back(config::RuleKeyNumber(name));
    for (size_t pass = 2; pass < names.size(); ++pass)
        for (size_t i = 0; i + 1 < names.size(); ++i)
            if (numbers[i] > numbers[i + 1]) {
                std::swap(numbers[i], numbers[i + 1]);
                std::swap(names[i], names[i + 1]);
            }
    return names;
}

void CheckKeyNumber(const std::wstring& name) {
    size_t begin = name.size();
    while (begin > 0 && name[begin - 1] != L' ') --begin;
    const uint64_t expected = begin == 0 ? 0 : text::LeadingDigits(name.substr(begin));
    Require(config::RuleKeyNumber(name) == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 512) return 0;
    Texts names(1);
    for (const wchar_t unit : fuzz::WideText(data, size)) {
        if (unit == L'\n') {
            names.emplace_back();
        } else {
            names.back() += unit;
        }
    }
    for (const std::wstring& name : names) {
        CheckDigits(name);
        CheckNumber(name);
        CheckKeyNumber(name);
    }
    fuzz::Input input({data, size});
    const uint64_t high = input.Word();
    CheckWriting(high << 32 | input.Word());
    const Texts expected = Exchanged(names);
    config::OrderRuleKeys(names);
    Require(names == expected);
    return 0;
}
