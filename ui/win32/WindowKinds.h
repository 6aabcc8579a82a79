// What stands for each kind of control on the screen: window class, styles, and the mirror that looks after
// the window.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "ui/win32/ControlMirror.h"

namespace ui::win32 {

struct WindowKind {
    const wchar_t* className = nullptr;
    DWORD style = 0;  // without what follows from the control's state
    DWORD extendedStyle = 0;
    int dropHeight = 0;      // of a combo box's list, in dialog units
    std::wstring caption{};  // that the window is made with
    std::function<std::unique_ptr<ControlMirror>(HWND window)> makeMirror{};
};

WindowKind KindOf(Control& control);

}  // namespace ui::win32
