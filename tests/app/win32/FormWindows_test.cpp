// The windows of every form, at the resolution of the screen: they stand where their places in dialog units
// say, and show every text whole. Run at other resolutions, too.
#include <windows.h>

#include <algorithm>
#include <cstdlib>

#include "tests/app/AllForms.h"
#include "tests/support/win32/TextFit.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/support/win32/WindowsHabits.h"
#include "ui/Controls.h"
#include "ui/win32/Placing.h"

namespace tests {
namespace {

using FormWindows = AllForms;
using FormsOnAnotherMonitor = AllForms;

// In pixels, as the system turns dialog units into them for the dialog that is the ruler.
ui::Rect Mapped(HWND ruler, const ui::Place& units) {
    RECT pixels{units.x, units.y, units.width, units.height};
    MapDialogRect(ruler, &pixels);
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

void CheckPlace(HWND dialog, HWND ruler, const ui::Dialog& form, const ui::Control& control) {
    SCOPED_TRACE(testing::PrintToString(form.Caption()) + ", control " + std::to_string(control.Id()));
    ui::Rect due = Mapped(ruler, control.Placement());
    const ui::Rect found = ui::win32::BoundsIn(dialog, GetDlgItem(dialog, control.Id()));
    if (HasItsOwnHeight(control)) due.height = found.height;
    if (HasArrows(form, control)) due.width = found.width;
    EXPECT_EQ(testing::PrintToString(std::vector{found.x, found.y, found.width, found.height}),
              testing::PrintToString(std::vector{due.x, due.y, due.width, due.height}));
}

// Up to the end of the field that it has been given, where the field's border still is.
void CheckArrows(HWND dialog, HWND ruler, const ui::UpDown& arrows) {
    const ui::Rect field = Mapped(ruler, arrows.Buddy().Placement());
    const ui::Rect found = ui::win32::BoundsIn(dialog, GetDlgItem(dialog, arrows.Id()));
    EXPECT_NEAR(found.x + found.width, field.x + field.width, GetSystemMetrics(SM_CXEDGE));
    EXPECT_NEAR(found.y, field.y, GetSystemMetrics(SM_CYEDGE));
}

void CheckPlaces(const ui::Dialog& form, HWND ruler) {
    const HWND window = WindowOf(form);
    RECT client{};
    GetClientRect(window, &client);
    const ui::Size units = form.Style().size;
    const ui::Rect due = Mapped(ruler, {0, 0, units.width, units.height});
    EXPECT_EQ((ui::Size{client.right, client.bottom}), (ui::Size{due.width, due.height}));
    for (const ui::Control* control : form.Controls()) {
        if (const auto* const arrows = dynamic_cast<const ui::UpDown*>(control)) {
            CheckArrows(window, ruler, *arrows);
        } else {
            CheckPlace(window, ruler, form, *control);
        }
    }
}

// BRISGATE_DPI: the resolution that the screen is expected to have; BRISGATE_FACE: the colour of its buttons.
TEST_F(FormWindows, StandInTheirPlacesAndShowTheirTextsWhole) {
    const char* const resolution = std::getenv("BRISGATE_DPI");
    const char* const face = std::getenv("BRISGATE_FACE");
    EXPECT_TRUE(face == nullptr || GetSysColor(COLOR_BTNFACE) == std::strtoul(face, nullptr, 16));
    size_t resized = 0;
    Tour([&](const ui::Dialog& form, const std::wstring&) {
        EXPECT_TRUE(resolution == nullptr || std::to_string(form.Dpi()) == resolution) << form.Dpi();
        CheckPlaces(form, WindowOf(form));
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

// An empty dialog whose font, in so many points, is as high at the resolution of this screen as that of the
// forms is at another.
class Ruler {
  public:
    explicit Ruler(WORD points) {
        std::vector<WORD> layout{1, 0xFFFF, 0, 0, 0, 0, LOWORD(DS_SHELLFONT | WS_POPUP), HIWORD(WS_POPUP)};
        layout.insert(layout.end(), {0, 0, 0, 40, 40, 0, 0, 0, points, FW_NORMAL, DEFAULT_CHARSET << 8});
        for (const wchar_t letter : std::wstring(L"MS Shell Dlg")) layout.push_back(letter);
        layout.push_back(0);
        window_ = CreateDialogIndirectParamW(
            GetModuleHandleW(nullptr), reinterpret_cast<const DLGTEMPLATE*>(layout.data()), nullptr,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    }
    ~Ruler() { DestroyWindow(window_); }
    Ruler(const Ruler&) = delete;
    Ruler& operator=(const Ruler&) = delete;

    HWND Window() const { return window_; }

  private:
    HWND window_ = nullptr;
};

std::vector<ui::Rect> PlacesIn(const ui::Dialog& form) {
    const HWND window = WindowOf(form);
    RECT outer{};
    GetWindowRect(window, &outer);
    std::vector<ui::Rect> places{{outer.left, outer.top, outer.right - outer.left, outer.bottom - outer.top}};
    for (const ui::Control* control : form.Controls())
        places.push_back(ui::win32::BoundsIn(window, GetDlgItem(window, control->Id())));
    return places;
}

void MoveTo(HWND window, int x, int y) {
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

TEST_F(FormsOnAnotherMonitor, AreAsIfOpenedThereAndAsBeforeWhenTheyComeBack) {
    constexpr uint32_t dpi = 120;  // in which the largest form still has room on this screen
    const Ruler ruler(10);
    const WindowsHabits habits(dpi);
    size_t forms = 0;
    Tour([&](const ui::Dialog& form, const std::wstring&) {
        ++forms;
        const HWND window = WindowOf(form);
        const std::vector<ui::Rect> before = PlacesIn(form);
        MoveTo(window, WindowsHabits::SecondMonitor, 0);
        EXPECT_EQ(form.Dpi(), dpi);
        CheckPlaces(form, ruler.Window());
        CheckTextsFit(window, form);
        MoveTo(window, before[0].x, before[0].y);
        EXPECT_EQ(PlacesIn(form), before) << testing::PrintToString(form.Caption());
    });
    EXPECT_GT(forms, 20U);
}

// The frame, the title bar and the menu of that resolution around the room that the form has there.
TEST_F(FormsOnAnotherMonitor, SayBeforehandHowLargeTheyWillBe) {
    constexpr uint32_t dpi = 144;
    const Ruler ruler(12);
    Tour([&](const ui::Dialog& form, const std::wstring&) {
        const HWND window = WindowOf(form);
        const ui::Rect client = Mapped(ruler.Window(), {0, 0, form.Style().size.width, form.Style().size.height});
        RECT outer{0, 0, client.width, client.height};
        AdjustWindowRectExForDpi(&outer, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
                                 form.MenuBar().empty() ? FALSE : TRUE,
                                 static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)), dpi);
        const std::optional<SIZE> said = WindowsHabits::SizeAt(window, dpi);
        ASSERT_TRUE(said.has_value());
        EXPECT_EQ((ui::Size{said->cx, said->cy}), (ui::Size{outer.right - outer.left, outer.bottom - outer.top}));
        EXPECT_NE(form.Dpi(), dpi);
    });
}

}  // namespace
}  // namespace tests
