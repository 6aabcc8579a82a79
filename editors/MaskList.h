// The masks of the rule being edited: the list that shows them and the commands that change them.
#pragma once

#include <string>
#include <vector>

#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace editors {

class MaskList {
  public:
    // masks: the list that is shown and changed in place.
    MaskList(ui::ListView& view, ui::Dialog& owner, ui::Screen& screen, std::vector<std::wstring>& masks,
             std::vector<std::wstring> suggestions);

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
    const std::vector<std::wstring> suggestions_;
};

}  // namespace editors
