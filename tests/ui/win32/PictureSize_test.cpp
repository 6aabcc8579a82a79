// The size in which an icon is drawn follows the control, and with it the resolution of the monitor.
#include <gtest/gtest.h>

#include "ui/win32/IconLoader.h"

namespace ui::win32 {
namespace {

TEST(PictureSize, APictureFillsItsControl) {
    EXPECT_EQ(PictureSizeFor({33, 32}), 32);
    EXPECT_EQ(PictureSizeFor({31, 32}), 24);
    EXPECT_EQ(PictureSizeFor({66, 65}), 64);
    EXPECT_EQ(PictureSizeFor({500, 500}), 96);
    EXPECT_EQ(PictureSizeFor({5, 5}), 16);
}

// The buttons of the main window, of the rule editor and of the extensions at 96, 144 and 192 dots per inch.
TEST(PictureSize, AButtonKeepsTheSameShareOfAirAtEveryResolution) {
    EXPECT_EQ(ButtonPictureSizeFor({48, 52}), 32);
    EXPECT_EQ(ButtonPictureSizeFor({72, 78}), 48);
    EXPECT_EQ(ButtonPictureSizeFor({96, 104}), 64);
    EXPECT_EQ(ButtonPictureSizeFor({42, 32}), 24);
    EXPECT_EQ(ButtonPictureSizeFor({63, 49}), 32);
    EXPECT_EQ(ButtonPictureSizeFor({84, 62}), 48);
    EXPECT_EQ(ButtonPictureSizeFor({22, 23}), 16);
    EXPECT_EQ(ButtonPictureSizeFor({33, 34}), 24);
    EXPECT_EQ(ButtonPictureSizeFor({44, 45}), 32);
}

}  // namespace
}  // namespace ui::win32
