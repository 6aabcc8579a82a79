#include "editors/RuleCommit.h"

namespace editors {
namespace {

using config::Rule;

std::wstring NameAt(int index, const std::vector<std::wstring>& storeProfiles) {
    const bool exists = index >= 0 && static_cast<size_t>(index) < storeProfiles.size();
    return exists ? storeProfiles[static_cast<size_t>(index)] : std::wstring();
}

void CommitAction(const RuleForm& form, Action action, Rule& rule) {
    switch (action) {
        case Action::Recipients:
            rule.Certificates = form.Recipients;
            break;
        case Action::SignerLists:
            rule.SignerLists = form.SignerLists;
            break;
        case Action::SecondFolder:
            rule.PathOut2 = form.ActionPath;
            break;
        case Action::Executable:
            rule.ExecName = form.ActionPath;
            break;
        case Action::None:
            break;
    }
}

void CommitChoice(Option option, int index, const std::vector<std::wstring>& storeProfiles, Rule& rule) {
    switch (option) {
        case Option::InputFormat:
            rule.InFormatDet = index;
            break;
        case Option::OutputFormat:
            rule.OutFormatDet = index;
            break;
        case Option::NewSignatureProfile:
            rule.ResignProfile = NameAt(index, storeProfiles);
            break;
        case Option::ArchiveIfAny:
            rule.ZipFile = index;
            break;
        case Option::ArchiveKind:
            rule.ZipFile = index + 1;
            break;
        default:
            break;
    }
}

}  // namespace

Rule CommittedRule(const RuleForm& form, const std::vector<std::wstring>& storeProfiles) {
    const OperationShape& shape = ShapeOf(form.Operation);
    Rule rule;
    rule.Operation = form.Operation;
    rule.PathIn = form.PathIn;
    rule.PathOut = form.PathOut;
    rule.PathError = form.PathError;
    if (shape.storeProfile) rule.ZCSProfile = NameAt(form.StoreProfile, storeProfiles);
    rule.Masks = form.Masks;
    CommitAction(form, shape.action, rule);
    for (size_t row = RowA; row < RowCount; ++row) {
        const OptionField& field = FieldOf(shape.options.at(row));
        if (field.input == Input::List) CommitChoice(field.option, form.Choices.at(row), storeProfiles, rule);
        if (field.input == Input::Text) rule.*field.text = form.Texts.at(row);
        if (field.input == Input::Number) rule.*field.number = form.Numbers.at(row);
    }
    rule.IsOn = 1;  // whatever leaves the editor is switched on
    rule.Descryption = form.Descryption;
    return rule;
}

}  // namespace editors
