// Which window class and which styles stand for each kind of control.
#pragma once

#include <windows.h>

#include "ui/Control.h"

namespace ui::win32 {

struct WindowKind {
    const wchar_t* className = nullptr;
    DWORD style = 0;  // without what follows from the control's state
    DWORD extendedStyle = 0;
    int dropHeight = 0;  // of a combo box's list, in dialog units
};

WindowKind KindOf(Control& control);

}  // namespace ui::win32
