// The resizable box for long texts.
#include "errors/MessageBoxes.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/Ids.h"
#include "tests/support/World.h"

namespace {

using errors::WarningBox;
using tests::Key;

constexpr int continueId = ui::IdOk;
constexpr int closeId = ui::IdCancel;

class WarningBoxTest : public testing::Test {
  protected:
    // Shows the box to a user who does this with it and then closes it, if it is still open.
    int Show(
        WarningBox& box, const std::function<void()>& script = [] {}) {
        user_.Expect<WarningBox>([this, &script](WarningBox& shown) {
            script();
            if (shown.IsOpen()) user_.Click(closeId);
        });
        return box.DoModal();
    }
    // The same with a user who closes it himself.
    int Close(const std::function<void()>& script) {
        user_.Expect<WarningBox>([&script](WarningBox&) { script(); });
        return box_.DoModal();
    }
    const ui::Rect& Bounds(int id) const { return user_.Top().Find(id).Bounds(); }
    // From the right and lower edge of a control to the corner of the window's inside.
    ui::Size ToCorner(int id) const {
        const ui::Rect& bounds = Bounds(id);
        const ui::Size inside = user_.Top().ClientSize();
        return {inside.width - bounds.x - bounds.width, inside.height - bounds.y - bounds.height};
    }

    const std::unique_ptr<tests::World> world_ = tests::World::Make();
    tests::Robot& user_ = world_->User();
    WarningBox box_{world_->Screen(), nullptr, WarningBox::Kind::Warning, L"First line\r\nSecond & last line"};
};

TEST_F(WarningBoxTest, ShowsTheTextUnderItsTitle) {
    WarningBox titled(world_->Screen(), nullptr, WarningBox::Kind::Information, L"Some text", L"Rule details");
    Show(titled, [&] {
        EXPECT_EQ(titled.Caption(), L"Rule details");
        EXPECT_EQ(user_.Text(tests::boxid::WarningText), L"Some text");
    });
}

TEST_F(WarningBoxTest, AnEmptyTitleShowsAsWarning) {
    Show(box_, [this] {
        EXPECT_EQ(box_.Caption(), L"Warning:");
        EXPECT_EQ(user_.Text(tests::boxid::WarningText), L"First line\r\nSecond & last line");
    });
}

TEST_F(WarningBoxTest, TheIconTellsTheKind) {
    const std::pair<WarningBox::Kind, ui::Icon> cases[] = {
        {WarningBox::Kind::Warning, ui::Icon::Warning},
        {WarningBox::Kind::Error, ui::Icon::Error},
        {WarningBox::Kind::Information, ui::Icon::Information},
    };
    for (const auto& [kind, icon] : cases) {
        WarningBox box(world_->Screen(), nullptr, kind, L"Text");
        Show(box, [&, expected = icon] { EXPECT_EQ(box.Icon(), expected); });
    }
}

TEST_F(WarningBoxTest, ContinueCannotBeUsed) {
    Show(box_, [this] {
        EXPECT_FALSE(user_.CanUse(continueId));
        EXPECT_FALSE(box_.Find(continueId).IsEnabled());
        EXPECT_FALSE(box_.Find(continueId).IsVisible());
        EXPECT_TRUE(user_.CanUse(closeId));
    });
}

TEST_F(WarningBoxTest, TheTextIsReadOnlyAndScrollsBothWays) {
    Show(box_, [this] {
        const auto& text = user_.Get<ui::Edit>(tests::boxid::WarningText);
        EXPECT_TRUE(text.IsReadOnly());
        EXPECT_TRUE(text.Style().multiLine);
        EXPECT_TRUE(text.Style().scrollBars);
        user_.Type(tests::boxid::WarningText, L"x");
        EXPECT_EQ(text.Text(), L"First line\r\nSecond & last line");
    });
}

TEST_F(WarningBoxTest, ALongStackIsShownWhole) {
    std::wstring stack;
    for (int i = 0; i < 2'000; ++i) stack += L"KSEAL stek, error number " + std::to_wstring(i) + L"\r\nError: x\r\n";
    WarningBox box(world_->Screen(), nullptr, WarningBox::Kind::Error, stack);
    Show(box, [&] { EXPECT_EQ(user_.Text(tests::boxid::WarningText), stack); });
}

TEST_F(WarningBoxTest, EveryWayOutIsTheClosingButton) {
    EXPECT_EQ(Close([this] { user_.Click(closeId); }), ui::IdCancel);
    EXPECT_EQ(Close([this] { user_.Press(Key::Enter); }), ui::IdCancel);
    EXPECT_EQ(Close([this] { user_.Press(Key::Space); }), ui::IdCancel);
    EXPECT_EQ(Close([this] { user_.Press(Key::Escape); }), ui::IdCancel);
    EXPECT_EQ(Close([this] { user_.PressCloseBox(); }), ui::IdCancel);
}

TEST_F(WarningBoxTest, EnterInTheTextDoesNotContinue) {
    const int result = Close([this] {
        user_.Click(tests::boxid::WarningText);
        user_.Press(Key::Enter);
        ASSERT_TRUE(box_.IsOpen());
        EXPECT_EQ(user_.Text(tests::boxid::WarningText), L"First line\r\nSecond & last line");
        user_.Press(Key::Tab);
        EXPECT_TRUE(box_.Find(closeId).HasFocus()) << "there is nothing between the text and the closing button";
        user_.Press(Key::Escape);
    });
    EXPECT_EQ(result, ui::IdCancel);
}

TEST_F(WarningBoxTest, ButtonsKeepTheirDistanceToTheCornerAndTheTextGrows) {
    Show(box_, [this] {
        const ui::Size closeDistance = ToCorner(closeId);
        const ui::Size continueDistance = ToCorner(continueId);
        const ui::Rect button = Bounds(closeId);
        for (const ui::Size growth : {ui::Size{61, 0}, ui::Size{0, 43}, ui::Size{35, 27}, ui::Size{-50, -30}}) {
            const ui::Rect text = Bounds(tests::boxid::WarningText);
            const ui::Size inside = box_.ClientSize();
            user_.Resize(growth);
            EXPECT_EQ(box_.ClientSize(), (ui::Size{inside.width + growth.width, inside.height + growth.height}));
            EXPECT_EQ(ToCorner(closeId), closeDistance);
            EXPECT_EQ(ToCorner(continueId), continueDistance);
            EXPECT_EQ(Bounds(tests::boxid::WarningText),
                      (ui::Rect{text.x, text.y, text.width + growth.width, text.height + growth.height}));
        }
        EXPECT_EQ(Bounds(closeId).width, button.width);
        EXPECT_EQ(Bounds(closeId).height, button.height);
    });
}

TEST_F(WarningBoxTest, HasASmallestSize) {
    Show(box_, [this] {
        const platform::ScreenMetrics& metrics = world_->Machine().ScreenMetrics;
        const ui::Rect button = Bounds(closeId);
        const ui::Size smallest{2 * (metrics.VerticalScrollBarWidth(box_.Dpi()) + 3 * button.width),
                                2 * (metrics.VerticalScrollArrowHeight(box_.Dpi()) + 5 * button.height)};
        const ui::Size distance = ToCorner(closeId);
        const ui::Size opened = user_.OuterSize();
        EXPECT_GE(opened.width, smallest.width);
        EXPECT_GE(opened.height, smallest.height);
        user_.Resize({-5000, -5000});
        EXPECT_EQ(user_.OuterSize(), smallest);
        EXPECT_EQ(ToCorner(closeId), distance);
        user_.Resize({opened.width - smallest.width, opened.height - smallest.height});
        EXPECT_EQ(user_.OuterSize(), opened);
        EXPECT_EQ(Bounds(closeId), button);
    });
}

TEST_F(WarningBoxTest, OpensAtItsOwnSizeEachTime) {
    ui::Size opened;
    Show(box_, [&] {
        opened = user_.OuterSize();
        user_.Resize({100, 100});
    });
    Show(box_, [&] { EXPECT_EQ(user_.OuterSize(), opened); });
}

}  // namespace
