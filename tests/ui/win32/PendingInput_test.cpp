// What the user types and clicks while the program shows the wait cursor.
#include <windows.h>

#include <utility>
#include <vector>

#include "errors/MessageBoxes.h"
#include "tests/support/win32/Input.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

class PendingInput : public GalleryTest {
  protected:
    // The "Apply" button does this at its first click only.
    void OnFirstApply(std::function<void()> command) {
        gallery_.onHear = [this, command = std::move(command)](const std::wstring& what) {
            if (what == L"apply" && std::exchange(clicks_, clicks_ + 1) == 0) command();
        };
    }
    // The user gets impatient: clicks again, and presses Escape.
    void ActAhead() {
        const HWND button = GetDlgItem(WindowOf(gallery_), gallery::Apply);
        const POINT at = input::CenterOf(button);
        PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
        PostMessageW(button, WM_KEYDOWN, VK_ESCAPE, 1);
    }

    int clicks_ = 0;
};

TEST_F(PendingInput, OfAWaitIsThrownAwayAtItsEnd) {
    OnFirstApply([this] {
        const ui::WaitCursor outer(world_->Screen());
        const ui::WaitCursor inner(world_->Screen());
        ActAhead();
    });
    Run([this] {
        user_.Click(gallery::Apply);
        EXPECT_EQ(clicks_, 1);
        EXPECT_FALSE(gallery_.HasEnded());
    });
}

TEST_F(PendingInput, OfAWaitIsThrownAwayBeforeTheUserIsAsked) {
    OnFirstApply([this] {
        const ui::WaitCursor wait(world_->Screen());
        ActAhead();
        errors::ErrBox(world_->Screen(), &gallery_, L"Text", ui::Icon::Error).DoModal();
        ActAhead();
        world_->Screen().ShowMessageBox(&gallery_, L"Text", L"Caption", 0);
    });
    Run([this] {
        user_.Expect<errors::ErrBox>([this](errors::ErrBox& box) {
            input::Settle();
            EXPECT_FALSE(box.HasEnded());
            EXPECT_EQ(clicks_, 1);
            user_.Click(ui::IdOk);
        });
        user_.ExpectBox(L"Text", 0, ui::IdOk, L"Caption");
        user_.Click(gallery::Apply);
        EXPECT_EQ(clicks_, 1);
        EXPECT_FALSE(gallery_.HasEnded());
    });
}

TEST_F(PendingInput, OfACommandThatDoesNotWaitCounts) {
    OnFirstApply([this] { ActAhead(); });
    Run([this] { user_.Click(gallery::Apply); });
    EXPECT_EQ(clicks_, 2);
}

TEST_F(PendingInput, IsWhatComesFromMouseKeyboardAndTouchAndNothingElse) {
    const std::vector<UINT> usersOwn{WM_KEYDOWN,         WM_KEYUP,         WM_CHAR,        WM_SYSKEYDOWN,
                                     WM_UNICHAR,         WM_MOUSEMOVE,     WM_LBUTTONDOWN, WM_MOUSEWHEEL,
                                     WM_MOUSEHWHEEL,     WM_XBUTTONDBLCLK, WM_NCMOUSEMOVE, WM_NCLBUTTONUP,
                                     WM_NCXBUTTONDBLCLK, WM_TOUCH,         WM_POINTERDOWN, WM_POINTERUP};
    const std::vector<UINT> others{WM_COMMAND, WM_SYSCOMMAND, WM_CLOSE, WM_TIMER, WM_DROPFILES, WM_APP};
    const HWND window = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    {
        const ui::WaitCursor wait(world_->Screen());
        for (const UINT message : usersOwn) PostMessageW(window, message, 0, 0);
        for (const UINT message : others) PostMessageW(window, message, 0, 0);
        PostQuitMessage(7);
    }
    std::vector<UINT> left;
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        if (message.hwnd == window || message.message == WM_QUIT) left.push_back(message.message);
    std::vector<UINT> expected = others;
    expected.push_back(WM_QUIT);
    EXPECT_EQ(left, expected);
    EXPECT_EQ(message.wParam, 7U);
    DestroyWindow(window);
}

}  // namespace
}  // namespace tests
