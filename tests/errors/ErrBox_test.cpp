// The small error box.
#include "errors/MessageBoxes.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/Ids.h"
#include "tests/support/World.h"

namespace {

using errors::ErrBox;

class ErrBoxTest : public testing::Test {
  protected:
    // Shows the box to a user who does this with it.
    int Show(ErrBox& box, const std::function<void()>& script) {
        user_.Expect<ErrBox>([&script](ErrBox&) { script(); });
        return box.DoModal();
    }

    const std::unique_ptr<tests::World> world_ = tests::World::Make();
    tests::Robot& user_ = world_->User();
    ErrBox box_{world_->Screen(), nullptr, L"Wrong mask: 100% & more", ui::Icon::Error};
};

TEST_F(ErrBoxTest, ShowsIconAndText) {
    Show(box_, [this] {
        EXPECT_EQ(user_.Get<ui::Picture>(tests::boxid::ErrorPicture).Icon(), ui::Icon::Error);
        EXPECT_EQ(user_.Text(tests::boxid::ErrorText), L"Wrong mask: 100% & more");
        user_.Click(ui::IdOk);
    });
}

TEST_F(ErrBoxTest, TheCallerChoosesTheIcon) {
    ErrBox box(world_->Screen(), nullptr, L"Careful", ui::Icon::Warning);
    Show(box, [this] {
        EXPECT_EQ(user_.Get<ui::Picture>(tests::boxid::ErrorPicture).Icon(), ui::Icon::Warning);
        user_.Click(ui::IdOk);
    });
}

TEST_F(ErrBoxTest, EveryWayOutEndsIt) {
    EXPECT_EQ(Show(box_, [this] { user_.Click(ui::IdOk); }), ui::IdOk);
    EXPECT_EQ(Show(box_, [this] { user_.Press(tests::Key::Enter); }), ui::IdOk);
    EXPECT_EQ(Show(box_, [this] { user_.Press(tests::Key::Space); }), ui::IdOk);
    EXPECT_EQ(Show(box_, [this] { user_.Press(tests::Key::Escape); }), ui::IdCancel);
    EXPECT_EQ(Show(box_, [this] { user_.PressCloseBox(); }), ui::IdCancel);
}

}  // namespace
