// Whether real windows have room for the texts that they show.
#pragma once

#include <windows.h>

#include "ui/Dialog.h"

namespace tests {

// Fails the test for each caption on the dialog of which a part is cut off. Texts that break into lines are
// measured in lines. What is hidden has no text to show; edits and lists scroll theirs.
void CheckTextsFit(HWND dialog, const ui::Dialog& mirrored);

}  // namespace tests
