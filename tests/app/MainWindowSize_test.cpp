#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <utility>

#include "tests/app/MainWindow.h"
#include "tests/support/Overlap.h"

namespace tests {
namespace {

using app::CBrisgateDlg;

class MainWindowSizeTest : public MainWindowTest {
  protected:
    int ScrollBar() { return world_->Machine().ScreenMetrics.VerticalScrollBarWidth(user_.Top().Dpi()); }
    ui::Rect Bounds(int control) { return user_.Top().Find(control).Bounds(); }
};

ui::Rect Moved(ui::Rect rect, int x, int y, int width, int height) {
    return {rect.x + x, rect.y + y, rect.width + width, rect.height + height};
}

TEST_F(MainWindowSizeTest, ResizingGrowsTheListsAndKeepsTheButtonsInTheCorner) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg& dialog) {
        std::map<int, ui::Rect> before;
        for (ui::Control* control : dialog.Controls()) before[control->Id()] = control->Bounds();
        for (const ui::Size grown : {ui::Size{40, 30}, ui::Size{-10, 55}}) {
            user_.Resize(grown);
            const int dx = grown.width;
            const int dy = grown.height;
            before[id::Rules] = Moved(before[id::Rules], 0, 0, dx, dy);
            before[id::CsProfileLabel] = Moved(before[id::CsProfileLabel], 0, 0, dx, 0);
            before[id::SearchCaption] = Moved(before[id::SearchCaption], 0, 0, dx, 0);
            before[id::Search] = Moved(before[id::Search], 0, 0, dx, 0);
            before[id::Profiles] = Moved(before[id::Profiles], 0, 0, 0, dy);
            for (const int button : {id::Save, ui::IdOk, ui::IdCancel})
                before[button] = Moved(before[button], dx, dy, 0, 0);
            for (const auto& [control, bounds] : before) EXPECT_EQ(Bounds(control), bounds) << control;
        }
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowSizeTest, ColumnsShareTheWidthOfTheirList) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        for (int round = 0; round < 2; ++round) {
            const auto& rules = user_.Get<ui::ListView>(id::Rules);
            ASSERT_EQ(rules.Columns().size(), 9U);
            EXPECT_EQ(rules.Columns()[0].width, 3 * ScrollBar());
            for (size_t column = 1; column < 9; ++column)
                EXPECT_EQ(rules.Columns()[column].width, (rules.ClientWidth() - 3 * ScrollBar()) / 8);
            const auto& profiles = user_.Get<ui::ListView>(id::Profiles);
            ASSERT_EQ(profiles.Columns().size(), 1U);
            EXPECT_EQ(profiles.Columns()[0].header, L"Profiles");
            EXPECT_EQ(profiles.Columns()[0].width, profiles.ClientWidth());
            user_.Resize({83, 20});
        }
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowSizeTest, FillingTheRuleListSpreadsTheColumnsOfBothLists) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        auto& rules = user_.Get<ui::ListView>(id::Rules);
        auto& profiles = user_.Get<ui::ListView>(id::Profiles);
        rules.SetColumnWidths(std::vector<int>(9, 10));
        profiles.SetColumnWidths({10});
        user_.Type(id::Search, L"a");
        EXPECT_EQ(rules.Columns()[0].width, 3 * ScrollBar());
        EXPECT_EQ(rules.Columns()[8].width, (rules.ClientWidth() - 3 * ScrollBar()) / 8);
        EXPECT_EQ(profiles.Columns()[0].width, profiles.ClientWidth());
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowSizeTest, MinimisingChangesNothing) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg& dialog) {
        const ui::Size size = dialog.ClientSize();
        const ui::Rect rules = Bounds(id::Rules);
        user_.Minimize();
        EXPECT_EQ(dialog.ClientSize(), size);
        EXPECT_EQ(Bounds(id::Rules), rules);
        user_.Restore();
        EXPECT_EQ(dialog.ClientSize(), size);
        EXPECT_EQ(Bounds(id::Rules), rules);
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowSizeTest, AMaximisedSizeIsNotEvenRemembered) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg& dialog) {
        const ui::Size size = dialog.ClientSize();
        const ui::Rect rules = Bounds(id::Rules);
        const ui::Rect ok = Bounds(ui::IdOk);
        const int column = user_.Get<ui::ListView>(id::Rules).Columns()[1].width;
        dialog.UserResized(ui::SizeKind::Maximized, {size.width + 400, size.height + 300});
        EXPECT_EQ(dialog.ClientSize(), size);
        EXPECT_EQ(Bounds(id::Rules), rules);
        EXPECT_EQ(Bounds(ui::IdOk), ok);
        EXPECT_EQ(user_.Get<ui::ListView>(id::Rules).Columns()[1].width, column);
        user_.Resize({40, 30});
        EXPECT_EQ(Bounds(id::Rules), Moved(rules, 0, 0, 40, 30));
        EXPECT_EQ(Bounds(ui::IdOk), Moved(ok, 40, 30, 0, 0));
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowSizeTest, CannotBeMadeSmallerThanItsButtons) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        const ui::Rect ok = Bounds(ui::IdOk);
        const int arrow = world_->Machine().ScreenMetrics.VerticalScrollArrowHeight(user_.Top().Dpi());
        user_.Resize({-5000, -5000});
        EXPECT_EQ(user_.OuterSize(), (ui::Size{11 * ok.width + 2 * ScrollBar(), 2 * (5 * ok.height + arrow)}));
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowSizeTest, NothingOverlapsNorLeavesTheWindowAtItsSmallest) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg& dialog) {
        user_.Resize({-5000, -5000});
        const ui::Size inside = dialog.ClientSize();
        for (const ui::Control* control : dialog.Controls()) {
            if (!control->IsVisible()) continue;
            const ui::Rect& bounds = control->Bounds();
            EXPECT_LE(bounds.x + bounds.width, inside.width) << control->Id();
            EXPECT_LE(bounds.y + bounds.height, inside.height) << control->Id();
            for (const ui::Control* other : dialog.Controls())
                EXPECT_FALSE(control != other && other->IsVisible() && Overlap(bounds, other->Bounds()))
                    << control->Id() << " and " << other->Id();
        }
        user_.PressCloseBox();
    });
}

TEST_F(MainWindowSizeTest, TheWindowOpensWhereItWasSaved) {
    SeedSmallConfiguration();
    Run([&](CBrisgateDlg&) {
        user_.Resize({60, 40});
        user_.Click(id::Save);
        user_.PressCloseBox();
    });
    const int32_t top = StoredInteger(ServiceRoot, L"Window_top");
    const int32_t left = StoredInteger(ServiceRoot, L"Window_left");
    ui::Size saved{StoredInteger(ServiceRoot, L"Window_right") - left,
                   StoredInteger(ServiceRoot, L"Window_bottom") - top};
    EXPECT_EQ(store_.WriteInteger(L"Window_top", 33, {}), true);
    EXPECT_EQ(store_.WriteInteger(L"Window_left", 44, {}), true);
    EXPECT_EQ(store_.WriteInteger(L"Window_bottom", 33 + saved.height, {}), true);
    EXPECT_EQ(store_.WriteInteger(L"Window_right", 44 + saved.width, {}), true);
    Run([&](CBrisgateDlg&) {
        EXPECT_EQ(user_.OuterSize(), saved);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(StoredInteger(ServiceRoot, L"Window_top"), 33);
    EXPECT_EQ(StoredInteger(ServiceRoot, L"Window_left"), 44);
    EXPECT_EQ(StoredInteger(ServiceRoot, L"Window_bottom"), 33 + saved.height);
    EXPECT_EQ(StoredInteger(ServiceRoot, L"Window_right"), 44 + saved.width);
}

TEST_F(MainWindowSizeTest, PlacesThatNoWindowCanHaveDoNoHarm) {
    SeedSmallConfiguration();
    constexpr int32_t smallest = std::numeric_limits<int32_t>::min();
    constexpr int32_t largest = std::numeric_limits<int32_t>::max();
    for (const auto& [low, high] :
         {std::pair{smallest, largest}, std::pair{largest, smallest}, std::pair{largest, largest},
          std::pair{smallest, smallest}, std::pair{-2, largest}, std::pair{100, smallest}}) {
        SCOPED_TRACE(testing::PrintToString(low) + " to " + testing::PrintToString(high));
        const std::string from = " = " + std::to_string(low) + "\n";
        const std::string to = " = " + std::to_string(high) + "\n";
        Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nWindow_top" + from + "Window_left" + from +
             "Window_bottom" + to + "Window_right" + to);
        const int result = Run([&](CBrisgateDlg&) { user_.Click(ui::IdOk); });
        EXPECT_EQ(result, ui::IdOk);
        // Some place that a window can have, the size at least what the buttons need.
        for (const auto& [begin, end] :
             {std::pair{L"Window_top", L"Window_bottom"}, std::pair{L"Window_left", L"Window_right"}}) {
            const int64_t size = int64_t{StoredInteger(ServiceRoot, end)} - StoredInteger(ServiceRoot, begin);
            EXPECT_GT(size, 100);
            EXPECT_LE(size, 0x10000);
        }
    }
}

TEST_F(MainWindowSizeTest, AWindowSavedAtTheTopOrLeftEdgeOpensAtItsDefaultPlace) {
    SeedSmallConfiguration();
    ui::Size usual;
    Run([&](CBrisgateDlg&) {
        usual = user_.OuterSize();
        user_.PressCloseBox();
    });
    for (const auto& [top, left] : {std::pair{0, 50}, std::pair{50, 0}}) {
        Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nWindow_top = " + std::to_string(top) +
             "\nWindow_left = " + std::to_string(left) + "\nWindow_bottom = 700\nWindow_right = 1200\n");
        Run([&](CBrisgateDlg&) {
            EXPECT_EQ(user_.OuterSize(), usual);
            user_.PressCloseBox();
        });
    }
}

}  // namespace
}  // namespace tests
