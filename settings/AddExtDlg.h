// Asks for one additional file name extension.
#pragma once

#include <string>

#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace settings {

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

}  // namespace settings
