// A window that the user moves to a monitor with another resolution, and back.
#include <windows.h>

#include <commctrl.h>

#include <bit>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win32/Module.h"
#include "platform/win32/Resolution.h"
#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/Input.h"
#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/TooltipWindow.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/support/win32/WindowsHabits.h"
#include "tests/ui/Gallery.h"
#include "ui/win32/IconLoader.h"
#include "ui/win32/Placing.h"

namespace tests {
namespace {

class OtherMonitor : public GalleryTest {
  protected:
    HWND Window() const { return WindowOf(gallery_); }
    // The window, its controls, the columns of its list.
    std::vector<ui::Rect> Places() const {
        std::vector<ui::Rect> places{ui::win32::NormalRectOf(Window())};
        for (const ui::Control* control : gallery_.Controls())
            places.push_back(ui::win32::BoundsIn(Window(), GetDlgItem(Window(), control->Id())));
        for (const ui::Column& column : gallery_.rows.Columns()) places.push_back({0, 0, column.width, 0});
        return places;
    }
    ui::Size Client() const {
        RECT inner{};
        GetClientRect(Window(), &inner);
        return {inner.right, inner.bottom};
    }
    void MoveTo(int x, int y) {
        SetWindowPos(Window(), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        input::Settle();
    }
    void MoveAway() { MoveTo(WindowsHabits::SecondMonitor, 20); }
    void Return(const std::vector<ui::Rect>& before) { MoveTo(before.front().x, before.front().y); }
    void Tell(uint32_t dpi, const RECT& suggested) {
        const WPARAM both = MAKEWPARAM(dpi, dpi);
        EXPECT_EQ(SendMessageW(Window(), WM_DPICHANGED, both, reinterpret_cast<LPARAM>(&suggested)), 0);
    }
};

TEST_F(OtherMonitor, ThereAndBackLeavesEverythingAsTheUserMadeIt) {
    Run([this] {
        user_.Resize({37, 23});
        gallery_.rows.SetColumnWidths({91, 77, 113});
        const std::vector<ui::Rect> before = Places();
        WindowsHabits habits(120);
        for (const uint32_t dpi : {72U, 120U, 144U, 168U, 192U, 250U}) {
            SCOPED_TRACE(dpi);
            habits.SetDpi(dpi);
            MoveAway();
            EXPECT_EQ(gallery_.Dpi(), dpi);
            EXPECT_NE(Places(), before);
            Return(before);
            EXPECT_EQ(gallery_.Dpi(), 96U);
            EXPECT_EQ(Places(), before);
        }
    });
}

TEST_F(OtherMonitor, WhatTheUserMakesOfItThereIsAlsoKept) {
    Run([this] {
        const WindowsHabits habits(144);
        const std::vector<ui::Rect> home = Places();
        MoveAway();
        user_.Resize({41, 31});
        gallery_.rows.SetColumnWidths({131, 151, 171});
        const std::vector<ui::Rect> before = Places();
        for (int times = 0; times < 2; ++times) {
            Return(home);
            EXPECT_EQ(gallery_.rows.Columns()[1].width, 101);
            MoveAway();
            EXPECT_EQ(Places(), before);
        }
    });
}

TEST_F(OtherMonitor, GrowsByTheSameShareOfItsSize) {
    Run([this] {
        const WindowsHabits habits(192);
        const ui::Size opening = gallery_.ClientSize();
        const ui::Rect apply = gallery_.apply.Bounds();
        MoveAway();
        const ui::Size there = gallery_.ClientSize();
        const ui::Rect applyThere = gallery_.apply.Bounds();
        MoveTo(20, 20);
        user_.Resize({50, 30});
        MoveAway();
        EXPECT_EQ(gallery_.ClientSize(), (ui::Size{there.width + 100, there.height + 60}));
        EXPECT_EQ(gallery_.apply.Bounds(),
                  (ui::Rect{applyThere.x + 100, applyThere.y + 60, applyThere.width, applyThere.height}));
        EXPECT_GT(there.width, opening.width * 3 / 2);
        EXPECT_GT(applyThere.width, apply.width * 3 / 2);
    });
}

// Older systems suggest a place without asking how large the window will be.
TEST_F(OtherMonitor, TheSuggestedPlaceCountsAndTheSizeFollowsTheFont) {
    Run([this] {
        const ui::Rect before = ui::win32::NormalRectOf(Window());
        const ui::Size client = gallery_.ClientSize();
        Tell(144, {60, 70, 60 + before.width * 3 / 2, 70 + before.height * 3 / 2});
        const ui::Rect there = ui::win32::NormalRectOf(Window());
        EXPECT_EQ((ui::Size{there.x, there.y}), (ui::Size{60, 70}));
        EXPECT_EQ(Client(), gallery_.ClientSize());
        EXPECT_GT(Client().width, client.width);
        Tell(96, {before.x, before.y, before.x + before.width, before.y + before.height});
        EXPECT_EQ(ui::win32::NormalRectOf(Window()), before);
        EXPECT_EQ(gallery_.ClientSize(), client);
    });
}

TEST_F(OtherMonitor, APlaceThatTheProgramGivesIsTakenToThePixel) {
    Run([this] {
        const WindowsHabits habits(192);
        constexpr ui::Rect wanted{WindowsHabits::SecondMonitor + 10, 20, 777, 555};
        gallery_.SetNormalRect(wanted);
        EXPECT_EQ(gallery_.Dpi(), 192U);
        EXPECT_EQ(ui::win32::NormalRectOf(Window()), wanted);
    });
}

TEST_F(OtherMonitor, NothingMovesWhileTheWindowIsMinimised) {
    Run([this] {
        const std::vector<ui::Rect> before = Places();
        const ui::Size client = gallery_.ClientSize();
        for (const uint32_t dpi : {192U, 96U}) {
            SCOPED_TRACE(dpi);
            const std::vector<ui::Rect> places = Places();
            user_.Minimize();
            RECT icon{};
            GetWindowRect(Window(), &icon);
            EXPECT_FALSE(WindowsHabits::SizeAt(Window(), dpi).has_value());
            Tell(dpi, {icon.left, icon.top, icon.left + 320, icon.top + 60});
            EXPECT_TRUE(IsIconic(Window()));
            EXPECT_EQ(Places(), places);
            user_.Restore();
            EXPECT_EQ(gallery_.Dpi(), dpi);
            EXPECT_EQ(ui::win32::NormalRectOf(Window()).x, before.front().x);
            EXPECT_EQ(Client(), gallery_.ClientSize());
            EXPECT_EQ(Client().width > client.width, dpi == 192);
        }
        EXPECT_EQ(Places(), before);
    });
}

// To another monitor and back while it is minimised.
TEST_F(OtherMonitor, TheLastResolutionCountsWhenTheWindowIsRestored) {
    Run([this] {
        const std::vector<ui::Rect> before = Places();
        user_.Minimize();
        Tell(192, {});
        Tell(96, {});
        user_.Restore();
        EXPECT_EQ(gallery_.Dpi(), 96U);
        EXPECT_EQ(Places(), before);
    });
}

// Nor is one that it has already news.
TEST_F(OtherMonitor, NoResolutionAtAllIsNone) {
    Run([this] {
        const std::vector<ui::Rect> before = Places();
        SIZE size{};
        EXPECT_EQ(SendMessageW(Window(), WM_GETDPISCALEDSIZE, 0, reinterpret_cast<LPARAM>(&size)), FALSE);
        for (const uint32_t dpi : {0U, 96U}) Tell(dpi, {11, 12, 300, 400});
        EXPECT_EQ(Places(), before);
    });
}

TEST_F(OtherMonitor, EveryControlIsWrittenInTheSameFontAsLargeAsTheResolutionWantsIt) {
    Run([this] {
        for (const uint32_t dpi : {192U, 120U, 96U}) {
            SCOPED_TRACE(dpi);
            Tell(dpi, {0, 0, 900, 800});
            for (const ui::Control* control : gallery_.Controls()) {
                LOGFONTW font{};
                const LRESULT handle = SendMessageW(GetDlgItem(Window(), control->Id()), WM_GETFONT, 0, 0);
                if (GetObjectW(reinterpret_cast<HFONT>(handle), sizeof font, &font) == 0) continue;  // writes nothing
                EXPECT_EQ(font.lfHeight, -MulDiv(8, static_cast<int>(dpi), 72)) << control->Id();
                EXPECT_EQ(font.lfWidth, 0);
                EXPECT_STREQ(font.lfFaceName, L"MS Shell Dlg");
            }
        }
    });
}

TEST_F(OtherMonitor, PicturesAndTooltipsFollow) {
    const auto widthOf = [](LRESULT icon) {
        ICONINFO parts{};
        BITMAP shape{};
        GetIconInfo(reinterpret_cast<HICON>(icon), &parts);
        GetObjectW(parts.hbmMask, sizeof shape, &shape);
        DeleteObject(parts.hbmMask);
        DeleteObject(parts.hbmColor);
        return shape.bmWidth;
    };
    using platform::win32::SystemMetric;
    gallery_.save.Enable(false);
    Run([&] {
        const HWND save = GetDlgItem(Window(), gallery::Save);
        const HWND sign = GetDlgItem(Window(), gallery::Sign);
        const std::vector<ui::Rect> before = Places();
        const WindowsHabits habits(192);
        for (const uint32_t dpi : {192U, 96U}) {
            if (dpi == 192) {
                MoveAway();
            } else {
                Return(before);
            }
            EXPECT_EQ(widthOf(SendMessageW(Window(), WM_GETICON, ICON_BIG, 0)), SystemMetric(SM_CXICON, dpi));
            EXPECT_EQ(widthOf(SendMessageW(Window(), WM_GETICON, ICON_SMALL, 0)), SystemMetric(SM_CXSMICON, dpi));
            const auto [x, y, width, height] = gallery_.sign.Bounds();
            EXPECT_EQ(widthOf(SendMessageW(sign, STM_GETIMAGE, IMAGE_ICON, 0)),
                      ui::win32::PictureSizeFor({width, height}));
            const ui::Rect due = gallery_.save.Bounds();
            const std::optional<RECT> place = TooltipWindow(Window()).PlaceOf(save);
            ASSERT_TRUE(place);
            EXPECT_EQ((ui::Rect{place->left, place->top, place->right - place->left, place->bottom - place->top}), due);
        }
    });
}

using LookUp = FARPROC WINAPI(HMODULE, const char*);
LookUp* lookUp = nullptr;
HWND leftAlone = nullptr;
std::pair<int, int> leftOut;

BOOL WINAPI NoteLeftAlone(HWND dialog, int mask, int values) {
    leftAlone = dialog;
    leftOut = {mask, values};
    return TRUE;
}
FARPROC WINAPI FindNoting(HMODULE module, const char* name) {
    const bool isIt = std::string_view(name) == "SetDialogDpiChangeBehavior";
    return isIt ? std::bit_cast<FARPROC>(&NoteLeftAlone) : lookUp(module, name);
}

// Else the system would place the controls, too, by rules of its own.
TEST_F(OtherMonitor, TheSystemLeavesADialogAlone) {
    const ImportHook find("GetProcAddress", FindNoting);
    lookUp = find.Real<LookUp>();
    Run([this] {
        EXPECT_EQ(leftAlone, Window());
        EXPECT_EQ(leftOut, std::pair(1, 1));  // all of it
    });
}

using Styles = std::vector<std::pair<WPARAM, LPARAM>>;

// Their pictures are made for one resolution, when the style is given.
TEST_F(OtherMonitor, AListMakesItsCheckBoxesAnew) {
    Run([this] {
        Styles styles;
        const HWND list = GetDlgItem(Window(), gallery::Rows);
        const Subclass hearing(list, [&styles](UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == LVM_SETEXTENDEDLISTVIEWSTYLE) styles.emplace_back(wParam, lParam);
            return std::optional<LRESULT>();
        });
        const LRESULT all = SendMessageW(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
        EXPECT_NE(all & LVS_EX_CHECKBOXES, 0);
        Tell(192, {0, 0, 900, 800});
        EXPECT_EQ(styles, (Styles{{LVS_EX_CHECKBOXES, 0}, {0, all}}));
    });
}

// They are made anew for each resolution.
TEST_F(OtherMonitor, AListGivesBackTheArrowsThatItsHeaderHad) {
    using GetSize = BOOL WINAPI(HIMAGELIST, int*, int*);
    const auto getSize = platform::win32::SystemFunction<GetSize>(L"comctl32.dll", "ImageList_GetIconSize");
    ASSERT_NE(getSize, nullptr);
    Run([&] {
        const auto header =
            reinterpret_cast<HWND>(SendMessageW(GetDlgItem(Window(), gallery::Rows), LVM_GETHEADER, 0, 0));
        const auto arrows = [header] {
            return reinterpret_cast<HIMAGELIST>(SendMessageW(header, HDM_GETIMAGELIST, HDSIL_NORMAL, 0));
        };
        const HIMAGELIST before = arrows();
        int width = 0;
        int height = 0;
        EXPECT_TRUE(getSize(before, &width, &height));
        Tell(192, {0, 0, 900, 800});
        EXPECT_TRUE(getSize(arrows(), &width, &height));
        EXPECT_FALSE(getSize(before, &width, &height));
    });
}

}  // namespace
}  // namespace tests
