// The windows of every form, at the resolution of the screen: they stand where their places in dialog units
// say, and show every text whole. Run at other resolutions, too.
#include <windows.h>

#include <algorithm>
#include <cstdlib>

#include "tests/app/AllForms.h"
#include "tests/support/win32/TextFit.h"
#include "tests/support/win32/Win32Robot.h"
#include "ui/Controls.h"
#include "ui/win32/Placing.h"

namespace tests {
namespace {

using FormWindows = AllForms;

// In pixels, as the system turns dialog units into them.
ui::Rect Mapped(HWND dialog, const ui::Place& units) {
    RECT pixels{units.x, units.y, units.width, units.height};
    MapDialogRect(dialog, &pixels);
    return {pixels.left, pixels.top, pixels.right, pixels.bottom};
}

// A closed list is as high as its font makes it, whatever its place says.
bool HasItsOwnHeight(const ui::Control& control) {
    return dynamic_cast<const ui::ComboBox*>(&control) != nullptr ||
           dynamic_cast<const ui::EditableCombo*>(&control) != nullptr;
}

// Arrows take their room from the right end of their field.
bool HasArrows(const ui::Dialog& form, const ui::Control& field) {
    return std::ranges::any_of(form.Controls(), [&field](const ui::Control* control) {
        const auto* const arrows = dynamic_cast<const ui::UpDown*>(control);
        return arrows != nullptr && &arrows->Buddy() == &field;
    });
}

void CheckPlace(HWND dialog, const ui::Dialog& form, const ui::Control& control) {
    SCOPED_TRACE(testing::PrintToString(form.Caption()) + ", control " + std::to_string(control.Id()));
    ui::Rect due = Mapped(dialog, control.Placement());
    const ui::Rect found = ui::win32::BoundsIn(dialog, GetDlgItem(dialog, control.Id()));
    if (HasItsOwnHeight(control)) due.height = found.height;
    if (HasArrows(form, control)) due.width = found.width;
    EXPECT_EQ(testing::PrintToString(std::vector{found.x, found.y, found.width, found.height}),
              testing::PrintToString(std::vector{due.x, due.y, due.width, due.height}));
}

// Up to the end of the field that it has been given, where the field's border still is.
void CheckArrows(HWND dialog, const ui::UpDown& arrows) {
    const ui::Rect field = Mapped(dialog, arrows.Buddy().Placement());
    const ui::Rect found = ui::win32::BoundsIn(dialog, GetDlgItem(dialog, arrows.Id()));
    EXPECT_NEAR(found.x + found.width, field.x + field.width, GetSystemMetrics(SM_CXEDGE));
    EXPECT_NEAR(found.y, field.y, GetSystemMetrics(SM_CYEDGE));
}

void CheckPlaces(const ui::Dialog& form) {
    const HWND window = WindowOf(form);
    RECT client{};
    GetClientRect(window, &client);
    const ui::Size units = form.Style().size;
    const ui::Rect due = Mapped(window, {0, 0, units.width, units.height});
    EXPECT_EQ((ui::Size{client.right, client.bottom}), (ui::Size{due.width, due.height}));
    for (const ui::Control* control : form.Controls()) {
        if (const auto* const arrows = dynamic_cast<const ui::UpDown*>(control)) {
            CheckArrows(window, *arrows);
        } else {
            CheckPlace(window, form, *control);
        }
    }
}

// BRISGATE_DPI: the resolution that the screen is expected to have.
TEST_F(FormWindows, StandInTheirPlacesAndShowTheirTextsWhole) {
    const char* const resolution = std::getenv("BRISGATE_DPI");
    size_t resized = 0;
    Tour([&](const ui::Dialog& form, const std::wstring&) {
        EXPECT_TRUE(resolution == nullptr || std::to_string(form.Dpi()) == resolution) << form.Dpi();
        CheckPlaces(form);
        CheckTextsFit(WindowOf(form), form);
        if (!form.Style().resizable) return;
        ++resized;
        const ui::Size opened = user_.OuterSize();
        user_.Resize({-opened.width, -opened.height});
        CheckTextsFit(WindowOf(form), form);
        const ui::Size smallest = user_.OuterSize();
        user_.Resize({opened.width - smallest.width, opened.height - smallest.height});
    });
    EXPECT_EQ(resized, 5U);
}

}  // namespace
}  // namespace tests
