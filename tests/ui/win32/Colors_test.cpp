// The system's colours, and what follows when the user chooses others.
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>
#include <vector>

#include "tests/support/win32/ColorScheme.h"
#include "tests/support/win32/Pictures.h"
#include "tests/support/win32/TooltipWindow.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

constexpr ButtonColors Light{RGB(240, 240, 240), RGB(109, 109, 109)};
constexpr ButtonColors Dark{RGB(32, 32, 32), RGB(109, 109, 109)};
constexpr ButtonColors BlackContrast{RGB(0, 0, 0), RGB(63, 242, 63)};
constexpr ButtonColors WhiteContrast{RGB(255, 255, 255), RGB(96, 0, 0)};
constexpr ButtonColors Schemes[]{Light, Dark, BlackContrast, WhiteContrast};

uint32_t PointOf(COLORREF color) {
    return uint32_t{GetRValue(color)} << 16 | uint32_t{GetGValue(color)} << 8 | GetBValue(color);
}

// How far apart two colours are, red, green and blue together.
int Distance(uint32_t one, uint32_t other) {
    int sum = 0;
    for (const int shift : {0, 8, 16})
        sum += std::abs(static_cast<int>(one >> shift & 0xFF) - static_cast<int>(other >> shift & 0xFF));
    return sum;
}

TEST(Colors, DisabledPicturesStandOutFromTheGroundInEveryScheme) {
    constexpr uint32_t black = 0;
    for (const ButtonColors& colors : Schemes) {
        const ColorScheme scheme(colors);
        const uint32_t ground = PointOf(colors.ground);
        const int contrast = Distance(ground, PointOf(colors.ink));
        for (const ui::Icon icon : AllPictures()) {
            SCOPED_TRACE(testing::PrintToString(static_cast<int>(icon)) + " upon " + std::to_string(ground));
            const ui::win32::IconHandle drawing = LoadDrawing(icon, 32);
            const Points full = PointsOf(drawing.get());
            const Points onBlack = PointsOf(drawing.get(), black);
            const Points pale = PointsOf(ui::win32::FadedPicture(drawing.get()).get(), ground);
            int strongest = 0;
            for (size_t i = 0; i < full.colors.size(); ++i) {
                if (full.colors[i] != onBlack.colors[i]) continue;  // the ground shows through
                const int found = Distance(pale.colors[i], ground);
                EXPECT_GE(found, contrast / 5);
                EXPECT_LE(found, contrast + 3);
                strongest = std::max(strongest, found);
            }
            EXPECT_GE(strongest, contrast / 2);
        }
    }
}

TEST(Colors, DisabledPicturesAreStillToldApart) {
    const ColorScheme scheme(Dark);
    const auto pale = [](ui::Icon icon) {
        return PointsOf(ui::win32::FadedPicture(LoadDrawing(icon, 32).get()).get());
    };
    std::set<std::vector<uint32_t>> different;
    for (const ui::Icon icon : AllPictures()) different.insert(pale(icon).colors);
    EXPECT_EQ(different.size(), AllPictures().size());
}

TEST(Colors, DisabledPicturesAreDrawnInTheInkWhereTheyAreDark) {
    const ColorScheme scheme({RGB(0, 0, 0), RGB(255, 0, 0)});
    const Points pale = PointsOf(ui::win32::FadedPicture(LoadDrawing(ui::Icon::ItemDelete, 32).get()).get(), 0);
    uint32_t strongest = 0;
    for (const uint32_t color : pale.colors) {
        EXPECT_EQ(color & 0xFFFF, 0U);  // no green and no blue
        strongest = std::max(strongest, color >> 16);
    }
    EXPECT_GT(strongest, 0x80U);
}

ui::win32::IconHandle IconOf(COLORREF color) {
    constexpr int size = 16;
    std::vector<uint32_t> points(size * size, 0xFF000000 | PointOf(color));
    const std::vector<uint8_t> opaque(size * size / 8);
    const HBITMAP drawing = CreateBitmap(size, size, 1, 32, points.data());
    const HBITMAP mask = CreateBitmap(size, size, 1, 1, opaque.data());
    ICONINFO parts{TRUE, 0, 0, mask, drawing};
    ui::win32::IconHandle icon(CreateIconIndirect(&parts));
    DeleteObject(drawing);
    DeleteObject(mask);
    return icon;
}

// By how light the eye takes it to be: of white a quarter is left.
TEST(Colors, EachColorOfADisabledPictureLiesBetweenInkAndGround) {
    const ColorScheme scheme({RGB(200, 100, 40), RGB(10, 50, 90)});
    const std::vector<std::pair<COLORREF, COLORREF>> cases{
        {RGB(0, 0, 0), RGB(10, 50, 90)},   {RGB(0, 0, 255), RGB(25, 54, 86)}, {RGB(0, 8, 255), RGB(27, 54, 85)},
        {RGB(255, 0, 0), RGB(51, 61, 79)}, {RGB(0, 255, 0), RGB(93, 72, 68)}, {RGB(255, 255, 255), RGB(152, 87, 52)}};
    for (const auto& [color, expected] : cases) {
        const Points pale = PointsOf(ui::win32::FadedPicture(IconOf(color).get()).get());
        ASSERT_FALSE(pale.colors.empty());
        for (const uint32_t found : pale.colors) ASSERT_EQ(found, PointOf(expected)) << color;
    }
}

// Which windows are told that the colours changed.
std::set<HWND> toldOfColors;

LRESULT CALLBACK NoteColorChange(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && message.message == WM_SYSCOLORCHANGE) toldOfColors.insert(message.hwnd);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(GalleryTest, EveryControlAndTheTooltipHearOfOtherColors) {
    Run([this] {
        const HWND window = WindowOf(gallery_);
        std::set<HWND> expected{window, TooltipWindow(window).Handle()};
        EnumChildWindows(
            window,
            [](HWND control, LPARAM set) -> BOOL {
                reinterpret_cast<std::set<HWND>*>(set)->insert(control);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&expected));
        EXPECT_GT(expected.size(), gallery_.Controls().size() + 2);
        toldOfColors.clear();
        const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, NoteColorChange, nullptr, GetCurrentThreadId());
        SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
        UnhookWindowsHookEx(hook);
        EXPECT_EQ(toldOfColors, expected);
    });
}

TEST_F(GalleryTest, ADisabledButtonFollowsTheColors) {
    Run([this] {
        const HWND button = GetDlgItem(WindowOf(gallery_), gallery::Save);
        gallery_.save.Enable(false);
        for (const ButtonColors& colors : Schemes) {
            const ColorScheme scheme(colors);
            EXPECT_TRUE(PaintsDrawing(button, gallery_.save, ui::Icon::Save));
        }
        EXPECT_TRUE(PaintsDrawing(button, gallery_.save, ui::Icon::Save));
    });
}

}  // namespace
}  // namespace tests
