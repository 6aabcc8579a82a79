// The mouse wheel over drop-down lists.
#include <windows.h>

#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/Input.h"
#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

class MouseWheel : public GalleryTest {
  protected:
    static constexpr POINT nowhere{-30'000, -30'000};

    HWND Window(int id) { return GetDlgItem(WindowOf(gallery_), id); }
    static HWND EditOf(HWND combo) { return FindWindowExW(combo, nullptr, L"Edit", nullptr); }
    static POINT Middle(HWND window) {
        POINT at = input::CenterOf(window);
        ClientToScreen(window, &at);
        return at;
    }
    // One notch towards the user, with the mouse at a place of the screen.
    static void Turn(HWND window, POINT mouse) {
        PostMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)),
                     MAKELPARAM(mouse.x, mouse.y));
        input::Settle();
    }
    static LRESULT TopRow(HWND list) { return SendMessageW(list, 0x1000 + 39 /* LVM_GETTOPINDEX */, 0, 0); }
};

TEST_F(MouseWheel, ChoosesNothingInAClosedList) {
    Run([this] {
        user_.Choose(gallery::Kinds, 0);
        user_.Choose(gallery::Mask, 0);
        gallery_.TakeHeard();
        const HWND mask = Window(gallery::Mask);
        for (const HWND combo : {Window(gallery::Kinds), mask, EditOf(mask)}) {
            ASSERT_NE(combo, nullptr);
            for (const POINT mouse : {Middle(combo), nowhere, Middle(Window(gallery::Apply)), Middle(mask)})
                Turn(combo, mouse);
        }
        EXPECT_EQ(gallery_.TakeHeard(), Heard{});
        EXPECT_EQ(gallery_.kinds.Selected(), 0);
        EXPECT_EQ(gallery_.mask.Selected(), 0);
        EXPECT_EQ(SendMessageW(Window(gallery::Kinds), CB_GETCURSEL, 0, 0), 0);
        EXPECT_EQ(SendMessageW(mask, CB_GETCURSEL, 0, 0), 0);
    });
}

TEST_F(MouseWheel, OverAClosedListScrollsWhatIsUnderTheMouse) {
    Run([this] {
        gallery_.FillRows(200);
        const HWND rows = Window(gallery::Rows);
        const HWND mask = Window(gallery::Mask);
        LRESULT top = TopRow(rows);
        for (const HWND combo : {Window(gallery::Kinds), mask, EditOf(mask)}) {
            Turn(combo, Middle(rows));
            EXPECT_GT(TopRow(rows), top);
            top = TopRow(rows);
        }
        gallery_.rows.Enable(false);
        Turn(mask, Middle(rows));
        EXPECT_EQ(TopRow(rows), top);
        gallery_.rows.Enable(true);
    });
}

TEST_F(MouseWheel, OverWhatDoesNotScrollIsHeardByNobody) {
    Run([this] {
        int heard = 0;
        const Subclass button(Window(gallery::Apply), [&heard](UINT message, WPARAM, LPARAM) {
            heard += message == WM_MOUSEWHEEL ? 1 : 0;
            return std::optional<LRESULT>();
        });
        const HWND kinds = Window(gallery::Kinds);
        const POINT mouse = Middle(Window(gallery::Apply));
        Turn(kinds, mouse);
        EXPECT_EQ(heard, 0);
        EXPECT_EQ(SendMessageW(kinds, WM_MOUSEWHEEL, 0, MAKELPARAM(mouse.x, mouse.y)), 0);
    });
}

int noted = 0;

using SetNote = BOOL WINAPI(HWND, const wchar_t*, HANDLE);
SetNote* setNote = nullptr;
BOOL WINAPI CountNoted(HWND window, const wchar_t* name, HANDLE value) {
    const BOOL done = setNote(window, name, value);
    if (done != FALSE) ++noted;
    return done;
}
using RemoveNote = HANDLE WINAPI(HWND, const wchar_t*);
RemoveNote* removeNote = nullptr;
HANDLE WINAPI CountForgotten(HWND window, const wchar_t* name) {
    --noted;
    return removeNote(window, name);
}

// The system does not do it for the program.
TEST_F(MouseWheel, WhatIsNotedAboutAWindowGoesWithIt) {
    const ImportHook set("SetPropW", CountNoted);
    const ImportHook remove("RemovePropW", CountForgotten);
    setNote = set.Real<SetNote>();
    removeNote = remove.Real<RemoveNote>();
    noted = 0;
    Run([] { EXPECT_GE(noted, 6); });  // two for each of two combo boxes and an edit
    EXPECT_EQ(noted, 0);
}

TEST_F(MouseWheel, ScrollsAnOpenList) {
    Run([this] {
        for (const int id : {gallery::Kinds, gallery::Mask}) {
            const HWND combo = Window(id);
            user_.Choose(id, 0);
            SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
            ASSERT_EQ(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0), TRUE);
            Turn(combo, Middle(combo));
            EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 1) << "as the system has it";
            SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
        }
    });
}

}  // namespace
}  // namespace tests
