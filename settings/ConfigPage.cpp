#include "settings/ConfigPage.h"

#include "errors/MessageBoxes.h"
#include "settings/AddExtDlg.h"
#include "text/Format.h"

namespace settings {

CConfigPage::CConfigPage(ui::Screen& screen, ui::Dialog* owner, config::GlobalSettings settings)
    : Dialog(screen, owner, {.size = {290, 204}, .guidePage = L"settings"}, L"Configurations"),
      settings_(std::move(settings)) {
    AddShortcut({.key = ui::key::Insert}, &additional_, add_);
    AddShortcut({.key = ui::key::Delete}, &additional_, delete_);
}

void CConfigPage::OnInitDialog() {
    modified_ = false;
    additional_.Replace(settings_.ExtExt);
    for (size_t i = 0; i < ExtensionCount; ++i) edits_.at(i)->SetText(settings_.*Extensions().at(i).setting);
}

void CConfigPage::Read() {
    for (size_t i = 0; i < ExtensionCount; ++i) settings_.*Extensions().at(i).setting = edits_.at(i)->Text();
}

void CConfigPage::Apply() {
    Read();
    if (!modified_) return;
    if (const auto missing = FirstMissing(settings_)) {
        errors::Warn(Screen(), this, std::wstring(Extensions().at(*missing).whenEmpty));
        edits_.at(*missing)->SetFocus();
        return;
    }
    settings_.ExtExt = additional_.Items();
    modified_ = false;
}

void CConfigPage::OnOK() {
    if (modified_ &&
        !errors::Confirm(Screen(), this, L"Some changes has not been saved. Exit without saving?"))
        return;
    Read();
    EndDialog(ui::IdOk);
}

void CConfigPage::AddExtension() {
    CAddExtDlg dialog(Screen(), this);
    if (dialog.DoModal() != ui::IdOk || HoldsExtension(additional_.Items(), dialog.Extension())) return;
    additional_.Add(dialog.Extension());
    modified_ = true;
}

void CConfigPage::DeleteExtension() {
    const std::optional<size_t> selected = additional_.Selected();
    if (!selected) {
        errors::Warn(Screen(), this, L"Select list item to delete.");
        return;
    }
    const std::wstring question =
        text::Format(L"Delete additional extension '%s'?", additional_.SelectedItem());
    if (!errors::Confirm(Screen(), this, question)) return;
    additional_.Remove(*selected);
    modified_ = true;
}

}  // namespace settings
