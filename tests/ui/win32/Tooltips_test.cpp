// The tooltip of a button that cannot be used says what it would do, whether the mouse only passes over it or
// is pressed.
#include "tests/support/win32/Input.h"
#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/TooltipWindow.h"
#include "tests/support/win32/Win32Robot.h"

#include <commctrl.h>

#include <vector>

#include "tests/ui/Gallery.h"

namespace tests {
namespace {

// Puts the mouse back in the end: where it is decides what later tests find under it.
class BorrowedMouse {
  public:
    BorrowedMouse() { GetCursorPos(&before_); }
    ~BorrowedMouse() { SetCursorPos(before_.x, before_.y); }
    BorrowedMouse(const BorrowedMouse&) = delete;
    BorrowedMouse& operator=(const BorrowedMouse&) = delete;

  private:
    POINT before_{};
};

// Real input, which goes to the window that the system finds under the mouse.
void MoveMouseOver(HWND control) {
    POINT middle = input::CenterOf(control);
    ClientToScreen(control, &middle);
    SetCursorPos(middle.x - 1, middle.y);
    input::Settle();
    SetCursorPos(middle.x, middle.y);
    input::Settle();
}

void PressMouse() {
    for (const int change : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
        INPUT event{};
        event.type = INPUT_MOUSE;
        event.mi.dwFlags = static_cast<DWORD>(change);
        SendInput(1, &event, sizeof event);
        input::Settle();
    }
}

// Gives the window time until it shows, or hides.
bool Becomes(bool shown, HWND window) {
    constexpr ULONGLONG Longest = 10'000;
    const ULONGLONG start = GetTickCount64();
    while ((IsWindowVisible(window) != FALSE) != shown && GetTickCount64() - start < Longest) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
        input::Settle();
    }
    return (IsWindowVisible(window) != FALSE) == shown;
}

// The number of the control whose tooltip shows, when it is that of a disabled one.
UINT_PTR ShownTool(HWND tooltips) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    SendMessageW(tooltips, TTM_GETCURRENTTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    return tool.uId;
}

// A control with a tooltip is known to the window twice: by itself and by its place.
TEST_F(GalleryTest, OnlyControlsWithATooltipAreKnownToTheTooltipWindow) {
    Run([this] {
        const TooltipWindow tooltips(WindowOf(gallery_));
        const auto count = [&tooltips] { return SendMessageW(tooltips.Handle(), TTM_GETTOOLCOUNT, 0, 0); };
        EXPECT_EQ(count(), 2);
        gallery_.save.SetTooltip(L"Save all");
        EXPECT_EQ(count(), 2);
        gallery_.save.SetTooltip(L"");
        EXPECT_EQ(count(), 0);
        gallery_.save.SetTooltip(L"Save");
        EXPECT_EQ(count(), 2);
    });
}

TEST_F(GalleryTest, ADisabledButtonHasItsTooltipWhereAndWhileItIsSeen) {
    gallery_.save.Enable(false);
    Run([this] {
        const HWND save = GetDlgItem(WindowOf(gallery_), gallery::Save);
        const TooltipWindow tooltips(WindowOf(gallery_));
        const auto width = [&] {
            const RECT place = tooltips.PlaceOf(save).value_or(RECT{});
            return static_cast<int>(place.right - place.left);
        };
        EXPECT_EQ(width(), gallery_.save.Bounds().width);
        gallery_.save.Show(false);
        EXPECT_EQ(width(), 0);
        gallery_.save.Show(true);
        EXPECT_EQ(width(), gallery_.save.Bounds().width);
        gallery_.save.Enable(true);
        EXPECT_EQ(width(), 0);
        EXPECT_EQ(tooltips.TextOver(save), L"Save");
    });
}

TEST_F(GalleryTest, TheTooltipWindowHearsOfTheMouseOverTheDialogAndOfWhatMoves) {
    Run([this] {
        const HWND dialog = WindowOf(gallery_);
        int relayed = 0;
        int moved = 0;
        const Subclass tooltips(TooltipWindow(dialog).Handle(), [&](UINT message, WPARAM, LPARAM) {
            relayed += message == TTM_RELAYEVENT ? 1 : 0;
            moved += message == TTM_NEWTOOLRECTW ? 1 : 0;
            return std::optional<LRESULT>();
        });
        const auto relays = [&](UINT message) {
            relayed = 0;
            SendMessageW(dialog, message, 0, MAKELPARAM(1, 1));
            return relayed;
        };
        EXPECT_EQ(relays(WM_MOUSEFIRST - 1), 0);
        EXPECT_EQ(relays(WM_MOUSEMOVE), 1);
        EXPECT_EQ(relays(WM_MBUTTONDBLCLK), 1);
        EXPECT_EQ(relays(WM_MOUSEWHEEL), 0);

        std::vector<ui::Rect> before;
        for (const ui::Control* control : gallery_.Controls()) before.push_back(control->Bounds());
        user_.Resize({10, 10});
        int changed = 0;
        for (size_t i = 0; i < before.size(); ++i) changed += gallery_.Controls()[i]->Bounds() == before[i] ? 0 : 1;
        EXPECT_EQ(moved, changed);
    });
}

TEST_F(GalleryTest, ADisabledButtonShowsItsTooltipUnderTheMouseAndWhenPressed) {
    const BorrowedMouse mouse;
    gallery_.save.Enable(false);
    Run([this] {
        const HWND dialog = WindowOf(gallery_);
        const HWND button = GetDlgItem(dialog, gallery::Save);
        const TooltipWindow tooltips(dialog);
        SendMessageW(tooltips.Handle(), TTM_SETDELAYTIME, TTDT_INITIAL, MAKELPARAM(1, 0));
        SetForegroundWindow(dialog);
        MoveMouseOver(GetDlgItem(dialog, gallery::Name));
        EXPECT_FALSE(IsWindowVisible(tooltips.Handle()));

        MoveMouseOver(button);
        EXPECT_TRUE(Becomes(true, tooltips.Handle()));
        EXPECT_EQ(ShownTool(tooltips.Handle()), UINT_PTR{gallery::Save});
        EXPECT_EQ(tooltips.TextAtPlaceOf(button), L"Save");
        PressMouse();
        MoveMouseOver(button);
        EXPECT_TRUE(Becomes(true, tooltips.Handle()));
        EXPECT_EQ(ShownTool(tooltips.Handle()), UINT_PTR{gallery::Save});
        EXPECT_EQ(gallery_.TakeHeard(), Heard{});

        MoveMouseOver(GetDlgItem(dialog, gallery::Name));
        EXPECT_TRUE(Becomes(false, tooltips.Handle()));
    });
}

}  // namespace
}  // namespace tests
