#include "editors/AddCSProfDlg.h"

namespace editors {

CAddCSProfDlg::CAddCSProfDlg(ui::Screen& screen, ui::Dialog* owner, std::vector<std::wstring> profileNames)
    : Dialog(screen, owner, {.size = {200, 50}, .guidePage = L"profiles"}, L"Add CS profile") {
    profiles_.SetItems(std::move(profileNames));
    profiles_.Select(0);
}

void CAddCSProfDlg::OnOK() {
    profileName_ = profiles_.SelectedItem();
    EndDialog(ui::IdOk);
}

}  // namespace editors
