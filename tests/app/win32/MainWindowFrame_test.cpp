// What only the real main window has: its system menu, its frame with the boxes, its icons, and the messages
// by which the system tells it of sizes and commands.
#include <windows.h>

#include <array>
#include <vector>

#include "app/AboutDlg.h"
#include "platform/win32/Resolution.h"
#include "tests/app/MainWindow.h"
#include "tests/support/win32/Input.h"
#include "tests/support/win32/Win32Robot.h"
#include "ui/win32/Placing.h"

namespace tests {
namespace {

class MainWindowFrame : public MainWindowTest {
  protected:
    MainWindowFrame() { SeedSmallConfiguration(); }

    // Opens the main window, looks at it, and leaves.
    void Look(const std::function<void(app::CBrisgateDlg& dialog, HWND window)>& look) {
        Run([&](app::CBrisgateDlg& dialog) {
            look(dialog, WindowOf(dialog));
            user_.PressCloseBox();
        });
    }
};

void Command(HWND window, WPARAM systemCommand, LPARAM more = 0) {
    PostMessageW(window, WM_SYSCOMMAND, systemCommand, more);
    input::Settle();
}

TEST_F(MainWindowFrame, WhoSendsTheCommandOfTheAboutBoxHearsThatItIsDone) {
    Look([this](app::CBrisgateDlg&, HWND window) {
        user_.Expect<app::CAboutDlg>([this](app::CAboutDlg&) { user_.Click(ui::IdOk); });
        EXPECT_EQ(SendMessageW(window, WM_SYSCOMMAND, 0x10, 0), 0);
    });
}

// The system uses the lowest four bits itself.
TEST_F(MainWindowFrame, TheAboutBoxOpensWhateverTheSystemPutsIntoTheLowestBits) {
    Look([this](app::CBrisgateDlg&, HWND window) {
        for (WPARAM command = 0x10; command <= 0x1F; ++command) {
            bool opened = false;
            user_.Expect<app::CAboutDlg>([&](app::CAboutDlg&) {
                opened = true;
                user_.Click(ui::IdOk);
            });
            Command(window, command);
            EXPECT_TRUE(opened) << command;
        }
        // Of these none opens a box, or the test fails.
        for (const WPARAM command : {0x00U, 0x0FU, 0x20U, 0x2FU, 0x30U, 0x90U, 0x110U, 0x1010U, 0x8010U})
            Command(window, command);
        EXPECT_FALSE(IsIconic(window));
        Command(window, SC_MINIMIZE);
        EXPECT_TRUE(IsIconic(window));  // what is the system's own is left to it
        Command(window, SC_RESTORE);
        EXPECT_FALSE(IsIconic(window));
    });
}

MENUITEMINFOW ItemAt(HMENU menu, int position, std::array<wchar_t, 64>& text) {
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STRING | MIIM_STATE;
    item.dwTypeData = text.data();
    item.cch = static_cast<UINT>(text.size());
    EXPECT_TRUE(GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item)) << position;
    return item;
}

TEST_F(MainWindowFrame, TheSystemMenuEndsWithASeparatorAndTheAboutBox) {
    Look([](app::CBrisgateDlg&, HWND window) {
        const HMENU menu = GetSystemMenu(window, FALSE);
        const int count = GetMenuItemCount(menu);
        ASSERT_GT(count, 2);
        std::array<wchar_t, 64> text{};
        const MENUITEMINFOW last = ItemAt(menu, count - 1, text);
        EXPECT_EQ(last.wID, 16U);
        EXPECT_EQ(last.fType, UINT{MFT_STRING});
        EXPECT_EQ(last.fState & (MFS_DISABLED | MFS_CHECKED), 0U);
        EXPECT_STREQ(text.data(), L"About programm...");
        EXPECT_EQ(ItemAt(menu, count - 2, text).fType & MFT_SEPARATOR, UINT{MFT_SEPARATOR});
        int abouts = 0;
        for (int i = 0; i < count; ++i) abouts += ItemAt(menu, i, text).wID == 16 ? 1 : 0;
        EXPECT_EQ(abouts, 1);
        EXPECT_NE(GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND), static_cast<UINT>(-1));
    });
}

// Opens the system menu as Alt and Space do, and closes it again. The system settles meanwhile what can be
// chosen in it.
void OpenSystemMenu(HWND window) {
    constexpr UINT soon = 10;  // in milliseconds; as long as the menu is open, only timers are heard
    const UINT_PTR timer = SetTimer(nullptr, 0, soon, [](HWND, UINT, UINT_PTR, DWORD) { EndMenu(); });
    Command(window, SC_KEYMENU, L' ');
    KillTimer(nullptr, timer);
}

TEST_F(MainWindowFrame, CanBeMinimisedAndSizedButNotMaximised) {
    Look([](app::CBrisgateDlg&, HWND window) {
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
        EXPECT_EQ(style & WS_MAXIMIZEBOX, 0U);
        constexpr DWORD has = WS_MINIMIZEBOX | WS_THICKFRAME | WS_SYSMENU | WS_CAPTION;
        EXPECT_EQ(style & has, has);
        OpenSystemMenu(window);
        const HMENU menu = GetSystemMenu(window, FALSE);
        constexpr UINT missing = static_cast<UINT>(-1);
        const UINT maximise = GetMenuState(menu, SC_MAXIMIZE, MF_BYCOMMAND);
        EXPECT_TRUE(maximise == missing || (maximise & (MF_GRAYED | MF_DISABLED)) != 0) << maximise;
        const UINT minimise = GetMenuState(menu, SC_MINIMIZE, MF_BYCOMMAND);
        EXPECT_TRUE(minimise != missing && (minimise & (MF_GRAYED | MF_DISABLED)) == 0) << minimise;
    });
}

// Width and pixels, row by row, each with its transparency; empty without a picture.
using Pixels = std::pair<int, std::vector<uint32_t>>;

Pixels PixelsOf(HICON icon) {
    ICONINFO parts{};
    if (icon == nullptr || GetIconInfo(icon, &parts) == FALSE) return {};
    BITMAP shape{};
    GetObjectW(parts.hbmColor, sizeof shape, &shape);
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = shape.bmWidth;
    format.bmiHeader.biHeight = -shape.bmHeight;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    Pixels found{shape.bmWidth, std::vector<uint32_t>(static_cast<size_t>(shape.bmWidth * shape.bmHeight))};
    const HDC screen = GetDC(nullptr);
    GetDIBits(screen, parts.hbmColor, 0, static_cast<UINT>(shape.bmHeight), found.second.data(), &format,
              DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    return found;
}

Pixels Resource(const wchar_t* name, int size) {
    const HANDLE loaded = LoadImageW(GetModuleHandleW(nullptr), name, IMAGE_ICON, size, size, LR_DEFAULTCOLOR);
    const Pixels pixels = PixelsOf(static_cast<HICON>(loaded));
    if (loaded != nullptr) DestroyIcon(static_cast<HICON>(loaded));
    return pixels;
}

TEST_F(MainWindowFrame, ShowsTheProgramsIconInBothSizes) {
    Look([](app::CBrisgateDlg& dialog, HWND window) {
        const auto shown = [window](WPARAM kind) {
            return PixelsOf(reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, kind, 0)));
        };
        const int large = platform::win32::SystemMetric(SM_CXICON, dialog.Dpi());
        const int small = platform::win32::SystemMetric(SM_CXSMICON, dialog.Dpi());
        ASSERT_GT(large, small);
        EXPECT_EQ(shown(ICON_BIG).first, large);
        EXPECT_EQ(shown(ICON_SMALL).first, small);
        EXPECT_EQ(shown(ICON_BIG), Resource(L"APP", large));
        EXPECT_EQ(shown(ICON_SMALL), Resource(L"APP", small));
        EXPECT_NE(shown(ICON_BIG), Resource(L"WARNING", large));
    });
}

class SizeEvents : public MainWindowFrame {
  protected:
    static void Tell(HWND window, WPARAM kind, ui::Size client) {
        SendMessageW(window, WM_SIZE, kind, MAKELPARAM(client.width, client.height));
    }
    static ui::Rect Place(HWND window, int control) { return ui::win32::BoundsIn(window, GetDlgItem(window, control)); }
};

TEST_F(SizeEvents, OfTheMaximisedKindChangeNothingNotEvenTheSizeFromWhichGrowthIsReckoned) {
    Look([](app::CBrisgateDlg& dialog, HWND window) {
        const ui::Size size = dialog.ClientSize();
        const ui::Rect rules = Place(window, id::Rules);
        const ui::Rect exit = Place(window, ui::IdCancel);
        Tell(window, SIZE_MAXIMIZED, {size.width + 400, size.height + 300});
        EXPECT_EQ(Place(window, id::Rules), rules);
        EXPECT_EQ(Place(window, ui::IdCancel), exit);
        EXPECT_EQ(dialog.ClientSize(), size);
        Tell(window, SIZE_RESTORED, {size.width + 40, size.height + 30});
        EXPECT_EQ(Place(window, id::Rules), (ui::Rect{rules.x, rules.y, rules.width + 40, rules.height + 30}));
        EXPECT_EQ(Place(window, ui::IdCancel), (ui::Rect{exit.x + 40, exit.y + 30, exit.width, exit.height}));
        EXPECT_EQ(dialog.ClientSize(), (ui::Size{size.width + 40, size.height + 30}));
    });
}

}  // namespace
}  // namespace tests
