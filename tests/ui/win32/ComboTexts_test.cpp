// What an editable combo shows is what the program takes, also where the system completes the text.
#include <windows.h>

#include <tuple>

#include "tests/support/win32/Input.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/support/win32/WindowsHabits.h"
#include "tests/ui/Gallery.h"
#include "ui/win32/ControlMirror.h"

namespace tests {
namespace {

class ComboTexts : public GalleryTest {
  protected:
    HWND Combo() const { return GetDlgItem(WindowOf(gallery_), gallery::Mask); }
    std::wstring Shown() const { return ui::win32::TextOf(Combo()); }
    void ShowList(bool open) const {
        SendMessageW(Combo(), CB_SHOWDROPDOWN, open ? TRUE : FALSE, 0);
        input::Settle();
    }
    // By somebody else: the field is completed, and nobody hears of it.
    void ResizeCombo() const {
        RECT area{};
        GetWindowRect(Combo(), &area);
        SetWindowPos(Combo(), nullptr, 0, 0, area.right - area.left + 5, 200, SWP_NOMOVE | SWP_NOZORDER);
        SetWindowPos(Combo(), nullptr, 0, 0, area.right - area.left, 200, SWP_NOMOVE | SWP_NOZORDER);
        ASSERT_EQ(Shown(), L"*.txt");
        ASSERT_EQ(gallery_.mask.Text(), L"*.t");
    }

    WindowsHabits habits_{96};
};

TEST_F(ComboTexts, WhatTheOpenedListMadeOfThemIsTakenWhenItCloses) {
    Run([this] {
        user_.Type(gallery::Mask, L"*.t");
        ShowList(true);
        EXPECT_EQ(Shown(), L"*.txt");
        gallery_.TakeHeard();
        ShowList(false);
        EXPECT_EQ(Shown(), L"*.txt");
        EXPECT_EQ(gallery_.mask.Text(), L"*.txt");
        EXPECT_EQ(gallery_.TakeHeard(), (Heard{L"mask *.txt"}));
    });
}

TEST_F(ComboTexts, ThatTheListDoesNotHaveStay) {
    Run([this] {
        user_.Type(gallery::Mask, L"*.q");
        gallery_.TakeHeard();
        ShowList(true);
        ShowList(false);
        EXPECT_EQ(Shown(), L"*.q");
        EXPECT_EQ(gallery_.mask.Text(), L"*.q");
        EXPECT_EQ(gallery_.TakeHeard(), Heard{});
    });
}

TEST_F(ComboTexts, AreTakenAsShownWhenTheFocusLeaves) {
    Run([this] {
        user_.Type(gallery::Mask, L"*.t");
        ResizeCombo();
        user_.Press(Key::Tab);
        EXPECT_EQ(gallery_.mask.Text(), L"*.txt");
        EXPECT_EQ(Shown(), L"*.txt");
    });
}

TEST_F(ComboTexts, AreTakenAsShownByTheEnterKey) {
    Run([this] {
        gallery_.onOk = [this] {
            EXPECT_EQ(gallery_.mask.Text(), L"*.txt");
            gallery_.EndDialog(ui::IdOk);
        };
        user_.Type(gallery::Mask, L"*.t");
        ResizeCombo();
        user_.Press(Key::Enter);
        EXPECT_TRUE(gallery_.HasEnded());
    });
    EXPECT_EQ(gallery_.mask.Text(), L"*.txt");
}

// A command works on what the user sees, also one that leaves the focus where it is.
TEST_F(ComboTexts, AreTakenAsShownByEveryCommand) {
    Run([this] {
        const WPARAM apply = MAKEWPARAM(gallery::Apply, BN_CLICKED);
        const auto button = reinterpret_cast<LPARAM>(GetDlgItem(WindowOf(gallery_), gallery::Apply));
        for (const auto& [command, sender, heard] :
             {std::tuple{apply, button, L"apply"}, std::tuple{WPARAM{gallery::Open}, LPARAM{0}, L"menu 2001"}}) {
            user_.Type(gallery::Mask, L"*.t");
            ResizeCombo();
            gallery_.TakeHeard();
            SendMessageW(WindowOf(gallery_), WM_COMMAND, command, sender);
            EXPECT_EQ(gallery_.TakeHeard(), (Heard{L"mask *.txt", heard}));
        }
    });
}

TEST_F(ComboTexts, StayAsTypedWhenTheProgramResizesTheField) {
    Run([this] {
        user_.Type(gallery::Mask, L"*.t");
        habits_.SetDpi(144);
        SetWindowPos(WindowOf(gallery_), nullptr, WindowsHabits::SecondMonitor, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        input::Settle();
        EXPECT_EQ(gallery_.Dpi(), 144U);
        EXPECT_EQ(Shown(), L"*.t");
        EXPECT_EQ(gallery_.mask.Text(), L"*.t");
    });
}

}  // namespace
}  // namespace tests
