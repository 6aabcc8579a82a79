// The profile editor: the name and the options of a service profile, the CS profiles attached to it, and
// the settings of the one that is selected.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "config/CsProfileSettings.h"
#include "config/Services.h"
#include "editors/EditorMemory.h"
#include "editors/ProfileChecks.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace editors {

// Asks for one of the CS profiles of the cryptographic library.
class CAddCSProfDlg : public ui::Dialog {
  public:
    CAddCSProfDlg(ui::Screen& screen, ui::Dialog* owner, std::vector<std::wstring> profileNames);

    // As chosen by OK; empty when there was none to choose.
    const std::wstring& ProfileName() const { return profileName_; }

  private:
    void OnOK() override;

    std::wstring profileName_;

    ui::Label label_{*this, 1101, {7, 9, 74, 8}, L"Choose CS profile"};
    ui::ComboBox profiles_{*this, 1102, {84, 7, 109, 14}};
    ui::Button ok_{*this, ui::IdOk, {89, 29, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {143, 29, 50, 14}, L"Exit"};
};

class CAddProfile : public ui::Dialog {
  public:
    // profile: one without a name is a new one. rules: those of the profile, whose own may be left out.
    // profileNames: of all profiles. csProfileNames: the CS profiles that can be attached. rules and memory must
    // outlive the dialog.
    CAddProfile(const config::Services& services, ui::Dialog* owner, config::ServiceProfile profile,
                const std::vector<config::Rule>& rules, std::vector<std::wstring> profileNames,
                std::vector<std::wstring> csProfileNames, EditorMemory& memory);

    // As accepted by OK; not to be used before.
    const config::ServiceProfile& Result() const { return profile_; }
    // The CS profiles that were taken out of the list, each once, attached again or not.
    const std::vector<std::wstring>& RemovedCsProfiles() const { return removed_; }

  private:
    void OnInitDialog() override;
    void OnOK() override;

    void ShowCsProfile(std::optional<size_t> index);  // selects it as well; one beyond the list shows none
    void KeepShownSettings();
    void EnableDependentFields();

    void SelectCsProfile();
    void AddCsProfile();
    void DeleteCsProfile();
    void SwitchTimeStampServer();
    void SwitchTimeStampCheck();
    void ClampPeriod();

    std::wstring DeleteQuestion(const std::wstring& name) const;
    bool LacksTimeStampServer();  // which has been reported
    void ShowRefusal(const ProfileRefusal& refusal);
    ui::Control& ControlOf(ProfileField field);

    config::ServiceProfile profile_;
    const std::vector<config::Rule>& rules_;
    config::CsProfileSettings shown_;  // of the CS profile that is selected
    const std::vector<std::wstring> profileNames_;
    const std::vector<std::wstring> csProfileNames_;
    EditorMemory& memory_;
    std::vector<std::wstring> removed_;

    ui::Label nameLabel_{*this, 1070, {7, 9, 68, 8}, L"Type profile name"};
    ui::Edit name_{*this, 1037, {78, 7, 106, 14}, {.refused = L"\\"}};  // the name of a key

    ui::ListBox csProfiles_{*this, 1001, {7, 29, 108, 140}, ui::ListBox::Order::AsAdded, [this] { SelectCsProfile(); }};
    ui::IconButton addCsProfile_{*this, 1098, {119, 29, 28, 20}, ui::Icon::ItemAdd, L"Add", [this] { AddCsProfile(); }};
    ui::IconButton deleteCsProfile_{
        *this, 1099, {119, 51, 28, 20}, ui::Icon::ItemDelete, L"Delete", [this] { DeleteCsProfile(); }};

    ui::GroupBox settings_{*this, 1100, {153, 26, 234, 143}};
    ui::CheckBox notUseLdap_{*this, 1054, {161, 38, 218, 10}, L"Do not use LDAP", shown_.NotUseLDAP};
    ui::CheckBox notAddCert_{
        *this, 1055, {161, 51, 218, 10}, L"Do not add certificate into signature", shown_.NotAddCert};
    ui::CheckBox notCopyToLocal_{
        *this, 1056, {161, 64, 218, 10}, L"Do not add certificate into local store", shown_.NotCopyToLocal};
    ui::CheckBox notLoadCrl_{
        *this, 1057, {161, 77, 218, 10}, L"Do not load CRL from distribution point", shown_.NotLoadCrl};
    ui::Label periodLabel_{*this, 1094, {172, 93, 62, 8}, L"Frequency (h.):"};
    ui::Edit period_{*this, 1064, {237, 91, 50, 14}, {.digitsOnly = true}, [this] { ClampPeriod(); }};
    ui::UpDown periodArrows_{*this, 1129, period_, 0, 8760};
    ui::CheckBox useTsp_{
        *this, 1058, {161, 111, 74, 10}, L"Use TSP server:", shown_.AutoUseTSP, [this] { SwitchTimeStampServer(); }};
    ui::Edit tsp_{*this, 1059, {237, 109, 142, 14}};
    ui::CheckBox verifyTsp_{*this,
                            1060,
                            {161, 127, 218, 10},
                            L"Verify time stamp while signature verification",
                            shown_.AutoVerifyTSP,
                            [this] { SwitchTimeStampCheck(); }};
    ui::CheckBox noTspIsError_{
        *this, 1061, {172, 140, 207, 10}, L"Admit the lack of time stamp as an error", shown_.NoTSPisError};
    ui::CheckBox useAia_{
        *this, 1062, {161, 153, 218, 10}, L"Allow AIA and CDP access while building chains", shown_.UseAIA};

    ui::CheckBox verifyFile_{
        *this, 1076, {7, 177, 380, 10}, L"Create report file after verifying attached signature", profile_.VerifyFile};
    ui::CheckBox verifyXFile_{*this,
                              1077,
                              {7, 190, 380, 10},
                              L"Create report file after verifying and deleting attached signature",
                              profile_.VerifyXFile};
    ui::CheckBox verifyDetFile_{*this,
                                1078,
                                {7, 203, 380, 10},
                                L"Create report file after verifying detached signature",
                                profile_.VerifyDetFile};
    ui::CheckBox verifyResignFile_{*this,
                                   1080,
                                   {7, 216, 380, 10},
                                   L"Create report file after verifying resigning file",
                                   profile_.VerifyResignFile};
    ui::Label timeoutLabel_{*this, 1092, {7, 233, 82, 8}, L"Handler timeout (sec.):"};
    ui::Edit timeout_{*this, 1079, {92, 231, 50, 14}, {.digitsOnly = true}};
    ui::CheckBox renameConfFiles_{*this,
                                  1093,
                                  {7, 251, 256, 10},
                                  L"Rename files in Output directory if name conflict happens",
                                  profile_.RenameConfFiles};

    ui::Button ok_{*this, ui::IdOk, {283, 249, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {337, 249, 50, 14}, L"Exit"};
};

}  // namespace editors
