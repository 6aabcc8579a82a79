// Asks for one of the store profiles of the cryptographic library.
#pragma once

#include <string>
#include <vector>

#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace editors {

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

}  // namespace editors
