// What controls are called by a screen reader, which looks for a caption and then for the text right before
// the control. Where there is none to be seen, or it does not read well, the window puts an invisible one: a
// name plate.
#pragma once

#include <string>

#include "ui/Dialog.h"

namespace ui {

// Whether the control of the dialog can get the focus, has no caption, and no label right before it that says
// its name.
bool NeedsNamePlate(const Dialog& dialog, const Control& control);

// Empty: the user hears nothing but the kind of the control.
std::wstring SpokenName(const Dialog& dialog, const Control& control);

}  // namespace ui
