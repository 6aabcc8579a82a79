#include "ui/Names.h"

#include <algorithm>

#include "ui/Controls.h"

namespace ui {
namespace {

const Label* LabelBefore(const Dialog& dialog, const Control& control) {
    const auto& controls = dialog.Controls();
    const auto found = std::find(controls.begin(), controls.end(), &control);
    if (found == controls.begin() || found == controls.end()) return nullptr;
    return dynamic_cast<const Label*>(*(found - 1));
}

}  // namespace

bool NeedsNamePlate(const Dialog& dialog, const Control& control) {
    if (!control.TakesFocus() || control.HasCaption()) return false;
    const Label* const label = LabelBefore(dialog, control);
    return label == nullptr || (!control.Name().empty() && control.Name() != label->Text());
}

std::wstring SpokenName(const Dialog& dialog, const Control& control) {
    if (control.HasCaption()) return control.Text().empty() ? control.Tooltip() : control.Text();
    if (!control.Name().empty()) return control.Name();
    const Label* const label = LabelBefore(dialog, control);
    return label == nullptr ? std::wstring() : label->Text();
}

}  // namespace ui
