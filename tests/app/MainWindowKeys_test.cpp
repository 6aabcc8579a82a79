// The keys of the main window that do what its buttons do.
#include <gtest/gtest.h>

#include "editors/AddProfile.h"
#include "errors/MessageBoxes.h"
#include "tests/app/MainWindowProfiles.h"
#include "tests/app/MainWindowRules.h"

namespace tests {
namespace {

class MainWindowKeys : public MainWindowRulesTest {
  protected:
    // In a main window of its own, on the list of rules.
    void WithRule(size_t row, const std::function<void()>& script) {
        Run([&] {
            user_.ClickRow(id::Rules, row);
            script();
        });
    }
};

TEST_F(MainWindowKeys, MoveTheSelectedRule) {
    const struct {
        Key key;
        Texts order;
        size_t row;
    } moves[] = {{Key::Up, {L"a", L"c", L"b", L"d", L"e"}, 1},
                 {Key::Down, {L"a", L"b", L"d", L"c", L"e"}, 3},
                 {Key::Home, {L"c", L"a", L"b", L"d", L"e"}, 0},
                 {Key::End, {L"a", L"b", L"d", L"e", L"c"}, 4}};
    for (const auto& move : moves) {
        WithRule(2, [&] {
            user_.Press(move.key, Held::Alt);
            EXPECT_EQ(Descriptions(), move.order);
            EXPECT_EQ(List().SelectedRows(), Rows{move.row});
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowKeys, AddEditCopyAndDeleteRules) {
    WithRule(1, [&] {
        user_.Press(Key::D, Held::Control);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"b", L"c", L"d", L"e"}));
        ExpectQuestion(L"Delete 1 rule(s)?", ui::IdYes);
        user_.Press(Key::Delete);
        ExpectRenaming(L"c", L"edited");
        user_.ClickRow(id::Rules, 2);
        user_.Press(Key::F2);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"edited", L"d", L"e"}));
        ExpectNewRule(L"new");
        user_.Press(Key::Insert);
        EXPECT_EQ(Descriptions().back(), L"new");
        LeaveChanged();
    });
}

TEST_F(MainWindowKeys, ACommandTakesTheBoxThatWasJustTurnedOver) {
    WithRule(2, [&] {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Press(Key::D, Held::Control);
        EXPECT_FALSE(List().IsChecked(0));
        LeaveChanged();
    });
}

TEST_F(MainWindowKeys, CtrlSSavesFromEverywhere) {
    WithRule(2, [&] {
        user_.ClickCheckBox(id::Rules, 0);
        user_.Press(Key::S, Held::Control);
        LeaveUnchanged();
    });
    EXPECT_EQ(StoredRules().at(0).IsOn, 0);
    WithRule(2, [&] {
        user_.ClickCheckBox(id::Rules, 1);
        user_.Click(id::Search);
        user_.Press(Key::S, Held::Control);
        LeaveUnchanged();
    });
    EXPECT_EQ(StoredRules().at(1).IsOn, 0);
}

TEST_F(MainWindowKeys, CtrlFGoesToTheSearch) {
    for (const int from : {id::Rules, id::Profiles, id::Save}) {
        WithRule(2, [&] {
            user_.Top().Find(from).SetFocus();
            user_.Press(Key::F, Held::Control);
            EXPECT_TRUE(user_.Top().Find(id::Search).HasFocus());
            LeaveUnchanged();
        });
    }
}

TEST_F(MainWindowKeys, CtrlASelectsAllRulesAndSpaceGivesThemOneMark) {
    WithRule(1, [&] {
        user_.ClickCheckBox(id::Rules, 1);
        user_.ClickRow(id::Rules, 3);
        user_.Press(Key::A, Held::Control);
        EXPECT_EQ(List().SelectedRows(), (Rows{0, 1, 2, 3, 4}));
        user_.Press(Key::Space);  // the row with the focus is on: all go off
        EXPECT_EQ(List().Checks(), std::vector<bool>(5, false));
        user_.Press(Key::Space);
        EXPECT_EQ(List().Checks(), std::vector<bool>(5, true));
        LeaveUnchanged();
    });
}

TEST_F(MainWindowKeys, TheMenuKeyShowsTheDetailsOfExtra) {
    for (const auto& [key, held] : {std::pair{Key::Menu, Held::Nothing}, std::pair{Key::F10, Held::Shift}}) {
        WithRule(2, [&, key = key, held = held] {
            std::wstring byMouse;
            std::wstring byKey;
            const auto look = [this](std::wstring& text) {
                user_.Expect<errors::WarningBox>([this, &text](errors::WarningBox& box) {
                    text = box.Caption() + L": " + user_.Text(boxid::WarningText);
                    user_.Press(Key::Escape);
                });
            };
            look(byMouse);
            user_.RightClickCell(id::Rules, 2, 8);
            look(byKey);
            user_.Press(key, held);
            EXPECT_EQ(byKey, byMouse);
            EXPECT_NE(byKey, L"");
            LeaveUnchanged();
        });
    }
}

TEST_F(MainWindowKeys, MeanNothingOutsideTheListOrWithAnotherKeyHeld) {
    WithRule(2, [&] {
        user_.Click(id::Search);
        for (const Key key : {Key::Insert, Key::F2, Key::Delete}) user_.Press(key);
        for (const Key key : {Key::D, Key::A}) user_.Press(key, Held::Control);
        user_.Press(Key::Down, Held::Alt);
        user_.ClickRow(id::Rules, 2);
        for (const Key key : {Key::S, Key::F, Key::D, Key::A}) user_.Press(key, Held::AltGr);
        user_.Press(Key::Insert, Held::Shift);
        user_.Press(Key::F2, Held::Control);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"d", L"e"}));
        EXPECT_EQ(List().SelectedRows(), Rows{2});
        EXPECT_TRUE(List().HasFocus());
        LeaveUnchanged();
    });
}

TEST_F(MainWindowKeys, AddEditAndDeleteProfiles) {
    Run([&] {
        user_.Click(id::Profiles);
        user_.Expect<editors::CAddProfile>([this](editors::CAddProfile& editor) {
            EXPECT_EQ(editor.Caption(), L"Add profile");
            user_.Press(Key::Escape);
        });
        user_.Press(Key::Insert);
        user_.ClickRow(id::Profiles, 0);
        user_.Expect<editors::CAddProfile>([this](editors::CAddProfile& editor) {
            EXPECT_EQ(editor.Caption(), L"Edit profile");
            user_.Press(Key::Escape);
        });
        user_.Press(Key::F2);
        user_.ExpectBoxBeginning(L"Delete", boxes::Question, ui::IdNo);
        user_.Press(Key::Delete);
        LeaveUnchanged();
    });
}

}  // namespace
}  // namespace tests
