#include "editors/RuleForm.h"

#include <algorithm>
#include <stdexcept>

#include "text/Format.h"

namespace editors {
namespace {

using config::Holds;
using config::Input;
using config::Operation;
using config::Option;
using config::Rule;
using Names = std::vector<std::wstring>;

constexpr std::array<ActionLook, 5> looks{{
    {.holds = Holds::Nothing},
    {.holds = Holds::Recipients},
    {.holds = Holds::SignerLists, .tooltip = L"Add signers", .fieldName = L"Signer lists"},
    {.holds = Holds::SecondFolder,
     .icon = ui::Icon::Folder,
     .tooltip = L"Second Output folder ",
     .fieldName = L"Second Output folder",
     .takesPath = true},
    {.holds = Holds::Executable,
     .icon = ui::Icon::Executable,
     .tooltip = L"Executable file:",
     .fieldName = L"Executable file",
     .takesPath = true},
}};

const Operation& OperationOf(std::wstring_view code) {
    static constexpr Operation nothingSelected{};
    if (code.empty()) return nothingSelected;
    const Operation* operation = config::FindOperation(code);
    if (operation == nullptr) throw std::out_of_range("editors: no such operation");
    return *operation;
}

std::wstring KnownOperation(std::wstring_view code) {
    const Operation* known = config::FindOperation(code);
    return std::wstring(known == nullptr ? config::Operations().front().code : known->code);
}

// Of several that are equal the last; the first when there is none.
size_t IndexOf(std::wstring_view name, const Names& csProfiles) {
    const auto found = std::find(csProfiles.rbegin(), csProfiles.rend(), name);
    return found == csProfiles.rend() ? 0 : static_cast<size_t>(csProfiles.rend() - found) - 1;
}

std::wstring NameAt(std::optional<size_t> index, const Names& csProfiles) {
    return index && *index < csProfiles.size() ? csProfiles[*index] : std::wstring();
}

std::wstring UnlessNotSet(std::wstring_view path) {
    return std::wstring(IsSet(path) ? path : std::wstring_view());
}

bool KeepsSignerLists(Holds holds) {
    return holds == Holds::SignerLists || holds == Holds::Executable;
}

bool IsArchiveList(const Option* option) {
    return option != nullptr && option->number == &Rule::ZipFile;
}

// The kind of archive stays the same where one list has the entry "No" and the other has not. Signature
// formats start anew, and are never taken for kinds of archives.
size_t ChoiceTakenOver(const Option* before, std::optional<size_t> choice, const Option* now) {
    if (!IsArchiveList(before) || !IsArchiveList(now)) return 0;
    return config::ChoiceOf(*now, config::StoredChoice(*before, choice.value_or(0)));
}

void TakeOverLists(RuleForm& form, const Operation& before, const Operation& now) {
    const Option* inRowB = now.options[RowB];
    if (now.options[RowA] == &config::option::InputFormat) form.Choices[RowA] = 0;
    if (inRowB != nullptr && inRowB->IsList()) {
        form.Choices[RowB] = ChoiceTakenOver(form.ListInRowB, form.Choices[RowB], inRowB);
        form.ListInRowB = inRowB;
    } else if (inRowB == &config::option::AddExtension && IsArchiveList(before.options[RowB])) {
        // Kept: moving forgets the archive of the operation right before it, and of no earlier one.
        form.ListInRowB = nullptr;
    }
}

void OpenHeld(const Rule& rule, Holds holds, RuleForm& form) {
    if (holds == Holds::Recipients) form.Recipients = rule.Certificates;
    if (holds == Holds::SignerLists) form.SignerLists = rule.SignerLists;
    if (holds == Holds::SecondFolder) form.ActionPath = UnlessNotSet(rule.PathOut2);
    if (holds == Holds::Executable) form.ActionPath = UnlessNotSet(rule.ExecName);
}

void CommitHeld(const RuleForm& form, Holds holds, Rule& rule) {
    if (holds == Holds::Recipients) rule.Certificates = form.Recipients;
    if (holds == Holds::SignerLists) rule.SignerLists = form.SignerLists;
    if (holds == Holds::SecondFolder) rule.PathOut2 = form.ActionPath;
    if (holds == Holds::Executable) rule.ExecName = form.ActionPath;
}

void OpenOption(const Rule& rule, const Option& option, size_t row, const Names& csProfiles, RuleForm& form) {
    switch (option.input) {
        case Input::Choice:
            form.Choices.at(row) = config::ChoiceOf(option, rule.*option.number);
            break;
        case Input::CsProfile:
            form.Choices.at(row) = IndexOf(rule.*option.text, csProfiles);
            break;
        case Input::Text:
            form.Texts.at(row) = rule.*option.text;
            break;
        case Input::Number:
            form.Numbers.at(row) = std::max(0, rule.*option.number);
            break;
    }
}

void CommitOption(const RuleForm& form, const Option& option, size_t row, const Names& csProfiles, Rule& rule) {
    switch (option.input) {
        case Input::Choice:
            rule.*option.number = config::StoredChoice(option, form.Choices.at(row).value_or(0));
            break;
        case Input::CsProfile:
            rule.*option.text = NameAt(form.Choices.at(row), csProfiles);
            break;
        case Input::Text:
            rule.*option.text = form.Texts.at(row);
            break;
        case Input::Number:
            rule.*option.number = form.Numbers.at(row);
            break;
    }
}

}  // namespace

bool IsSet(std::wstring_view path) {
    return !path.empty() && path != config::NotSet;
}

const Operation& OperationOf(const RuleForm& form) {
    return OperationOf(form.Operation);
}

RuleForm FormFromRule(const Rule& rule, const Names& csProfiles) {
    RuleForm form;
    form.Operation = KnownOperation(rule.Operation);
    const Operation& operation = OperationOf(form);
    TakeOverLists(form, OperationOf(std::wstring_view()), operation);
    if (rule.Operation.empty()) return form;

    form.CsProfile = IndexOf(rule.ZCSProfile, csProfiles);
    form.Descryption = rule.Descryption;
    form.PathIn = rule.PathIn;
    if (operation.hasOutputFolder) form.PathOut = rule.PathOut;
    form.PathError = rule.PathError;
    form.Masks = rule.Masks;
    OpenHeld(rule, operation.holds, form);
    for (size_t row = RowA; row < RowCount; ++row)
        if (const Option* option = operation.options.at(row)) OpenOption(rule, *option, row, csProfiles, form);
    return form;
}

Rule RuleFromForm(const RuleForm& form, const Names& csProfiles) {
    const Operation& operation = OperationOf(form);
    Rule rule;
    rule.IsOn = 1;  // whatever leaves the editor is switched on
    rule.Operation = form.Operation;
    if (operation.usesCsProfile) rule.ZCSProfile = NameAt(form.CsProfile, csProfiles);
    rule.Descryption = form.Descryption;
    rule.PathIn = form.PathIn;
    rule.PathOut = form.PathOut;
    rule.PathError = form.PathError;
    rule.Masks = form.Masks;
    CommitHeld(form, operation.holds, rule);
    for (size_t row = RowA; row < RowCount; ++row)
        if (const Option* option = operation.options.at(row)) CommitOption(form, *option, row, csProfiles, rule);
    return rule;
}

void ChangeOperation(RuleForm& form, const std::wstring& previous) {
    if (form.Operation == previous) return;
    const Operation& before = OperationOf(previous);
    const Operation& now = OperationOf(form);
    form.ActionPath.clear();
    if (now.holds != Holds::Recipients) form.Recipients.clear();
    if (!KeepsSignerLists(now.holds)) form.SignerLists.clear();
    if (!before.hasOutputFolder || !now.hasOutputFolder) form.PathOut.clear();
    for (size_t row = RowA; row < RowCount; ++row) {
        if (now.options.at(row) == before.options.at(row)) continue;
        form.Texts.at(row).clear();
        if (row < RowD) form.Numbers.at(row) = 0;
    }
    TakeOverLists(form, before, now);
}

std::wstring ActionText(const RuleForm& form) {
    const Holds holds = OperationOf(form).holds;
    if (LookOf(holds).takesPath) return form.ActionPath;
    if (holds == Holds::Recipients) return text::Format(L"%d", form.Recipients.size());
    if (holds == Holds::SignerLists) return text::Format(L"%d", form.SignerLists.size());
    return L"0";
}

std::vector<std::wstring> ChoicesOf(const Option& option, const Names& csProfiles) {
    if (option.input == Input::CsProfile) return csProfiles;
    return {option.choices.begin(), option.choices.end()};
}

const ActionLook& LookOf(Holds holds) {
    return *std::find_if(looks.begin(), looks.end(), [holds](const ActionLook& look) { return look.holds == holds; });
}

}  // namespace editors
