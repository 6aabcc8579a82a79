// Eyes and hands for the system's own dialogs: message boxes and pickers.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "tests/support/win32/RecordingScreen.h"

namespace tests {

// Fails the test where the box does not show what the program asked for.
void CheckBox(HWND box, const SystemDialogRequest& request);

// Presses the button with this id.
void PressButton(HWND dialog, int id);

// Chooses the path in a folder or file picker, or gives up.
void AnswerPicker(HWND picker, const std::optional<std::wstring>& answer);

}  // namespace tests
