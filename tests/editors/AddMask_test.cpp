#include "editors/AddMask.h"

#include "tests/support/Fixture.h"

namespace tests {
namespace {

using editors::AddMask;

class AddMaskTest : public WorldTest {
  protected:
    int Run(AddMask& dialog, const std::function<void()>& script) {
        user_.Expect<AddMask>([&script](AddMask&) { script(); });
        return dialog.DoModal();
    }
    void ExpectRefusal() {
        user_.ExpectBox(L"No Mask selected.", ui::box::Ok | ui::box::ExclamationIcon, ui::IdOk,
                        L"ZEMA AC QLD Service - configuration");
    }

    AddMask dialog_{world_->Screen(), nullptr, {L"*.b", L"*.a", L"*.b"}};
};

TEST_F(AddMaskTest, OffersTheSuggestionsInTheirOrderAndStartsInTheField) {
    const int result = Run(dialog_, [this] {
        EXPECT_EQ(dialog_.Caption(), L"Mask");
        EXPECT_EQ(user_.Get<ui::EditableCombo>(1095).Items(),
                  (std::vector<std::wstring>{L"*.b", L"*.a", L"*.b"}));
        EXPECT_EQ(user_.Text(1095), L"");
        EXPECT_EQ(user_.Text(ui::IdOk), L"OK");
        EXPECT_EQ(user_.Text(ui::IdCancel), L"Exit");
        EXPECT_EQ(dialog_.Focus(), &dialog_.Find(1095));
        user_.Choose(1095, 1);
        EXPECT_EQ(user_.Text(1095), L"*.a");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(dialog_.Mask(), L"*.a");
}

TEST_F(AddMaskTest, TakesNoMoreThanTheRegistryGivesBack) {
    AddMask dialog(world_->Screen(), nullptr, {std::wstring(600, L'*')});
    Run(dialog, [this] {
        user_.Paste(1095, std::wstring(600, L'x'));
        EXPECT_EQ(user_.Text(1095), std::wstring(519, L'x'));
        user_.Choose(1095, 0);
        EXPECT_EQ(user_.Text(1095), std::wstring(600, L'*'));
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(dialog.Mask().size(), 600U);
}

TEST_F(AddMaskTest, ChangesAMaskByTheKeyboardAlone) {
    AddMask dialog(world_->Screen(), nullptr, {}, L"*.old");
    EXPECT_EQ(Run(dialog,
                  [this] {
                      EXPECT_EQ(user_.Text(1095), L"*.old");
                      user_.Type(1095, L"Report ??.TXT");
                      user_.Press(Key::Enter);
                  }),
              ui::IdOk);
    EXPECT_EQ(dialog.Mask(), L"Report ??.TXT");
}

TEST_F(AddMaskTest, AnEmptyMaskIsRefusedAndTheFieldKeepsTheFocus) {
    Run(dialog_, [this] {
        ExpectRefusal();
        user_.Click(ui::IdOk);
        EXPECT_FALSE(dialog_.HasEnded());
        EXPECT_EQ(dialog_.Focus(), &dialog_.Find(1095));
        user_.Type(1095, L"x");
        user_.Type(1095, L"");
        ExpectRefusal();
        user_.Press(Key::Enter);
        user_.Press(Key::Escape);
    });
    EXPECT_EQ(dialog_.Mask(), L"");
}

TEST_F(AddMaskTest, BlanksAreAMaskLikeAnyOther) {
    Run(dialog_, [this] {
        user_.Type(1095, L" ");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(dialog_.Mask(), L" ");
}

TEST_F(AddMaskTest, LeavingGivesNoMask) {
    const std::vector<std::function<void()>> waysOut{[this] { user_.Click(ui::IdCancel); },
                                                     [this] { user_.Press(Key::Escape); },
                                                     [this] { user_.PressCloseBox(); }};
    for (const auto& leave : waysOut) {
        AddMask dialog(world_->Screen(), nullptr, {}, L"*.old");
        EXPECT_EQ(Run(dialog, leave), ui::IdCancel);
        EXPECT_EQ(dialog.Mask(), L"");
    }
}

}  // namespace
}  // namespace tests
