#include "editors/MaskList.h"

#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"

namespace tests {
namespace {

using editors::AddMask;

class AddMaskTest : public WorldTest {
  protected:
    void ExpectRefusal() { ExpectHint(L"No Mask selected."); }

    AddMask dialog_{world_->Screen(), nullptr, {L"*.b", L"*.a", L"*.b"}};
};

TEST_F(AddMaskTest, OffersTheSuggestionsInTheirOrderAndStartsInTheField) {
    const int result = Show(dialog_, [this] {
        EXPECT_EQ(user_.Get<ui::EditableCombo>(ruleid::MaskCombo).Items(),
                  (std::vector<std::wstring>{L"*.b", L"*.a", L"*.b"}));
        EXPECT_EQ(user_.Text(ruleid::MaskCombo), L"");
        EXPECT_EQ(dialog_.Focus(), &dialog_.Find(ruleid::MaskCombo));
        user_.Choose(ruleid::MaskCombo, 1);
        EXPECT_EQ(user_.Text(ruleid::MaskCombo), L"*.a");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(dialog_.Mask(), L"*.a");
}

TEST_F(AddMaskTest, TakesNoMoreThanTheRegistryGivesBack) {
    AddMask dialog(world_->Screen(), nullptr, {std::wstring(600, L'*')});
    Show(dialog, [this] {
        user_.Paste(ruleid::MaskCombo, std::wstring(600, L'x'));
        EXPECT_EQ(user_.Text(ruleid::MaskCombo), std::wstring(519, L'x'));
        user_.Choose(ruleid::MaskCombo, 0);
        EXPECT_EQ(user_.Text(ruleid::MaskCombo), std::wstring(600, L'*'));
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(dialog.Mask().size(), 600U);
}

TEST_F(AddMaskTest, ChangesAMaskByTheKeyboardAlone) {
    AddMask dialog(world_->Screen(), nullptr, {}, L"*.old");
    EXPECT_EQ(Show(dialog,
                   [this] {
                       EXPECT_EQ(user_.Text(ruleid::MaskCombo), L"*.old");
                       user_.Type(ruleid::MaskCombo, L"Report ??.TXT");
                       user_.Press(Key::Enter);
                   }),
              ui::IdOk);
    EXPECT_EQ(dialog.Mask(), L"Report ??.TXT");
}

TEST_F(AddMaskTest, AnEmptyMaskIsRefusedAndTheFieldKeepsTheFocus) {
    Show(dialog_, [this] {
        ExpectRefusal();
        user_.Click(ui::IdOk);
        EXPECT_FALSE(dialog_.HasEnded());
        EXPECT_EQ(dialog_.Focus(), &dialog_.Find(ruleid::MaskCombo));
        user_.Type(ruleid::MaskCombo, L"x");
        user_.Type(ruleid::MaskCombo, L"");
        ExpectRefusal();
        user_.Press(Key::Enter);
        user_.Press(Key::Escape);
    });
    EXPECT_EQ(dialog_.Mask(), L"");
}

TEST_F(AddMaskTest, BlanksAreAMaskLikeAnyOther) {
    Show(dialog_, [this] {
        user_.Type(ruleid::MaskCombo, L" ");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(dialog_.Mask(), L" ");
}

TEST_F(AddMaskTest, LeavingGivesNoMask) {
    const std::vector<std::function<void()>> waysOut{
        [this] { user_.Click(ui::IdCancel); }, [this] { user_.Press(Key::Escape); }, [this] { user_.PressCloseBox(); }};
    for (const auto& leave : waysOut) {
        AddMask dialog(world_->Screen(), nullptr, {}, L"*.old");
        EXPECT_EQ(Show(dialog, leave), ui::IdCancel);
        EXPECT_EQ(dialog.Mask(), L"");
    }
}

}  // namespace
}  // namespace tests
