// Mouse and keyboard: what their drivers would put into the thread's message queue.
#pragma once

#include <windows.h>

#include <string>

#include "tests/support/Robot.h"

namespace tests::input {

// Works off every message that is waiting.
void Settle();

// Points in pixels of the window's client area. Each waits until its consequences have been worked off.
void Click(HWND window, POINT at, Held held = Held::Nothing);
void DoubleClick(HWND window, POINT at);
void RightClick(HWND window, POINT at);
POINT CenterOf(HWND window);

// A key that goes to the window with the focus, by the rules of the dialog.
void Press(HWND dialog, Key key, Held held);

// A character that the keyboard makes.
void Type(HWND window, wchar_t unit);

// Replaces the selection of an edit by way of the clipboard.
void Paste(HWND edit, const std::wstring& text);

// Lets go of a dragged file or folder over the middle of a control.
void Drop(HWND control, const std::wstring& path);

// Gives the keyboard focus as the dialog's own navigation does.
void Focus(HWND dialog, HWND control);

}  // namespace tests::input
