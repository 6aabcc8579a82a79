// Records of the exchange text, spelled out in tests.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "config/Records.h"

namespace tests {

inline constexpr size_t ExchangeFields = 25;

// The fields' places in a record, as far as tests name them.
namespace field {
inline constexpr size_t Operation = 0;
inline constexpr size_t PathError = 3;
inline constexpr size_t Masks = 4;
inline constexpr size_t Certificates = 5;
inline constexpr size_t IsOn = 6;
inline constexpr size_t InFormatDet = 8;
inline constexpr size_t PathOut2 = 11;
inline constexpr size_t Descryption = 12;
inline constexpr size_t SignerLists = 13;
inline constexpr size_t ZipFile = 14;
inline constexpr size_t ExecTimeout = 24;
}  // namespace field

// A record of so many fields, those given and otherwise the ones of a rule that holds nothing.
inline std::string Record(const std::vector<std::pair<size_t, std::string>>& given = {},
                          size_t fields = ExchangeFields) {
    const std::array<std::string, ExchangeFields> empty{"",  "",  "", "", "0", "0", "0", "",  "0", "0", "", "", "",
                                                        "0", "0", "", "", "",  "",  "0", "0", "0", "",  "", "0"};
    std::vector<std::string> texts(empty.begin(), empty.end());
    texts.resize(std::max(fields, texts.size()));
    for (const auto& [place, text] : given) texts.at(place) = text;
    texts.resize(fields);
    std::string record;
    for (const std::string& text : texts) record += text + "\n";
    return record + "\r";
}

// A rule in which no two fields are alike, and its record.
inline config::Rule FullRule() {
    config::Rule rule;
    rule.Operation = L"SGEN";
    rule.PathIn = L"in";
    rule.PathOut = L"out";
    rule.PathError = L"error";
    rule.Masks = {L"*.txt", L"*.doc"};
    rule.Certificates = {L"CN=A", L"CN=B, O=\"C; D\"", L"CN=E"};
    rule.IsOn = 1;
    rule.ZCSProfile = L"keys";
    rule.InFormatDet = 2;
    rule.OutFormatDet = 3;
    rule.ResignProfile = L"resign";
    rule.PathOut2 = L"out 2";
    rule.Descryption = L"what it does";
    rule.SignerLists = {{L"Chiefs", {L"CN=F", L"CN=G"}}, {L"Nobody", {}}};
    rule.ZipFile = 4;
    rule.DelExt = L"del";
    rule.AddExt = L"add";
    rule.Folders = L"folders";
    rule.Copyfolders = L"copies";
    rule.ArchCount = 5;
    rule.ArchSize = -6;
    rule.ArchTimeout = 2147483647;
    rule.ArchName = L"archive";
    rule.ExecName = L"program";
    rule.ExecTimeout = -2147483647 - 1;
    return rule;
}

inline constexpr char FullRecord[] =
    "SGEN\nin\nout\nerror\n*.txt;;*.doc\nCN=A;;CN=B, O=\"C; D\";;CN=E\n1\nkeys\n2\n3\nresign\nout 2\n"
    "what it does\nChiefs;;CN=F;;CN=G;\\;Nobody\n4\ndel\nadd\nfolders\ncopies\n5\n-6\n2147483647\narchive\n"
    "program\n-2147483648\n\r";

}  // namespace tests
