// Whether real windows show what the dialog's controls say.
#pragma once

#include <windows.h>

#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace tests {

// Fails the test for each difference between the dialog and its window.
void CheckDialog(HWND window, const ui::Dialog& dialog);

// The same for one list view.
void CheckListView(HWND window, const ui::ListView& list);

}  // namespace tests
