#include "editors/AddRule.h"

#include <algorithm>

#include "certs/PreEncryptDlg.h"
#include "certs/SignerList.h"
#include "config/CsProfileSettings.h"
#include "config/Operations.h"
#include "crypto/LibrarySearch.h"
#include "crypto/OpenCryptoContext.h"
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

}  // namespace

CAddRule::CAddRule(const config::Services& services, ui::Dialog* owner, const config::ServiceProfile& profile,
                   MaskSuggestions suggestedMasks, const config::Rule& rule, EditorMemory& memory)
    : Dialog(services.Screen, owner, {.size = {394, 224}, .guidePage = L"rules"}),
      services_(services),
      profile_(profile),
      memory_(memory),
      isNew_(rule.Operation.empty()),
      form_(FormFromRule(rule, profile_.ZCSProfile)),
      maskList_(masks_, *this, services.Screen, form_.Masks, std::move(suggestedMasks)) {
    oldMask_.SetText(std::wstring(isNew_ ? L"*" : std::wstring_view(rule.Mask)));
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
    for (ui::Control* neverShown : std::initializer_list<ui::Control*>{&oldMaskLabel_, &oldMask_, &oldMaskEdit_})
        Use(neverShown, false);
    operation_.SetItems(OperationNames());
    csProfile_.SetItems(profile_.ZCSProfile);
    listA_.SetItems(ChoicesOf(config::option::InputFormat, {}));
    listC_.SetItems(profile_.ZCSProfile);
    if (!isNew_) memory_.RememberedCsProfile = form_.CsProfile;
    maskList_.CreateColumn();
    operation_.Select(config::OperationIndex(form_.Operation));
    Reshape();
    LoadControls();
    maskList_.Refill();
}

void CAddRule::StoreControls() {
    Dialog::StoreControls(form_);
    const std::optional<size_t> operation = operation_.Selected();
    form_.Operation = operation ? config::Operations()[*operation].code : L"";
    if (!actionField_.IsReadOnly()) form_.ActionPath = actionField_.Text();
}

void CAddRule::LoadControls() {
    Dialog::LoadControls(form_);
    actionField_.SetText(ActionText(form_));
}

void CAddRule::SyncControls() {
    StoreControls();
    LoadControls();
}

void CAddRule::Reshape() {
    const config::Operation& operation = OperationOf(form_);
    const ActionLook& look = LookOf(operation.holds);
    action_.SetIcon(look.icon);
    action_.SetTooltip(std::wstring(look.tooltip));
    action_.Enable(operation.holds != config::Holds::Nothing);
    actionField_.SetReadOnly(!look.takesPath);
    actionField_.SetName(std::wstring(look.fieldName));
    actionField_.SetCue(look.takesPath ? actionField_.Name() : L"");
    pickPathOut_.Enable(operation.hasOutputFolder);
    pathOut_.Enable(operation.hasOutputFolder);
    csProfileLabel_.SetText(operation.usesCsProfile ? L"CS profile: " : L"");
    Use(&csProfile_, operation.usesCsProfile);
    for (size_t i = RowA; i < RowCount; ++i) ReshapeRow(rows_.at(i), operation.options.at(i));
}

void CAddRule::ReshapeRow(const Row& row, const config::Option* option) {
    using config::Input;
    const auto isSetBy = [option](Input input) { return option != nullptr && option->input == input; };
    const bool isList = option != nullptr && option->IsList();
    row.label->SetText(std::wstring(option == nullptr ? L"" : option->label));
    // After a list that is not shown, the label is too far away for these.
    row.text->SetName(row.label->Text());
    if (row.number != nullptr) row.number->SetName(row.label->Text());
    Use(row.list, isList);
    Use(row.text, isSetBy(Input::Text));
    Use(row.number, isSetBy(Input::Number));
    if (isList) row.list->SetItems(ChoicesOf(*option, profile_.ZCSProfile));
}

void CAddRule::ChooseOperation() {
    const std::wstring previous = form_.Operation;
    StoreControls();
    ChangeOperation(form_, previous);
    Reshape();
    LoadControls();
}

void CAddRule::ChooseCsProfile() {
    StoreControls();
    std::optional<size_t>& remembered = memory_.RememberedCsProfile;
    if (form_.CsProfile == remembered) return;
    if (ConfirmClearCertificates()) {
        remembered = form_.CsProfile;
    } else {
        form_.CsProfile = remembered;
    }
    LoadControls();
}

// They belong to the CS profile that they were chosen from.
bool CAddRule::ConfirmClearCertificates() {
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
    StoreControls();  // the picker starts where the field says
    const auto folder = Screen().PickFolder(this, path);
    if (!folder) return;
    StoreControls();
    path = *folder;
    LoadControls();
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
    LoadControls();
}

void CAddRule::DoAction() {
    SyncControls();
    switch (OperationOf(form_).holds) {
        case config::Holds::Recipients:
            return ChooseRecipients();
        case config::Holds::SignerLists:
            return EditSignerLists();
        case config::Holds::SecondFolder:
            return PickFolder(form_.ActionPath);
        case config::Holds::Executable:
            return PickExecutable();
        case config::Holds::Nothing:
            return;
    }
}

crypto::PickerSettings CAddRule::PickerSettings() const {
    crypto::PickerSettings settings;
    if (form_.CsProfile)
        static_cast<config::CsProfileSettings&>(settings) = config::SettingsAt(profile_, *form_.CsProfile);
    return settings;
}

void CAddRule::ChooseRecipients() {
    const ui::WaitCursor wait(Screen());  // closing the context may take long, too
    const crypto::PickerSettings settings = PickerSettings();
    const auto opened = crypto::OpenCryptoContext(services_, *this, csProfile_.SelectedItem(), settings);
    if (!opened) return;
    crypto::LibrarySearch search(services_, opened->Context, settings);
    certs::CPreEncryptDlg picker(services_, this, search, settings, form_.Recipients);
    picker.SetLdapUsable(opened->LdapUsable);
    if (picker.DoModal() != ui::IdOk) return;
    form_.Recipients = picker.Result();
    LoadControls();
}

void CAddRule::EditSignerLists() {
    certs::SignerList form(services_, this, csProfile_.SelectedItem(), PickerSettings(), form_.SignerLists);
    if (form.DoModal() != ui::IdOk) return;
    form_.SignerLists = form.Lists();
    LoadControls();
}

void CAddRule::OnOK() {
    const ui::WaitCursor wait(Screen());  // a server that is gone takes its time
    SyncControls();
    if (const auto refusal = Validate(form_, services_.Machine.Files)) {
        ShowRefusal(*refusal);
        ControlOf(refusal->field).SetFocus();
        return;
    }
    result_ = RuleFromForm(form_, profile_.ZCSProfile);
    EndDialog(ui::IdOk);
}

void CAddRule::ShowRefusal(const Refusal& refusal) {
    switch (refusal.shown) {
        case Refusal::Shown::MessageBox:
            errors::Warn(Screen(), this, refusal.text);
            break;
        case Refusal::Shown::ErrorBox:
            errors::ErrBox(Screen(), this, refusal.text, refusal.icon).DoModal();
            break;
        case Refusal::Shown::Report: {
            std::wstring shownAfter = refusal.text;
            services_.Errors.ErrorReport(
                {.owner = this}, {.code = refusal.code, .operation = L"Opening file %s", .argument = refusal.path},
                &shownAfter);
            break;
        }
        case Refusal::Shown::Silence:
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
