// The plain message box that every dialog uses for questions, hints and refusals.
#pragma once

#include <cstdint>
#include <string>

#include "ui/Screen.h"

namespace errors {

// Shows the text under the program's title and returns the button pressed. owner: none, or the dialog it
// belongs to.
int PlainMessageBox(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& text, uint32_t flags);

// A Yes/No question with No as the default; true for Yes.
bool Confirm(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question);

// The same with Yes as the default.
bool Propose(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question);

// The same as a warning: with the exclamation icon, and No as the default.
bool ConfirmRisk(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& question);

// A hint or refusal with the exclamation icon.
void Warn(ui::Screen& screen, const ui::Dialog* owner, const std::wstring& text);

}  // namespace errors
