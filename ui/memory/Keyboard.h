// What the system's dialog manager and its controls do with keys, for dialogs that have no real window. Text
// does not come this way: an edit is given its whole new content.
#pragma once

#include "ui/Dialog.h"
#include "ui/memory/RowSelection.h"

namespace ui::memory {

// Shown, enabled and made for the focus.
bool CanTakeFocus(const Control& control);

// The control to which Tab leads from the focused one, going round at the end; the first (backwards: the
// last) when nothing has the focus. None: no control can take it. The focused control itself: no other can.
Control* NextTabStop(const Dialog& dialog, bool backwards = false);

// Gives the control the focus as a click or Tab does: first the control that had it hears of its loss. When
// its handler moved the focus elsewhere or made the control unusable, that stands.
void MoveFocus(Dialog& dialog, Control& control);

// Gives the key to the focused control and the dialog. rows: the row marks of the dialog's window.
void PressKey(Dialog& dialog, RowSelection& rows, VirtualKey key, Modifier modifier = Modifier::None);

}  // namespace ui::memory
