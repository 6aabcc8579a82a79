// Asks for one file mask: a new one, or one to be changed. Masks in use elsewhere are offered for choice.
#pragma once

#include <string>
#include <vector>

#include "config/RegistryLayout.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"

namespace editors {

class AddMask : public ui::Dialog {
  public:
    // mask: what the field holds at first; empty for a new mask.
    AddMask(ui::Screen& screen, ui::Dialog* owner, std::vector<std::wstring> suggestions,
            std::wstring mask = {});

    // As accepted by OK: never empty, exactly as typed.
    const std::wstring& Mask() const { return mask_; }

  private:
    void OnOK() override;

    std::wstring mask_;

    ui::EditableCombo combo_{*this, 1095, {7, 7, 186, 14}, {}, config::LongestText};
    ui::Button ok_{*this, ui::IdOk, {89, 29, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {143, 29, 50, 14}, L"Exit"};
};

}  // namespace editors
