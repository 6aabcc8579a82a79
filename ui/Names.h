// What controls are called by a screen reader, which looks for a caption and then for the text right before
// the control. Where there is none to be seen, the window puts an invisible one: a name plate.
#pragma once

#include <string>

#include "ui/Dialog.h"

namespace ui {

// Whether the control of the dialog can get the focus and has neither a caption nor a label right before it.
bool NeedsNamePlate(const Dialog& dialog, const Control& control);

// Empty: the user hears nothing but the kind of the control.
std::wstring SpokenName(const Dialog& dialog, const Control& control);

}  // namespace ui
