// Plain message boxes as the user meets them.
#include "errors/MessageBoxes.h"

#include <gtest/gtest.h>

#include "platform/memory/MemoryParts.h"
#include "tests/support/ScriptedUser.h"
#include "tests/support/World.h"
#include "ui/Dialog.h"

namespace {

constexpr wchar_t caption[] = L"ZEMA AC QLD Service - configuration";

class MessageBoxes : public testing::Test {
  protected:
    const std::unique_ptr<tests::World> world_ = tests::World::Make();
    tests::Robot& user_ = world_->User();
};

TEST_F(MessageBoxes, ReturnTheButtonPressed) {
    struct Case {
        uint32_t flags;
        int button;
    };
    using namespace ui::box;
    const Case cases[] = {{Ok | InformationIcon, ui::IdOk},
                          {OkCancel | ExclamationIcon, ui::IdOk},
                          {OkCancel | ExclamationIcon, ui::IdCancel},
                          {YesNo | QuestionIcon, ui::IdYes},
                          {YesNo | QuestionIcon | SecondIsDefault, ui::IdNo}};
    for (const Case& c : cases) {
        user_.ExpectBox(L"First line\r\nand 100% & more", c.flags, c.button, caption);
        EXPECT_EQ(errors::PlainMessageBox(world_->Screen(), nullptr, L"First line\r\nand 100% & more", c.flags),
                  c.button);
    }
}

TEST_F(MessageBoxes, ConfirmAsksYesOrNoWithNoAsTheDefault) {
    constexpr uint32_t flags = ui::box::YesNo | ui::box::QuestionIcon | ui::box::SecondIsDefault;
    user_.ExpectBox(L"Delete it?", flags, ui::IdYes, caption);
    EXPECT_TRUE(errors::Confirm(world_->Screen(), nullptr, L"Delete it?"));
    user_.ExpectBox(L"Delete it?", flags, ui::IdNo, caption);
    EXPECT_FALSE(errors::Confirm(world_->Screen(), nullptr, L"Delete it?"));
}

TEST_F(MessageBoxes, ConfirmRiskAsksThatWithAnExclamation) {
    constexpr uint32_t flags = ui::box::YesNo | ui::box::ExclamationIcon | ui::box::SecondIsDefault;
    user_.ExpectBox(L"Lose it?", flags, ui::IdYes, caption);
    EXPECT_TRUE(errors::ConfirmRisk(world_->Screen(), nullptr, L"Lose it?"));
    user_.ExpectBox(L"Lose it?", flags, ui::IdNo, caption);
    EXPECT_FALSE(errors::ConfirmRisk(world_->Screen(), nullptr, L"Lose it?"));
}

TEST_F(MessageBoxes, WarnShowsAnExclamation) {
    user_.ExpectBox(L"No CS profiles found.", ui::box::Ok | ui::box::ExclamationIcon, ui::IdOk, caption);
    errors::Warn(world_->Screen(), nullptr, L"No CS profiles found.");
}

TEST(MessageBoxOwner, IsTheDialogOnlyWhileItIsOpen) {
    const platform::memory::MemoryScreenMetrics metrics;
    tests::ScriptedUser user;
    ui::memory::MemoryScreen screen(metrics, user);
    ui::Dialog dialog(screen, nullptr, {.size = {100, 50}});
    errors::Warn(screen, &dialog, L"a");
    EXPECT_EQ(screen.LastOwner(), nullptr);
    dialog.OpenModeless();
    errors::Warn(screen, &dialog, L"b");
    EXPECT_EQ(screen.LastOwner(), &dialog);
    errors::Confirm(screen, &dialog, L"c");
    EXPECT_EQ(screen.LastOwner(), &dialog);
}

}  // namespace
