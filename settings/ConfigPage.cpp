#include "settings/ConfigPage.h"

#include <algorithm>

#include "errors/MessageBoxes.h"
#include "text/Case.h"
#include "text/Format.h"
#include "text/Trim.h"

namespace settings {

bool HoldsExtension(const std::vector<std::wstring>& extensions, std::wstring_view extension) {
    const std::wstring upper = text::Upper(extension);
    return std::any_of(extensions.begin(), extensions.end(),
                       [&upper](const std::wstring& held) { return text::Upper(held) == upper; });
}

CAddExtDlg::CAddExtDlg(ui::Screen& screen, ui::Dialog* owner)
    : Dialog(screen, owner, {.size = {200, 50}, .guidePage = L"settings"}, L"Add additional extension:") {}

void CAddExtDlg::OnOK() {
    const std::wstring_view extension = text::Trim(edit_.Text(), L" \t");
    if (extension.empty()) return;
    extension_ = text::Lower(extension);
    EndDialog(ui::IdOk);
}

CConfigPage::CConfigPage(ui::Screen& screen, ui::Dialog* owner, config::GlobalSettings settings)
    : Dialog(screen, owner, {.size = {290, 204}, .guidePage = L"settings"}, L"Configurations"),
      settings_(std::move(settings)) {
    AddShortcut({.key = ui::key::Insert}, &additional_, add_);
    AddShortcut({.key = ui::key::Delete}, &additional_, delete_);
}

void CConfigPage::OnInitDialog() {
    modified_ = false;
    additional_.Replace(settings_.ExtExt);
    LoadControls(settings_);
}

void CConfigPage::Apply() {
    StoreControls(settings_);
    if (!modified_) return;
    struct Required {
        ui::Edit* extension;
        const wchar_t* whenEmpty;
    };
    for (const Required& required :
         {Required{&signed_, L"Please, choose extension for files with attached signature."},
          {&detached_, L"Please, choose extension for files with detached signature."},
          {&encrypted_, L"Please, choose extension for encrypted files."},
          {&base64_, L"Please, choose extension for b64 files."},
          {&hash_, L"Please, choose extension for hash files."},
          {&report_, L"Please, choose extension for files with signature verification report."}}) {
        if (!required.extension->Text().empty()) continue;
        errors::Warn(Screen(), this, required.whenEmpty);
        return required.extension->SetFocus();
    }
    settings_.ExtExt = additional_.Items();
    modified_ = false;
}

void CConfigPage::OnOK() {
    if (modified_ && !errors::Confirm(Screen(), this, L"Some changes has not been saved. Exit without saving?")) return;
    StoreControls(settings_);
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
    const std::wstring question = text::Format(L"Delete additional extension '%s'?", additional_.SelectedItem());
    if (!errors::Confirm(Screen(), this, question)) return;
    additional_.Remove(*selected);
    modified_ = true;
}

}  // namespace settings
