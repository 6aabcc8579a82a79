#include "editors/AddMask.h"

#include "errors/MessageBoxes.h"

namespace editors {

AddMask::AddMask(ui::Screen& screen, ui::Dialog* owner, std::vector<std::wstring> suggestions,
                 std::wstring mask)
    : Dialog(screen, owner, {.size = {200, 50}, .guidePage = L"rules"}, L"Mask") {
    combo_.SetItems(std::move(suggestions));
    combo_.SetText(std::move(mask));
    combo_.SetName(Caption());
}

void AddMask::OnOK() {
    if (combo_.Text().empty()) {
        errors::Warn(Screen(), this, L"No Mask selected.");
        combo_.SetFocus();
        return;
    }
    mask_ = combo_.Text();
    EndDialog(ui::IdOk);
}

}  // namespace editors
