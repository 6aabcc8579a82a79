// What holds for every open dialog after each gesture, whatever the dialog does.
#pragma once

#include "ui/Dialog.h"

namespace tests {

// Fails the test where the dialog's controls contradict themselves, or where the focus is on a control that
// the user cannot use.
void CheckInvariants(const ui::Dialog& dialog);

}  // namespace tests
