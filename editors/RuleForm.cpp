#include "editors/RuleForm.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "config/Operations.h"
#include "text/Format.h"

namespace editors {
namespace {

using config::Rule;

std::wstring KnownOperation(const std::wstring& code) {
    const size_t index = config::OperationIndex(code).value_or(0);
    return std::wstring(config::Operations()[index].code);
}

// Of several that are equal the last; the first when there is none.
int IndexOf(const std::wstring& name, const std::vector<std::wstring>& storeProfiles) {
    const auto found = std::find(storeProfiles.rbegin(), storeProfiles.rend(), name);
    return found == storeProfiles.rend() ? 0 : static_cast<int>(storeProfiles.rend() - found) - 1;
}

std::wstring UnlessNotSet(const std::wstring& path) {
    return IsSet(path) ? path : std::wstring();
}

// A number that no list offers (a configuration may have been edited by hand) selects the first entry.
int IndexWithin(int32_t index, const std::vector<std::wstring>& choices) {
    return index >= 0 && static_cast<size_t>(index) < choices.size() ? index : 0;
}

int OpenedChoice(Option option, const Rule& rule, const std::vector<std::wstring>& storeProfiles) {
    switch (option) {
        case Option::InputFormat:
            return rule.InFormatDet == 1 ? 1 : 0;
        case Option::OutputFormat:
            return rule.OutFormatDet == 1 ? 1 : 0;
        case Option::NewSignatureProfile:
            return IndexOf(rule.ResignProfile, storeProfiles);
        case Option::ArchiveIfAny:
            return IndexWithin(rule.ZipFile, ChoicesOf(option, storeProfiles));
        case Option::ArchiveKind:
            return IndexWithin(std::max(rule.ZipFile, 1) - 1, ChoicesOf(option, storeProfiles));
        default:
            return 0;
    }
}

void OpenAction(RuleForm& form, const Rule& rule) {
    switch (ShapeOf(form.Operation).action) {
        case Action::Recipients:
            form.Recipients = rule.Certificates;
            break;
        case Action::SignerLists:
            form.SignerLists = rule.SignerLists;
            break;
        case Action::SecondFolder:
            form.ActionPath = UnlessNotSet(rule.PathOut2);
            break;
        case Action::Executable:
            form.ActionPath = UnlessNotSet(rule.ExecName);
            break;
        case Action::None:
            break;
    }
}

bool KeepsSignerLists(Action action) {
    return action == Action::SignerLists || action == Action::Executable;
}

std::vector<std::wstring> Texts(std::span<const std::wstring_view> names,
                                std::vector<std::wstring> before = {}) {
    before.insert(before.end(), names.begin(), names.end());
    return before;
}

bool IsArchiveList(Option option) {
    return option == Option::ArchiveIfAny || option == Option::ArchiveKind;
}

// The kind of archive stays the same where one list has the entry "No" and the other has not. Signature
// formats start anew, and are never taken for kinds of archives.
int ChoiceTakenOver(Option before, int index, Option now) {
    if (!IsArchiveList(before) || !IsArchiveList(now)) return 0;
    if (before == now) return index;
    return now == Option::ArchiveIfAny ? std::min(index + 1, 2) : std::max(index - 1, 0);
}

void TakeOverLists(RuleForm& form, const OperationShape& before, const OperationShape& now) {
    const Option inRowB = now.options[RowB];
    if (now.options[RowA] == Option::InputFormat) form.Choices[RowA] = 0;
    if (FieldOf(inRowB).input == Input::List) {
        form.Choices[RowB] = ChoiceTakenOver(form.ListInRowB, form.Choices[RowB], inRowB);
        form.ListInRowB = inRowB;
    } else if (inRowB == Option::AddExtension && IsArchiveList(before.options[RowB])) {
        // Kept: moving forgets the archive of the operation right before it, and of no earlier one.
        form.ListInRowB = Option::None;
    }
}

}  // namespace

bool IsSet(const std::wstring& path) {
    return !path.empty() && path != config::NotSet;
}

RuleForm OpenedForm(const Rule& rule, const std::vector<std::wstring>& storeProfiles) {
    RuleForm form;
    form.Operation = KnownOperation(rule.Operation);
    const OperationShape& shape = ShapeOf(form.Operation);
    TakeOverLists(form, ShapeOf({}), shape);
    if (rule.Operation.empty()) return form;

    form.StoreProfile = IndexOf(rule.ZCSProfile, storeProfiles);
    form.Descryption = rule.Descryption;
    form.PathIn = rule.PathIn;
    if (shape.outputFolder) form.PathOut = rule.PathOut;
    form.PathError = rule.PathError;
    form.Masks = rule.Masks;
    OpenAction(form, rule);
    for (size_t row = RowA; row < RowCount; ++row) {
        const OptionField& field = FieldOf(shape.options.at(row));
        if (field.input == Input::List)
            form.Choices.at(row) = OpenedChoice(field.option, rule, storeProfiles);
        if (field.input == Input::Text) form.Texts.at(row) = rule.*field.text;
        if (field.input == Input::Number) form.Numbers.at(row) = std::max(0, rule.*field.number);
    }
    return form;
}

void TakeOverOperation(RuleForm& form, const std::wstring& previous) {
    if (form.Operation == previous) return;
    const OperationShape& before = ShapeOf(previous);
    const OperationShape& now = ShapeOf(form.Operation);
    form.ActionPath.clear();
    if (now.action != Action::Recipients) form.Recipients.clear();
    if (!KeepsSignerLists(now.action)) form.SignerLists.clear();
    if (!before.outputFolder || !now.outputFolder) form.PathOut.clear();
    for (size_t row = RowA; row < RowCount; ++row) {
        if (now.options.at(row) == before.options.at(row)) continue;
        form.Texts.at(row).clear();
        if (row < RowD) form.Numbers.at(row) = 0;
    }
    TakeOverLists(form, before, now);
}

std::wstring ActionText(const RuleForm& form) {
    const Action action = ShapeOf(form.Operation).action;
    if (LookOf(action).takesPath) return form.ActionPath;
    if (action == Action::Recipients) return text::Format(L"%d", form.Recipients.size());
    if (action == Action::SignerLists) return text::Format(L"%d", form.SignerLists.size());
    return L"0";
}

std::vector<std::wstring> ChoicesOf(Option option, const std::vector<std::wstring>& storeProfiles) {
    switch (option) {
        case Option::InputFormat:
        case Option::OutputFormat:
            return Texts(config::SignatureFormats);
        case Option::NewSignatureProfile:
            return storeProfiles;
        case Option::ArchiveIfAny:
            return Texts(config::ArchiveKinds, {L"No"});
        case Option::ArchiveKind:
            return Texts(config::ArchiveKinds);
        default:
            return {};
    }
}

}  // namespace editors
