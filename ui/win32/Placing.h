// Where windows are.
#pragma once

#include <windows.h>

#include "ui/Geometry.h"

namespace ui::win32 {

// Over the middle of its owner, or of the screen where there is none to be seen, and wholly on the screen.
void CenterOnOwner(HWND window);

// Gives the window the outer size that leaves this much room for its controls.
void ResizeClient(HWND window, Size client);

// Within the client area of the window that it stands in.
Rect BoundsIn(HWND parent, HWND control);

// The place of a window that is neither minimised nor maximised. Moving leaves it hidden, minimised or
// maximised if it is.
Rect NormalRectOf(HWND window);
void MoveNormalRect(HWND window, const Rect& rect);

}  // namespace ui::win32
