// How text gets into edits and editable combos: key by key or from the clipboard, in place of all that was
// there.
#pragma once

#include <functional>
#include <string>

#include "ui/Control.h"

namespace tests {

// Selects all and types. What the control does not take is left out, as a real one does: anything but digits
// where only they are allowed, line breaks in a single line, everything in a read-only edit, and what is
// longer than the control may become. Stops when goesOn says no after a key: the control's handler may have
// taken the control away.
void TypeInto(ui::Control& control, std::wstring_view text, const std::function<bool()>& goesOn);

// Selects all and pastes. A single line ends where the text's first line does; where only digits are allowed,
// anything else among them has the whole text refused. What does not fit is cut off.
void PasteInto(ui::Control& control, const std::wstring& text);

}  // namespace tests
