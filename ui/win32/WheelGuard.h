// Keeps the mouse wheel from choosing in a drop-down list that is closed: a notch too much would change what
// the user does not look at.
#pragma once

#include <windows.h>

namespace ui::win32 {

// From now on the wheel over the closed combo goes to whatever scrolls under the mouse in the same dialog, or
// nowhere. An open list scrolls as ever.
void KeepWheelFromChoosing(HWND combo);

}  // namespace ui::win32
