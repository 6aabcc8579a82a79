// Eyes and hands for the system's own dialogs: message boxes and pickers.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/RecordingScreen.h"

namespace tests {

// Fails the test where the box does not show what the program asked for.
void CheckBox(HWND box, const SystemDialogRequest& request);

// Presses the button with this id.
void PressButton(HWND dialog, int id);

// What a file picker offers its user.
struct SeenPicker {
    std::vector<std::wstring> filters;
    std::wstring filter;  // the one in force
    std::wstring name;    // proposed
    std::wstring folder;  // where it starts
    bool hasReadOnlyBox = false;
    std::vector<std::wstring> files;  // that it lists, without their order
};
SeenPicker LookAtPicker(HWND picker);
// Chooses a filter, by its place in the list.
void ChooseFilter(HWND picker, int filter);

// Chooses the path in a folder or file picker, or gives up.
void AnswerPicker(HWND picker, const std::optional<std::wstring>& answer);

}  // namespace tests
