// The size in which an icon is drawn follows the control, and with it the resolution of the monitor.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "ui/win32/IconLoader.h"

namespace ui::win32 {
namespace {

TEST(PictureSize, APictureFillsItsControl) {
    EXPECT_EQ(PictureSizeFor({33, 32}), 32);
    EXPECT_EQ(PictureSizeFor({31, 32}), 24);
    EXPECT_EQ(PictureSizeFor({41, 42}), 40);
    EXPECT_EQ(PictureSizeFor({58, 59}), 56);
    EXPECT_EQ(PictureSizeFor({66, 65}), 64);
    EXPECT_EQ(PictureSizeFor({83, 84}), 80);
    EXPECT_EQ(PictureSizeFor({500, 500}), 96);
    EXPECT_EQ(PictureSizeFor({5, 5}), 16);
}

TEST(PictureSize, APictureIsTheLargestOfThoseThatAreDrawnForWhichThereIsRoom) {
    const std::vector<int> drawn{16, 20, 24, 32, 40, 48, 56, 64, 80, 96};
    for (int room = drawn.front(); room <= drawn.back() + 1; ++room) {
        const auto larger = std::upper_bound(drawn.begin(), drawn.end(), room);
        EXPECT_EQ(PictureSizeFor({room, room}), *std::prev(larger)) << room;
    }
}

// The buttons of the main window, of the rule editor and of the extensions: each row is one resolution.
TEST(PictureSize, AButtonKeepsTheSameShareOfAirAtEveryResolution) {
    struct Row {
        uint32_t dpi;
        Size large, middle, small;
        std::vector<int> due;
    };
    for (const Row& row :
         {Row{96, {48, 52}, {42, 32}, {22, 23}, {32, 24, 16}}, Row{120, {60, 65}, {52, 40}, {28, 28}, {40, 24, 20}},
          Row{144, {72, 78}, {63, 49}, {33, 34}, {48, 32, 24}}, Row{168, {84, 91}, {73, 57}, {39, 40}, {56, 40, 24}},
          Row{192, {96, 104}, {84, 62}, {44, 45}, {64, 48, 32}},
          Row{240, {120, 130}, {105, 81}, {56, 57}, {80, 56, 40}},
          Row{288, {144, 156}, {126, 97}, {67, 68}, {96, 64, 48}}}) {
        SCOPED_TRACE(row.dpi);
        const std::vector<int> found{ButtonPictureSizeFor(row.large, row.dpi),
                                     ButtonPictureSizeFor(row.middle, row.dpi),
                                     ButtonPictureSizeFor(row.small, row.dpi)};
        EXPECT_EQ(found, row.due);
    }
}

// Of its width or its height, whichever is less.
TEST(PictureSize, APictureMayTakeFourFifthsOfAButton) {
    for (const auto& [side, due] : {std::pair{40, 32}, std::pair{39, 24}, std::pair{30, 24}, std::pair{29, 16}}) {
        EXPECT_EQ(ButtonPictureSizeFor({side, 100}, 96), due) << side;
        EXPECT_EQ(ButtonPictureSizeFor({100, side}, 96), due) << side;
    }
}

// Fonts grow in steps: a button may come out higher or lower than its share.
TEST(PictureSize, AButtonThatIsALittleTooLargeOrSmallChangesNoPicture) {
    EXPECT_EQ(ButtonPictureSizeFor({64, 64}, 120), 40);
    EXPECT_EQ(ButtonPictureSizeFor({56, 60}, 120), 40);
    EXPECT_EQ(ButtonPictureSizeFor({26, 26}, 96), 16);
    EXPECT_EQ(ButtonPictureSizeFor({10, 10}, 96), 16);
}

}  // namespace
}  // namespace ui::win32
