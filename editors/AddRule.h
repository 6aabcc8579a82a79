// The rule editor: one form for the rules of every operation, which reshapes itself when the operation
// changes.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "config/RegistryLayout.h"
#include "config/Services.h"
#include "crypto/CertificateSearch.h"
#include "editors/EditorMemory.h"
#include "editors/MaskList.h"
#include "editors/RuleChecks.h"
#include "editors/RuleForm.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace editors {

class CAddRule : public ui::Dialog {
    static constexpr ui::EditStyle textStyle{.longest = config::LongestText};
    static constexpr ui::EditStyle pathStyle{.takesPaths = true, .longest = config::LongestText};

  public:
    // profile: the owner of the rule. rule: a rule without an operation is a new one. profile and memory must
    // outlive the dialog.
    CAddRule(const config::Services& services, ui::Dialog* owner, const config::ServiceProfile& profile,
             MaskSuggestions suggestedMasks, const config::Rule& rule, EditorMemory& memory);

    // As accepted by OK, and empty before.
    const config::Rule& Result() const { return result_; }

  private:
    void OnInitDialog() override;
    void OnOK() override;

    // Between the controls and the form's values.
    void StoreControls();
    void LoadControls();
    void SyncControls();

    // The three stacked controls of a row; row D has only the edit.
    struct Row {
        ui::Label* label;
        ui::ComboBox* list;
        ui::Edit* text;
        ui::Edit* number;
    };
    void Reshape();  // shows, enables and labels what the operation asks for
    void ReshapeRow(const Row& row, const config::Option* option);

    void ChooseOperation();
    void ChooseCsProfile();
    bool ConfirmClearCertificates();
    void PickFolder(std::wstring& path);
    bool Exists(const std::wstring& path) const;
    void PickExecutable();
    void DoAction();
    crypto::PickerSettings PickerSettings() const;
    void ChooseRecipients();
    void EditSignerLists();

    void ShowRefusal(const Refusal& refusal);
    ui::Control& ControlOf(FormField field);

    const config::Services services_;
    const config::ServiceProfile& profile_;
    EditorMemory& memory_;
    const bool isNew_;
    RuleForm form_;
    config::Rule result_;

    ui::ComboBox operation_{*this, 1042, {7, 7, 190, 14}, [this] { ChooseOperation(); }};
    ui::Label csProfileLabel_{*this, 1104, {206, 9, 44, 8}};
    ui::ComboBox csProfile_{*this, 1051, {253, 7, 134, 14}, form_.CsProfile, [this] { ChooseCsProfile(); }};
    ui::Label descriptionLabel_{*this, 1122, {7, 29, 32, 18}, L"Descrip\ntion"};
    ui::Edit description_{
        *this, 1079, {41, 27, 346, 28}, form_.Descryption, {.multiLine = true, .longest = config::LongestText}};

    ui::IconButton pickPathIn_{
        *this, 1000, {7, 62, 28, 20}, ui::Icon::FolderIn, L"Input folder", [this] { PickFolder(form_.PathIn); }};
    ui::Edit pathIn_{*this, 1045, {41, 65, 210, 14}, form_.PathIn, pathStyle};
    ui::IconButton pickPathOut_{
        *this, 1043, {7, 84, 28, 20}, ui::Icon::FolderOut, L"Output folder", [this] { PickFolder(form_.PathOut); }};
    ui::Edit pathOut_{*this, 1046, {41, 87, 210, 14}, form_.PathOut, pathStyle};
    ui::IconButton pickPathError_{
        *this, 1044, {7, 106, 28, 20}, ui::Icon::FolderError, L"Error folder", [this] {
            PickFolder(form_.PathError); }};
    ui::Edit pathError_{*this, 1047, {41, 109, 210, 14}, form_.PathError, pathStyle};
    ui::IconButton action_{*this, 1050, {7, 128, 28, 20}, ui::Icon::Recipients, L"", [this] { DoAction(); }};
    ui::Edit actionField_{*this, 1049, {41, 131, 210, 14}, pathStyle};

    ui::ListView masks_{*this, 1001, {258, 62, 97, 86}};
    ui::IconButton addMask_{*this, 1124, {359, 62, 28, 20}, ui::Icon::MaskAdd, L"Add", [this] { maskList_.Add(); }};
    ui::IconButton editMask_{*this, 1125, {359, 84, 28, 20}, ui::Icon::MaskEdit, L"Edit", [this] { maskList_.Edit(); }};
    ui::IconButton deleteMask_{
        *this, 1126, {359, 106, 28, 20}, ui::Icon::MaskDelete, L"Delete", [this] { maskList_.Delete(); }};

    ui::Label labelA_{*this, 1108, {7, 159, 98, 8}};
    ui::ComboBox listA_{*this, 1105, {107, 157, 86, 14}, form_.Choices[RowA]};
    ui::Edit textA_{*this, 1130, {107, 157, 86, 14}, form_.Texts[RowA], textStyle};
    ui::Edit numberA_{*this, 1139, {107, 157, 86, 14}, form_.Numbers[RowA], [this] { SyncControls(); }};
    ui::Label labelB_{*this, 1109, {201, 159, 98, 8}};
    ui::ComboBox listB_{*this, 1106, {301, 157, 86, 14}, form_.Choices[RowB]};
    ui::Edit textB_{*this, 1131, {301, 157, 86, 14}, form_.Texts[RowB], textStyle};
    ui::Edit numberB_{*this, 1140, {301, 157, 86, 14}, form_.Numbers[RowB], [this] { SyncControls(); }};
    ui::Label labelC_{*this, 1110, {7, 179, 98, 8}};
    ui::ComboBox listC_{*this, 1107, {107, 177, 86, 14}, form_.Choices[RowC]};
    ui::Edit textC_{*this, 1136, {107, 177, 86, 14}, form_.Texts[RowC], textStyle};
    ui::Edit numberC_{*this, 1141, {107, 177, 86, 14}, form_.Numbers[RowC], [this] { SyncControls(); }};
    ui::Label labelD_{*this, 1138, {201, 179, 98, 8}};
    ui::Edit textD_{*this, 1137, {301, 177, 86, 14}, form_.Texts[RowD], textStyle};

    // The single mask of the older format: never shown, never written back.
    ui::Label oldMaskLabel_{*this, 1123, {7, 203, 30, 8}, L"Mask"};
    ui::EditableCombo oldMask_{*this, 1095, {41, 201, 60, 14}};
    ui::Edit oldMaskEdit_{*this, 1048, {105, 201, 60, 14}};

    ui::Button ok_{*this, ui::IdOk, {283, 203, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {337, 203, 50, 14}, L"Exit"};

    const std::array<Row, RowCount> rows_{{{&labelA_, &listA_, &textA_, &numberA_},
                                           {&labelB_, &listB_, &textB_, &numberB_},
                                           {&labelC_, &listC_, &textC_, &numberC_},
                                           {&labelD_, nullptr, &textD_, nullptr}}};
    MaskList maskList_;
};

}  // namespace editors
