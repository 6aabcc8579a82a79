#include "tests/support/memory/Invariants.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "ui/Choices.h"
#include "ui/ListView.h"

namespace tests {
namespace {

void CheckList(const ui::ListView& list) {
    const size_t rows = list.RowCount();
    EXPECT_EQ(rows, list.Checks().size()) << "list " << list.Id();
    EXPECT_TRUE(!list.FocusedRow() || *list.FocusedRow() < rows) << "list " << list.Id();
    EXPECT_TRUE(!list.Style().singleSelection || list.SelectedRows().size() <= 1) << "list " << list.Id();
    const bool anyChecked = std::find(list.Checks().begin(), list.Checks().end(), true) != list.Checks().end();
    EXPECT_TRUE(list.Style().checkBoxes || !anyChecked) << "list " << list.Id() << " has checks and no check boxes";
}

void CheckChoice(const ui::ChoiceControl& choice) {
    EXPECT_TRUE(!choice.Selected() || *choice.Selected() < choice.Items().size()) << "control " << choice.Id();
}

void CheckControl(const ui::Control& control) {
    if (const auto* list = dynamic_cast<const ui::ListView*>(&control)) CheckList(*list);
    if (const auto* choice = dynamic_cast<const ui::ChoiceControl*>(&control)) CheckChoice(*choice);
    EXPECT_TRUE(!control.HasFocus() || (control.IsVisible() && control.IsEnabled()))
        << "control " << control.Id() << " has the focus and is hidden or disabled";
}

}  // namespace

void CheckInvariants(const ui::Dialog& dialog) {
    for (const ui::Control* control : dialog.Controls()) CheckControl(*control);
}

}  // namespace tests
