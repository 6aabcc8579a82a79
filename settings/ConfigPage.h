// Sets the file name extensions of the service: one for each kind of result, and a list of additional ones.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/Records.h"
#include "config/RegistryLayout.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace settings {

// Without regard to case.
bool HoldsExtension(const std::vector<std::wstring>& extensions, std::wstring_view extension);

// Asks for one additional extension.
class CAddExtDlg : public ui::Dialog {
  public:
    CAddExtDlg(ui::Screen& screen, ui::Dialog* owner);

    // As accepted by OK: never empty, in lower case, without blanks at either end.
    const std::wstring& Extension() const { return extension_; }

  private:
    void OnOK() override;

    std::wstring extension_;

    ui::Label label_{*this, 269, {7, 9, 106, 8}, L"Add additional extension:"};
    ui::Edit edit_{*this, 266, {117, 7, 76, 14}};
    ui::Button ok_{*this, ui::IdOk, {89, 29, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {143, 29, 50, 14}, L"Exit"};
};

class CConfigPage : public ui::Dialog {
    static constexpr ui::EditStyle extensionStyle{.longest = config::LongestText};

  public:
    CConfigPage(ui::Screen& screen, ui::Dialog* owner, config::GlobalSettings settings);

    // After OK. Kept: the eight extensions are those of the form, checked or not; the additional ones are
    // those of the last Apply, or the given ones, in their given order, when there was none.
    const config::GlobalSettings& Result() const { return settings_; }

  private:
    void OnInitDialog() override;
    void OnOK() override;

    void Apply();
    void AddExtension();
    void DeleteExtension();
    void MarkModified() { modified_ = true; }

    config::GlobalSettings settings_;
    bool modified_ = false;  // since the last Apply

    ui::Label basicLabel_{*this, 1069, {15, 12, 150, 8}, L"Basic file name extensions"};
    ui::Label signedLabel_{*this, 1075, {15, 25, 115, 8}, L"Signed files:"};
    ui::Edit signed_{*this, 250, {132, 22, 26, 14}, settings_.SigExt, extensionStyle, [this] {
            MarkModified(); }};
    ui::Label detachedLabel_{*this, 1065, {15, 45, 115, 8}, L"Files with detached signature:"};
    ui::Edit detached_{*this, 253, {132, 42, 26, 14}, settings_.DsigExt, extensionStyle, [this] {
            MarkModified(); }};
    ui::Label encryptedLabel_{*this, 1066, {15, 65, 115, 8}, L"Encrypted files:"};
    ui::Edit encrypted_{*this, 255, {132, 62, 26, 14}, settings_.EncExt, extensionStyle, [this] {
            MarkModified(); }};
    ui::Label base64Label_{*this, 1067, {15, 85, 115, 8}, L"Files in b64 format:"};
    ui::Edit base64_{*this, 259, {132, 82, 26, 14}, settings_.B64Ext, extensionStyle, [this] {
            MarkModified(); }};
    ui::Label hashLabel_{*this, 1068, {15, 105, 115, 8}, L"Hash files:"};
    ui::Edit hash_{*this, 268, {132, 102, 26, 14}, settings_.HashExt, extensionStyle, [this] {
            MarkModified(); }};
    // In two lines.
    ui::Label reportLabel_{*this, 1081, {15, 120, 115, 17}, L"Files with signature verification report:"};
    ui::Edit report_{
        *this, 1079, {132, 122, 26, 14}, settings_.VerifyFileExt, extensionStyle, [this] {
            MarkModified(); }};
    ui::Label zipLabel_{*this, 1070, {15, 145, 115, 8}, L"ZIP archives:"};
    ui::Edit zip_{*this, 1080, {132, 142, 26, 14}, settings_.ZIPArchiveExt, extensionStyle, [this] {
            MarkModified(); }};
    ui::Label gzipLabel_{*this, 1135, {15, 165, 115, 8}, L"GZIP archives:"};
    ui::Edit gzip_{
        *this, 1134, {132, 162, 26, 14}, settings_.GZIPArchiveExt, extensionStyle, [this] {
            MarkModified(); }};

    ui::Label additionalLabel_{*this, 272, {171, 12, 106, 17}, L"Additional file name extensions:"};
    ui::ListBox additional_{*this, 275, {171, 32, 45, 146}, ui::ListBox::Order::Alphabetical};
    ui::IconButton add_{*this, 261, {228, 32, 15, 14}, ui::Icon::ItemAdd, L"Add", [this] { AddExtension(); }};
    ui::IconButton delete_{
        *this, 263, {228, 54, 15, 14}, ui::Icon::ItemDelete, L"Delete", [this] { DeleteExtension(); }};

    ui::Button ok_{*this, ui::IdOk, {125, 183, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {179, 183, 50, 14}, L"Exit"};
    ui::Button apply_{*this, 1000, {233, 183, 50, 14}, L"Apply", [this] { Apply(); }};
};

}  // namespace settings
