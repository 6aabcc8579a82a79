// The commands that copy, move and delete rules, as the user gives them in the main window.
#include "tests/app/MainWindowRules.h"

#include "tests/config/ExchangeText.h"

namespace tests {
namespace {

TEST_F(MainWindowRulesTest, CopyPutsTheCopyBehindItsRule) {
    for (const bool byMenu : {false, true}) {
        Run([&] {
            Select({1, 3});
            Give(byMenu, command::CopyRule, id::CopyRule);
            EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"b", L"c", L"d", L"e"}));
            ExpectShown(2);
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowRulesTest, ACopyIsTheSameInEveryField) {
    rules_[1] = tests::FullRule();
    rules_[3].IsOn = 0;
    Run([&] {
        Select({3});
        user_.Click(id::CopyRule);
        EXPECT_FALSE(List().IsChecked(4));
        Select({1});
        user_.Click(id::CopyRule);
        SaveChanged();
    });
    EXPECT_EQ(StoredRules(),
              (std::vector{rules_[0], rules_[1], rules_[1], rules_[2], rules_[3], rules_[3], rules_[4]}));
}

TEST_F(MainWindowRulesTest, DeleteAsksAndRemovesTheSelectedRules) {
    Run([&] {
        Select({0, 2, 3});
        ExpectQuestion(L"Delete 3 rule(s)?", ui::IdNo);
        user_.Click(id::DeleteRule);
        EXPECT_EQ(Descriptions().size(), 5U);
        ExpectQuestion(L"Delete 3 rule(s)?", ui::IdYes);
        user_.ChooseMenu(command::DeleteRule);
        EXPECT_EQ(Descriptions(), (Texts{L"b", L"e"}));
        ExpectNoneSelected();
        Select({1});
        ExpectQuestion(L"Delete 1 rule(s)?", ui::IdYes);
        user_.Press(Key::Delete);
        EXPECT_EQ(Descriptions(), Texts{L"b"});
        LeaveChanged();
    });
}

TEST_F(MainWindowRulesTest, AfterDeletingTheKeyboardGoesOnWhereTheRulesWere) {
    Run([&] {
        Select({1, 2});
        ExpectQuestion(L"Delete 2 rule(s)?", ui::IdYes);
        user_.Press(Key::Delete);
        EXPECT_EQ(List().FocusedRow(), 1U);
        ExpectNoneSelected();
        Select({2});
        ExpectQuestion(L"Delete 1 rule(s)?", ui::IdYes);
        user_.Press(Key::Delete);
        EXPECT_EQ(List().FocusedRow(), 1U);
        ExpectNoneSelected();
        LeaveChanged();
    });
}

TEST_F(MainWindowRulesTest, MovesCarryTheFirstSelectedRule) {
    struct Case {
        int button;
        int command;
        size_t row;
        Texts order;
        size_t selected;
        size_t inView;
    };
    const Case cases[] = {{id::MakeFirst, command::MakeFirst, 2, {L"c", L"a", L"b", L"d", L"e"}, 0, 0},
                          {id::MakeFirst, command::MakeFirst, 0, {L"a", L"b", L"c", L"d", L"e"}, 0, 0},
                          {id::MoveUp, command::MoveUp, 3, {L"a", L"b", L"d", L"c", L"e"}, 2, 2},
                          {id::MoveDown, command::MoveDown, 1, {L"a", L"c", L"b", L"d", L"e"}, 2, 3},
                          {id::MoveDown, command::MoveDown, 2, {L"a", L"b", L"d", L"c", L"e"}, 3, 4},
                          {id::MoveDown, command::MoveDown, 3, {L"a", L"b", L"c", L"e", L"d"}, 4, 4},
                          {id::MakeLast, command::MakeLast, 1, {L"a", L"c", L"d", L"e", L"b"}, 4, 4},
                          {id::MakeLast, command::MakeLast, 4, {L"a", L"b", L"c", L"d", L"e"}, 4, 4}};
    for (const Case& c : cases) {
        for (const bool byMenu : {false, true}) {
            Run([&] {
                Select({c.row});
                Give(byMenu, c.command, c.button);
                EXPECT_EQ(Descriptions(), c.order) << c.button << " on " << c.row;
                ExpectShown(c.selected, c.inView);
                LeaveChanged();
            });
        }
    }
}

TEST_F(MainWindowRulesTest, MovesIgnoreTheOtherSelectedRows) {
    struct Case {
        int button;
        Texts order;
        size_t selected;
        size_t inView;
    };
    const Case cases[] = {{id::MakeFirst, {L"b", L"a", L"c", L"d", L"e"}, 0, 0},
                          {id::MoveUp, {L"b", L"a", L"c", L"d", L"e"}, 0, 0},
                          {id::MoveDown, {L"a", L"c", L"b", L"d", L"e"}, 2, 3},
                          {id::MakeLast, {L"a", L"c", L"d", L"e", L"b"}, 4, 4}};
    for (const Case& c : cases) {
        Run([&] {
            Select({3, 1});
            user_.Click(c.button);
            EXPECT_EQ(Descriptions(), c.order) << c.button;
            ExpectShown(c.selected, c.inView);
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowRulesTest, AtTheEdgeAndWithoutASelectionNothingHappens) {
    Run([&] {
        for (const int button :
             {id::CopyRule, id::EditRule, id::DeleteRule, id::MakeFirst, id::MoveUp, id::MoveDown, id::MakeLast})
            user_.Click(button);
        Select({0});
        user_.Click(id::MoveUp);
        Select({4});
        user_.Click(id::MoveDown);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"d", L"e"}));
        LeaveUnchanged();
    });
}

}  // namespace
}  // namespace tests
