// What icon buttons, picture controls and windows show, point by point, against the drawings.
#include "tests/support/win32/Pictures.h"

#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

TEST_F(GalleryTest, ButtonsPaintTheirDrawingAndWhenDisabledItsPaleForm) {
    Run([this] {
        const HWND button = GetDlgItem(WindowOf(gallery_), gallery::Save);
        for (const ui::Icon icon : AllPictures())
            for (const bool enabled : {true, false}) {
                gallery_.save.Enable(enabled);
                gallery_.save.SetIcon(icon);
                EXPECT_TRUE(PaintsDrawing(button, gallery_.save, icon))
                    << "picture " << static_cast<int>(icon) << (enabled ? "" : " of a disabled button");
            }
    });
}

TEST_F(GalleryTest, PicturesAndWindowsShowTheirDrawing) {
    Run([this] {
        for (const ui::Icon icon : AllPictures()) {
            SCOPED_TRACE(static_cast<int>(icon));
            gallery_.sign.SetIcon(icon);
            gallery_.SetIcon(icon);
            user_.Click(gallery::Apply);  // lets the windows be looked at
        }
    });
}

// So that a button that paints itself has no text either.
TEST(Pictures, TheEmptyOneIsOnePointThroughWhichTheGroundIsSeen) {
    const ui::win32::IconHandle empty = ui::win32::EmptyPicture();
    for (const uint32_t ground : {0U, White, 0x123456U})
        EXPECT_EQ(PointsOf(empty.get(), ground), (Points{{1, 1}, {ground}}));
}

// Nor has no picture at all.
TEST(Pictures, OneWithoutColorsHasNoPaleForm) {
    EXPECT_EQ(ui::win32::FadedPicture(ui::win32::EmptyPicture().get()), nullptr);
    EXPECT_EQ(ui::win32::FadedPicture(nullptr), nullptr);
}

TEST(Pictures, AreAllDifferent) {
    for (const int size : {16, 32, 96})
        for (const ui::Icon one : AllPictures())
            for (const ui::Icon other : AllPictures())
                EXPECT_EQ(one == other, DrawingOf(one, size) == DrawingOf(other, size))
                    << static_cast<int>(one) << ' ' << static_cast<int>(other) << ' ' << size;
}

}  // namespace
}  // namespace tests
