#include "app/RuleTexts.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "config/Operations.h"
#include "editors/RuleForm.h"
#include "text/Case.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/Trim.h"

namespace app {
namespace {

using config::Holds;
using config::Option;
using config::Rule;

constexpr std::array<std::wstring_view, 9> headers{
    L"",      L"Description", L"Rules", L"Input folder", L"Output folder", L"Error folder",
    L"Masks", L"CS profile",  L"Extra"};

constexpr wchar_t separator[] = L"; ";

std::wstring SignatureFormats(const Rule& rule) {
    const auto format = [](int32_t detached) { return config::SignatureFormats[detached != 0 ? 1 : 0]; };
    return text::Format(L"%s->%s", format(rule.InFormatDet), format(rule.OutFormatDet));
}

// Empty for a number that stands for none, which a configuration edited by hand may hold.
std::wstring_view ArchiveKind(const Rule& rule) {
    const bool isKnown = rule.ZipFile >= 1 && rule.ZipFile < std::ssize(config::ArchiveKinds);
    return isKnown ? config::ArchiveKinds[static_cast<size_t>(rule.ZipFile)] : std::wstring_view();
}

std::wstring CountUnlessZero(size_t count) {
    return count == 0 ? std::wstring() : text::Format(L"%d", count);
}

void AppendPart(std::wstring& extra, std::wstring_view part) {
    if (!extra.empty()) extra += separator;
    extra += part;
}

std::wstring MoveExtra(const Rule& rule) {
    return text::JoinNonEmpty({rule.PathOut2, rule.DelExt, rule.AddExt, rule.Folders, rule.Copyfolders}, separator);
}

std::wstring ResignExtra(const Rule& rule) {
    std::wstring extra;
    if (!rule.SignerLists.empty()) extra = text::Format(L"%d; ", rule.SignerLists.size());
    return (extra += rule.ResignProfile) + separator + SignatureFormats(rule);
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
    if (rule.Operation == L"MOVE") return MoveExtra(rule);
    if (rule.Operation == L"RESG") return ResignExtra(rule);

    const config::Operation* operation = config::FindOperation(rule.Operation);
    const bool verifies = operation != nullptr && operation->holds == Holds::SignerLists;
    std::wstring extra = CountUnlessZero(verifies ? rule.SignerLists.size() : rule.Certificates.size());
    if (rule.ZipFile != 0) {
        if (!rule.Certificates.empty() || !rule.SignerLists.empty()) extra += separator;
        extra += ArchiveKind(rule);
    }
    if (rule.Operation == L"PACK") AppendPackOptions(extra, rule);
    if (rule.Operation == L"EXEC") AppendExecOptions(extra, rule);
    return extra;
}

std::wstring OperationName(const Rule& rule) {
    // Kept: an output folder that is not set empties this cell, not its own.
    if (rule.PathOut == config::NotSet) return {};
    const config::Operation* operation = config::FindOperation(rule.Operation);
    return std::wstring(operation == nullptr ? std::wstring_view(rule.Operation) : operation->displayName);
}

std::wstring LabelOf(Holds holds) {
    return std::wstring(editors::LookOf(holds).tooltip);
}

// Builds the detail text: sections with an empty line after each.
class Sections {
  public:
    void Add(std::wstring_view section) { text_.append(section).append(L"\r\n\r\n"); }
    void AddLabelled(std::wstring_view label, std::wstring_view value) {
        if (!value.empty()) Add(text::Format(L"%s %s", label, value));
    }
    void AddLabelled(std::wstring_view label, int32_t number) {
        if (number != 0) Add(text::Format(L"%s %d", label, number));
    }
    // An option that the rule editor asks for, under the label that it has there.
    void AddOption(const Rule& rule, const Option& option) {
        if (option.input == config::Input::Text) AddLabelled(option.label, rule.*option.text);
        if (option.input == config::Input::Number) AddLabelled(option.label, rule.*option.number);
    }
    void Discard() { text_.clear(); }
    std::wstring Take() { return std::move(text_); }

  private:
    std::wstring text_;
};

// Each once, in the order of the operations; how long to wait for an executable is shown after its name.
std::vector<const Option*> ListedOptions() {
    std::vector<const Option*> listed;
    for (const config::Operation& operation : config::Operations())
        for (const Option* option : operation.options)
            if (option != nullptr && operation.holds != Holds::Executable &&
                std::find(listed.begin(), listed.end(), option) == listed.end())
                listed.push_back(option);
    return listed;
}

void AddCertificateSections(Sections& sections, const Rule& rule) {
    if (!rule.ResignProfile.empty())
        sections.Add(text::Format(L"Resign to CS profile: %s\r\n%s", rule.ResignProfile, SignatureFormats(rule)));
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
            return std::wstring(rule.Descryption);
        case RuleColumn::Operation:
            return OperationName(rule);
        case RuleColumn::PathIn:
            return std::wstring(rule.PathIn);
        case RuleColumn::PathOut:
            return std::wstring(rule.PathOut);
        case RuleColumn::PathError:
            // Kept: a CS profile that is not set empties this cell, not its own.
            return rule.ZCSProfile == config::NotSet ? std::wstring() : std::wstring(rule.PathError);
        case RuleColumn::Masks:
            return rule.Masks.size() == 1 ? rule.Masks.front() : text::Format(L"%d", rule.Masks.size());
        case RuleColumn::CsProfile:
            return std::wstring(rule.ZCSProfile);
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
        sections.Discard();  // of a rule with a second folder only the folders are shown
        sections.AddLabelled(LabelOf(Holds::SecondFolder) + L":", rule.PathOut2);
    }
    for (const Option* option : ListedOptions()) sections.AddOption(rule, *option);
    sections.AddLabelled(LabelOf(Holds::Executable), rule.ExecName);
    if (!rule.ExecName.empty() && rule.ExecTimeout > 0) sections.AddOption(rule, config::option::ExecutionTimeout);
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
