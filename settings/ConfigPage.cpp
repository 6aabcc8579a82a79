#include "settings/ConfigPage.h"

#include <algorithm>

#include "errors/MessageBoxes.h"
#include "text/Case.h"
#include "text/Format.h"
#include "text/Trim.h"

namespace settings {

using config::GlobalSettings;

const std::array<Extension, ExtensionCount>& Extensions() {
    static constexpr std::array<Extension, ExtensionCount> extensions{{
        {&GlobalSettings::SigExt, L"Please, choose extension for files with attached signature."},
        {&GlobalSettings::DsigExt, L"Please, choose extension for files with detached signature."},
        {&GlobalSettings::EncExt, L"Please, choose extension for encrypted files."},
        {&GlobalSettings::B64Ext, L"Please, choose extension for b64 files."},
        {&GlobalSettings::HashExt, L"Please, choose extension for hash files."},
        {&GlobalSettings::VerifyFileExt,
         L"Please, choose extension for files with signature verification report."},
        {&GlobalSettings::ZIPArchiveExt, L""},
        {&GlobalSettings::GZIPArchiveExt, L""},
    }};
    return extensions;
}

std::optional<size_t> FirstMissing(const GlobalSettings& settings) {
    for (size_t i = 0; i < ExtensionCount; ++i) {
        const Extension& extension = Extensions().at(i);
        if (!extension.whenEmpty.empty() && (settings.*extension.setting).empty()) return i;
    }
    return std::nullopt;
}

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

CConfigPage::CConfigPage(ui::Screen& screen, ui::Dialog* owner, GlobalSettings settings)
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
