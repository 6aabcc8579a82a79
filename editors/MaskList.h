// The masks of the rule being edited: the list that shows them, the commands that change them, and the dialog
// that asks for one.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "config/RegistryLayout.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace editors {

// Asks for one file mask: a new one, or one to be changed. Masks in use elsewhere are offered for choice.
class AddMask : public ui::Dialog {
  public:
    // mask: what the field holds at first; empty for a new mask.
    AddMask(ui::Screen& screen, ui::Dialog* owner, std::vector<std::wstring> suggestions, std::wstring mask = {});

    // As accepted by OK: never empty, exactly as typed.
    const std::wstring& Mask() const { return mask_; }

  private:
    void OnOK() override;

    std::wstring mask_;

    ui::EditableCombo combo_{*this, 1095, {7, 7, 186, 14}, {}, config::LongestText};
    ui::Button ok_{*this, ui::IdOk, {89, 29, 50, 14}, L"OK"};
    ui::Button exit_{*this, ui::IdCancel, {143, 29, 50, 14}, L"Exit"};
};

// The masks to offer, collected when somebody is about to choose one.
using MaskSuggestions = std::function<std::vector<std::wstring>()>;

class MaskList {
  public:
    // masks: the list that is shown and changed in place.
    MaskList(ui::ListView& view, ui::Dialog& owner, ui::Screen& screen, std::vector<std::wstring>& masks,
             MaskSuggestions suggestions);

    void CreateColumn();
    void Refill();

    void Add();
    void Edit();    // the first selected mask
    void Delete();  // all selected masks, after a question

  private:
    void ShowWhole(const ui::ListHit& hit) const;

    ui::ListView& view_;
    ui::Dialog& owner_;
    ui::Screen& screen_;
    std::vector<std::wstring>& masks_;
    const MaskSuggestions suggestions_;
};

}  // namespace editors
