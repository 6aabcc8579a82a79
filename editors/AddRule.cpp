#include "editors/AddRule.h"

#include <algorithm>

#include "config/Operations.h"
#include "editors/RuleCommit.h"
#include "errors/ErrBox.h"
#include "errors/MessageBoxes.h"

namespace editors {
namespace {

std::vector<std::wstring> OperationNames() {
    std::vector<std::wstring> names;
    for (const config::Operation& operation : config::Operations()) names.emplace_back(operation.displayName);
    return names;
}

// control: may be null.
void Use(ui::Control* control, bool used) {
    if (control == nullptr) return;
    control->Show(used);
    control->Enable(used);
}

void SelectIn(ui::ComboBox& list, int index) {
    if (list.Selected() != index) list.Select(index);
}

}  // namespace

CAddRule::CAddRule(const config::Services& services, ui::Dialog* owner, const config::ServiceProfile& profile,
                   std::vector<std::wstring> suggestedMasks, const config::Rule& rule, EditorMemory& memory,
                   CertificateActions* certificates)
    : Dialog(services.Screen, owner, {.size = {394, 224}, .guidePage = L"rules"}),
      services_(services),
      profile_(profile),
      memory_(memory),
      certificates_(certificates),
      isNew_(rule.Operation.empty()),
      form_(OpenedForm(rule, profile_.ZCSProfile)),
      maskList_(masks_, *this, services.Screen, form_.Masks, std::move(suggestedMasks)) {
    oldMask_.SetText(isNew_ ? L"*" : rule.Mask);
    operation_.SetName(L"Operation");
    description_.SetName(L"Description");  // its label is broken in the middle of the word
    for (const auto& [field, button] :
         {std::pair{&pathIn_, &pickPathIn_}, {&pathOut_, &pickPathOut_}, {&pathError_, &pickPathError_}}) {
        field->SetName(button->Tooltip());
        field->SetCue(button->Tooltip());
    }
    masks_.SetName(L"Masks");
    AddShortcut({.key = ui::key::Insert}, &masks_, addMask_);
    AddShortcut({.key = ui::key::F2}, &masks_, editMask_);
}

void CAddRule::OnInitDialog() {
    SetCaption(isNew_ ? L"Add rule" : L"Edit rule");
    for (ui::Control* neverShown :
         std::initializer_list<ui::Control*>{&oldMaskLabel_, &oldMask_, &oldMaskEdit_})
        Use(neverShown, false);
    operation_.SetItems(OperationNames());
    storeProfile_.SetItems(profile_.ZCSProfile);
    listA_.SetItems(ChoicesOf(Option::InputFormat, {}));
    listC_.SetItems(ChoicesOf(Option::NewSignatureProfile, profile_.ZCSProfile));
    if (!isNew_) memory_.RememberedCsProfile = form_.StoreProfile;
    maskList_.CreateColumn();
    operation_.Select(static_cast<int>(config::OperationIndex(form_.Operation).value()));
    Reshape();
    Push();
    maskList_.Refill();
}

void CAddRule::Read() {
    const int operation = operation_.Selected();
    form_.Operation =
        operation == ui::ComboBox::None ? L"" : config::Operations()[static_cast<size_t>(operation)].code;
    form_.StoreProfile = storeProfile_.Selected();
    form_.Descryption = description_.Text();
    form_.PathIn = pathIn_.Text();
    form_.PathOut = pathOut_.Text();
    form_.PathError = pathError_.Text();
    if (!actionField_.IsReadOnly()) form_.ActionPath = actionField_.Text();
    for (size_t i = RowA; i < RowCount; ++i) {
        const Row& row = rows_.at(i);
        form_.Texts.at(i) = row.text->Text();
        if (row.list != nullptr) form_.Choices.at(i) = row.list->Selected();
        if (row.number != nullptr) form_.Numbers.at(i) = std::max(0, row.number->Number());
    }
}

void CAddRule::Push() {
    SelectIn(storeProfile_, form_.StoreProfile);
    description_.SetText(form_.Descryption);
    pathIn_.SetText(form_.PathIn);
    pathOut_.SetText(form_.PathOut);
    pathError_.SetText(form_.PathError);
    actionField_.SetText(ActionText(form_));
    for (size_t i = RowA; i < RowCount; ++i) {
        const Row& row = rows_.at(i);
        row.text->SetText(form_.Texts.at(i));
        if (row.list != nullptr) SelectIn(*row.list, form_.Choices.at(i));
        if (row.number != nullptr) row.number->SetNumber(form_.Numbers.at(i));
    }
}

void CAddRule::ReadAndPush() {
    Read();
    Push();
}

void CAddRule::Reshape() {
    const OperationShape& shape = ShapeOf(form_.Operation);
    const ActionLook& look = LookOf(shape.action);
    action_.SetIcon(look.icon);
    action_.SetTooltip(std::wstring(look.tooltip));
    action_.Enable(look.isEnabled);
    actionField_.SetReadOnly(!look.takesPath);
    actionField_.SetName(std::wstring(look.fieldName));
    actionField_.SetCue(look.takesPath ? actionField_.Name() : L"");
    pickPathOut_.Enable(shape.outputFolder);
    pathOut_.Enable(shape.outputFolder);
    storeProfileLabel_.SetText(shape.storeProfile ? L"CS profile: " : L"");
    Use(&storeProfile_, shape.storeProfile);
    for (size_t i = RowA; i < RowCount; ++i) ReshapeRow(rows_.at(i), FieldOf(shape.options.at(i)));
}

void CAddRule::ReshapeRow(const Row& row, const OptionField& field) {
    row.label->SetText(std::wstring(field.label));
    // Behind a list that is not shown, the label is too far away for these.
    row.text->SetName(row.label->Text());
    if (row.number != nullptr) row.number->SetName(row.label->Text());
    Use(row.list, field.input == Input::List);
    Use(row.text, field.input == Input::Text);
    Use(row.number, field.input == Input::Number);
    if (field.input == Input::List) row.list->SetItems(ChoicesOf(field.option, profile_.ZCSProfile));
}

void CAddRule::ChooseOperation() {
    const std::wstring previous = form_.Operation;
    Read();
    TakeOverOperation(form_, previous);
    Reshape();
    Push();
}

void CAddRule::ChooseStoreProfile() {
    Read();
    int& remembered = memory_.RememberedCsProfile;
    if (form_.StoreProfile == remembered) return;
    if (GiveUpCertificates()) {
        remembered = form_.StoreProfile;
    } else {
        form_.StoreProfile = remembered;
    }
    Push();
}

// They belong to the store profile that they were chosen from.
bool CAddRule::GiveUpCertificates() {
    if (!form_.Recipients.empty()) {
        if (!errors::Confirm(Screen(), this,
                             L"Recipients field must be clean to change CS profile.\r\n"
                             L"Delete all recipients from rule?"))
            return false;
        form_.Recipients.clear();
    }
    if (!form_.SignerLists.empty()) {
        if (!errors::Confirm(Screen(), this,
                             L"Signers field must be clean to change CS profile.\r\n"
                             L"Delete all signer lists from rule?"))
            return false;
        form_.SignerLists.clear();
    }
    return true;
}

void CAddRule::PickFolder(std::wstring& path) {
    Read();  // the picker starts where the field says
    const auto folder = Screen().PickFolder(this, path);
    if (!folder) return;
    Read();
    path = *folder;
    Push();
}

bool CAddRule::Exists(const std::wstring& path) const {
    const ui::WaitCursor wait(Screen());  // a server that is gone takes its time
    return services_.Machine.Files.CheckPathExists(path) == platform::code::Success;
}

void CAddRule::PickExecutable() {
    ui::FilePicker picker{.kind = ui::FilePickerKind::Open,
                          .filterName = L"All files (*.*)",
                          .filterPattern = L"*.*",
                          .defaultExtension = L"*.*",
                          .initialPath = {}};
    if (Exists(form_.ActionPath)) picker.initialPath = form_.ActionPath;
    const auto file = Screen().PickFile(this, picker);
    if (!file) return;
    form_.ActionPath = *file;
    Push();
}

void CAddRule::DoAction() {
    ReadAndPush();
    switch (ShapeOf(form_.Operation).action) {
        case Action::Recipients:
            ChooseRecipients();
            break;
        case Action::SignerLists:
            EditSignerLists();
            break;
        case Action::SecondFolder:
            PickFolder(form_.ActionPath);
            break;
        case Action::Executable:
            PickExecutable();
            break;
        case Action::None:
            break;
    }
}

void CAddRule::ChooseRecipients() {
    if (certificates_ == nullptr) return;
    auto chosen = certificates_->ChooseRecipients(*this, profile_, form_.StoreProfile, form_.Recipients);
    if (!chosen) return;
    form_.Recipients = std::move(*chosen);
    Push();
}

void CAddRule::EditSignerLists() {
    if (certificates_ == nullptr) return;
    auto edited = certificates_->EditSignerLists(*this, profile_, form_.StoreProfile, form_.SignerLists);
    if (!edited) return;
    form_.SignerLists = std::move(*edited);
    Push();
}

void CAddRule::OnOK() {
    const ui::WaitCursor wait(Screen());  // a server that is gone takes its time
    ReadAndPush();
    if (const auto refusal = FindRefusal(form_, services_.Machine.Files)) {
        Tell(*refusal);
        ControlOf(refusal->field).SetFocus();
        return;
    }
    result_ = CommittedRule(form_, profile_.ZCSProfile);
    EndDialog(ui::IdOk);
}

void CAddRule::Tell(const Refusal& refusal) {
    switch (refusal.telling) {
        case Refusal::Telling::MessageBox:
            errors::Warn(Screen(), this, refusal.text);
            break;
        case Refusal::Telling::ErrorBox:
            errors::ErrBox(Screen(), this, refusal.text, refusal.icon).DoModal();
            break;
        case Refusal::Telling::Report: {
            std::wstring shownBehind = refusal.text;
            services_.Errors.ErrorReport(
                {.owner = this},
                {.code = refusal.code, .operation = L"Opening file %s", .argument = refusal.path},
                &shownBehind);
            break;
        }
        case Refusal::Telling::Silence:
            break;
    }
}

ui::Control& CAddRule::ControlOf(FormField field) {
    switch (field) {
        case FormField::PathIn:
            return pathIn_;
        case FormField::PathOut:
            return pathOut_;
        case FormField::PathError:
            return pathError_;
        case FormField::Masks:
            return masks_;
        case FormField::ActionButton:
            return action_;
        case FormField::ActionPath:
            return actionField_;
        case FormField::Operation:
            break;
    }
    return operation_;
}

}  // namespace editors
