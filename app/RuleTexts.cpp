#include "app/RuleTexts.h"

#include <array>

#include "config/Operations.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/Trim.h"
#include "text/Upper.h"

namespace app {
namespace {

using config::Rule;

constexpr std::array<std::wstring_view, 9> headers{
    L"",      L"Description", L"Rules", L"Input folder", L"Output folder", L"Error folder",
    L"Masks", L"CS profile",  L"Extra"};

constexpr wchar_t notSet[] = L"0";
constexpr wchar_t separator[] = L"; ";

std::wstring SignatureFormats(const Rule& rule) {
    const auto format = [](int32_t detached) {
        return detached != 0 ? L"Detached signature" : L"Attached signature";
    };
    return text::Format(L"%s->%s", format(rule.InFormatDet), format(rule.OutFormatDet));
}

std::wstring ArchiveKind(const Rule& rule) {
    if (rule.ZipFile == 1) return L"ZIP archivation";
    return rule.ZipFile == 2 ? L"GZIP archivation" : L"";
}

std::wstring CountUnlessZero(size_t count) {
    return count == 0 ? std::wstring() : text::Format(L"%d", count);
}

void AppendPart(std::wstring& extra, std::wstring_view part) {
    if (!extra.empty()) extra += separator;
    extra += part;
}

std::wstring MoveExtra(const Rule& rule) {
    return text::JoinNonEmpty({rule.PathOut2, rule.DelExt, rule.AddExt, rule.Folders, rule.Copyfolders},
                              separator);
}

std::wstring ResignExtra(const Rule& rule) {
    std::wstring extra;
    if (!rule.SignerLists.empty()) extra = text::Format(L"%d; ", rule.SignerLists.size());
    return extra + rule.ResignProfile + separator + SignatureFormats(rule);
}

void AppendPackOptions(std::wstring& extra, const Rule& rule) {
    for (const int32_t number : {rule.ArchCount, rule.ArchSize, rule.ArchTimeout})
        if (number > 0) AppendPart(extra, text::Decimal(number));
    if (!rule.ArchName.empty()) AppendPart(extra, rule.ArchName);
}

void AppendExecOptions(std::wstring& extra, const Rule& rule) {
    AppendPart(extra, rule.ExecName);
    if (rule.ExecTimeout > 0) extra += text::Format(L"; %d", rule.ExecTimeout);
}

std::wstring Extra(const Rule& rule) {
    const std::wstring& operation = rule.Operation;
    if (operation == L"MOVE") return MoveExtra(rule);
    if (operation == L"RESG") return ResignExtra(rule);

    const bool verifies =
        operation == L"CHCK" || operation == L"CHKX" || operation == L"DCHK" || operation == L"DCCX";
    std::wstring extra = CountUnlessZero(verifies ? rule.SignerLists.size() : rule.Certificates.size());
    if (rule.ZipFile != 0) {
        if (!rule.Certificates.empty() || !rule.SignerLists.empty()) extra += separator;
        extra += ArchiveKind(rule);
    }
    if (operation == L"PACK") AppendPackOptions(extra, rule);
    if (operation == L"EXEC") AppendExecOptions(extra, rule);
    return extra;
}

std::wstring OperationName(const Rule& rule) {
    // Kept: an output folder that is not set empties this cell, not its own.
    if (rule.PathOut == notSet) return {};
    const auto index = config::OperationIndex(rule.Operation);
    return index ? std::wstring(config::Operations()[*index].displayName) : rule.Operation;
}

// Builds the detail text: sections with an empty line behind each.
class Sections {
  public:
    void Add(std::wstring_view section) { text_.append(section).append(L"\r\n\r\n"); }
    void AddLabelled(std::wstring_view label, std::wstring_view value) {
        if (!value.empty()) Add(text::Format(L"%s %s", label, value));
    }
    void AddLabelled(std::wstring_view label, int32_t number) {
        if (number != 0) Add(text::Format(L"%s %d", label, number));
    }
    void Discard() { text_.clear(); }
    std::wstring Take() { return std::move(text_); }

  private:
    std::wstring text_;
};

void AddCertificateSections(Sections& sections, const Rule& rule) {
    if (!rule.ResignProfile.empty())
        sections.Add(
            text::Format(L"Resign to CS profile: %s\r\n%s", rule.ResignProfile, SignatureFormats(rule)));
    for (size_t k = 0; k < rule.Certificates.size(); ++k)
        sections.Add(text::Format(L"Recipient %d:\r\n%s", k + 1, rule.Certificates[k]));
    for (const config::SignerListEntry& list : rule.SignerLists) {
        std::wstring section = L"List name: " + list.Name;
        for (size_t j = 0; j < list.Signers.size(); ++j)
            section += text::Format(L"\r\nSigner %d:\r\n%s", j + 1, list.Signers[j]);
        sections.Add(section);
    }
    if (rule.ZipFile != 0) sections.Add(ArchiveKind(rule));
}

}  // namespace

std::span<const std::wstring_view> RuleColumnHeaders() {
    return headers;
}

std::wstring RuleCell(const Rule& rule, size_t position, RuleColumn column) {
    switch (column) {
        case RuleColumn::Number:
            return text::Format(L"%d", position + 1);
        case RuleColumn::Description:
            return rule.Descryption;
        case RuleColumn::Operation:
            return OperationName(rule);
        case RuleColumn::PathIn:
            return rule.PathIn;
        case RuleColumn::PathOut:
            return rule.PathOut;
        case RuleColumn::PathError:
            // Kept: a store profile that is not set empties this cell, not its own.
            return rule.ZCSProfile == notSet ? std::wstring() : rule.PathError;
        case RuleColumn::Masks:
            return rule.Masks.size() == 1 ? rule.Masks.front() : text::Format(L"%d", rule.Masks.size());
        case RuleColumn::CsProfile:
            return rule.ZCSProfile;
        case RuleColumn::Extra:
            return Extra(rule);
    }
    return {};
}

std::wstring MaskDetails(const Rule& rule) {
    std::wstring details;
    for (const std::wstring& mask : rule.Masks) details += L"\r\n" + mask;
    return details;
}

std::wstring ExtraDetails(const Rule& rule) {
    Sections sections;
    AddCertificateSections(sections, rule);
    if (!rule.PathOut2.empty()) {
        sections.Discard();  // a rule with a second folder is told by its folders alone
        sections.AddLabelled(L"Second Output folder :", rule.PathOut2);
    }
    sections.AddLabelled(L"Delete extension:", rule.DelExt);
    sections.AddLabelled(L"Add extension:", rule.AddExt);
    sections.AddLabelled(L"Accounting format:", rule.Folders);
    sections.AddLabelled(L"Accounting copy format:", rule.Copyfolders);
    sections.AddLabelled(L"File count:", rule.ArchCount);
    sections.AddLabelled(L"Archive size (KB.):", rule.ArchSize);
    sections.AddLabelled(L"Archivation timeout (min.):", rule.ArchTimeout);
    sections.AddLabelled(L"Archives name format:", rule.ArchName);
    sections.AddLabelled(L"Executable file:", rule.ExecName);
    if (!rule.ExecName.empty() && rule.ExecTimeout > 0)
        sections.AddLabelled(L"Execution timeout (min.):", rule.ExecTimeout);
    return sections.Take();
}

std::vector<size_t> ListedRules(std::span<const Rule> rules, std::wstring_view searchText) {
    const std::wstring wanted = text::Upper(searchText);
    std::vector<size_t> listed;
    for (size_t position = 0; position < rules.size(); ++position) {
        const Rule& rule = rules[position];
        if (rule.Operation.empty()) continue;
        if (wanted.empty() || text::Upper(rule.Descryption).find(wanted) != std::wstring::npos)
            listed.push_back(position);
    }
    return listed;
}

}  // namespace app
