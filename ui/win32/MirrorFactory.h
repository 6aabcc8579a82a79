// Makes the window side of each kind of control.
#pragma once

#include <windows.h>

#include <memory>

#include "ui/win32/ControlMirror.h"

namespace ui::win32 {

std::unique_ptr<ControlMirror> MakeMirror(Control& control, HWND window);

}  // namespace ui::win32
