// Which of the keys that are pressed are shortcuts of a dialog.
#include <gtest/gtest.h>
#include <windows.h>

#include <stdexcept>

#include "tests/support/win32/OpenedWindows.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

using ShortcutKeys = GalleryTest;

bool PressF1(HWND window, LPARAM state = 1) {
    MSG key{};
    key.hwnd = window;
    key.message = WM_KEYDOWN;
    key.wParam = VK_F1;
    key.lParam = state;
    return CallMsgFilterW(&key, MSGF_DIALOGBOX) != FALSE;
}

// A key that is held down comes again and again.
TEST_F(ShortcutKeys, F1OpensOnePageHoweverLongItIsHeld) {
    int shown = 0;
    world_->Screen().SetGuideHandler([&shown](const ui::Dialog&) { ++shown; });
    Run([&] {
        const HWND edit = GetDlgItem(WindowOf(gallery_), gallery::Name);
        EXPECT_TRUE(PressF1(edit));
        EXPECT_EQ(shown, 1);
        EXPECT_TRUE(PressF1(edit, LPARAM{1} << 30 | 1));
        EXPECT_EQ(shown, 1);
        EXPECT_TRUE(PressF1(edit));
        EXPECT_EQ(shown, 2);
    });
}

TEST_F(ShortcutKeys, KeysAreShortcutsOnlyWhileTheDialogIsInUse) {
    int shown = 0;
    world_->Screen().SetGuideHandler([&shown](const ui::Dialog&) { ++shown; });
    gallery_.onInit = [this] { EXPECT_FALSE(PressF1(WindowOf(gallery_))); };
    Run([this] {
        EXPECT_TRUE(PressF1(WindowOf(gallery_)));
        gallery_.EndDialog(ui::IdOk);
        EXPECT_FALSE(PressF1(WindowOf(gallery_)));
    });
    EXPECT_EQ(shown, 1);
}

TEST_F(ShortcutKeys, AKeyWhoseShortcutFailsIsNotHeardByTheControlAsWell) {
    world_->Screen().SetGuideHandler([](const ui::Dialog&) { throw std::out_of_range("guide"); });
    EXPECT_THROW(Run([this] { EXPECT_TRUE(PressF1(WindowOf(gallery_))); }), std::out_of_range);
}

// A box of the system is no form of ours, and neither are its keys.
TEST_F(ShortcutKeys, KeysInAMessageBoxAreTheBoxesOwn) {
    int shown = 0;
    world_->Screen().SetGuideHandler([&shown](const ui::Dialog&) { ++shown; });
    Run([&] {
        const OpenedWindows opened([](HWND box) {
            EXPECT_FALSE(PressF1(GetDlgItem(box, IDOK)));
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
        MessageBoxW(WindowOf(gallery_), L"Text", L"Caption", MB_OK);
    });
    EXPECT_EQ(shown, 0);
}

}  // namespace
}  // namespace tests
