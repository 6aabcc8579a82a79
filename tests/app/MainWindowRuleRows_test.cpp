// A rule is found by the position of its row, and rows that a search or a missing operation hides are not
// counted. All rules are switched on here, so that leaving the list changes nothing.
#include "tests/app/MainWindowRules.h"

namespace tests {
namespace {

class MainWindowRuleRows : public MainWindowRulesTest {
  protected:
    Texts AllDescriptions() {
        user_.Type(id::Search, L"");
        return Descriptions();
    }
};

TEST_F(MainWindowRuleRows, DeleteTakesTheRulesAtTheRowsPositions) {
    Run([&] {
        user_.Type(id::Search, L"d");
        user_.ClickRow(id::Rules, 0);
        ExpectQuestion(L"Delete 1 rule(s)?", ui::IdYes);
        user_.Press(Key::Delete);
        EXPECT_EQ(Descriptions(), Texts{L"d"});
        EXPECT_EQ(AllDescriptions(), (Texts{L"b", L"c", L"d", L"e"}));
        LeaveChanged();
    });
}

TEST_F(MainWindowRuleRows, EditOpensTheRuleAtTheRowsPosition) {
    Run([&] {
        user_.Type(id::Search, L"d");
        Select({0});
        ExpectRenaming(L"a", L"ad");
        user_.Click(id::EditRule);
        EXPECT_EQ(Descriptions(), (Texts{L"ad", L"d"}));
        ExpectShown(0);
        EXPECT_EQ(AllDescriptions(), (Texts{L"ad", L"b", L"c", L"d", L"e"}));
        LeaveChanged();
    });
}

TEST_F(MainWindowRuleRows, AnEditedRuleThatLosesItsRowLeavesNoneSelected) {
    rules_[1].Descryption = L"x one";
    rules_[2].Descryption = L"x two";
    Run([&] {
        user_.Type(id::Search, L"x");
        Select({1});
        ExpectRenaming(L"x one", L"renamed");
        user_.Click(id::EditRule);
        EXPECT_EQ(Descriptions(), Texts{L"x two"});
        ExpectNoneSelected();
        LeaveChanged();
    });
}

TEST_F(MainWindowRuleRows, ANewRuleIsSelectedOnlyWhereEveryRuleIsShown) {
    Run([&] {
        user_.Type(id::Search, L"d");
        for (const wchar_t* description : {L"hidden", L"also hi"}) {
            ExpectNewRule(description);
            user_.Click(id::AddRule);
            ExpectNoneSelected();
        }
        EXPECT_EQ(Descriptions(), (Texts{L"d", L"hidden"}));
        EXPECT_EQ(AllDescriptions(), (Texts{L"a", L"b", L"c", L"d", L"e", L"hidden", L"also hi"}));
        LeaveChanged();
    });
}

TEST_F(MainWindowRuleRows, CopyCopiesTheRuleAtTheRowsPosition) {
    rules_[1].Descryption = L"x one";
    rules_[2].Descryption = L"x two";
    Run([&] {
        user_.Type(id::Search, L"x");
        Select({1});
        user_.Click(id::CopyRule);
        EXPECT_EQ(Descriptions(), (Texts{L"x one", L"x one", L"x two"}));
        ExpectShown(2);
        EXPECT_EQ(AllDescriptions(), (Texts{L"a", L"x one", L"x one", L"x two", L"d", L"e"}));
        LeaveChanged();
    });
}

TEST_F(MainWindowRuleRows, ACopyWithoutARowLeavesNoneSelected) {
    Run([&] {
        user_.Type(id::Search, L"d");
        Select({0});
        user_.Click(id::CopyRule);
        EXPECT_EQ(Descriptions(), Texts{L"d"});
        ExpectNoneSelected();
        EXPECT_EQ(AllDescriptions(), (Texts{L"a", L"a", L"b", L"c", L"d", L"e"}));
        LeaveChanged();
    });
}

TEST_F(MainWindowRuleRows, MovesCarryTheRuleAtTheRowsPosition) {
    rules_[3].Descryption = L"x one";
    rules_[4].Descryption = L"x two";
    struct Case {
        int button;
        size_t row;
        Texts order;
        size_t selected;
        size_t inView;
    };
    const Case cases[] = {{id::MakeFirst, 1, {L"b", L"a", L"c", L"x one", L"x two"}, 0, 0},
                          {id::MoveUp, 1, {L"b", L"a", L"c", L"x one", L"x two"}, 0, 0},
                          {id::MoveDown, 0, {L"b", L"a", L"c", L"x one", L"x two"}, 1, 1},
                          {id::MakeLast, 0, {L"b", L"c", L"x one", L"x two", L"a"}, 1, 1}};
    for (const Case& c : cases) {
        Run([&] {
            user_.Type(id::Search, L"x");
            Select({c.row});
            user_.Click(c.button);
            EXPECT_EQ(Descriptions(), (Texts{L"x one", L"x two"})) << c.button;
            ExpectShown(c.selected, c.inView);
            EXPECT_EQ(AllDescriptions(), c.order) << c.button;
            LeaveChanged();
        });
    }
}

TEST_F(MainWindowRuleRows, TheLastRowDoesNotMoveDownThoughRulesFollow) {
    Run([&] {
        user_.Type(id::Search, L"b");
        Select({0});
        user_.Click(id::MoveDown);
        EXPECT_EQ(AllDescriptions(), (Texts{L"a", L"b", L"c", L"d", L"e"}));
        LeaveUnchanged();
    });
}

TEST_F(MainWindowRuleRows, ARuleWithoutAnOperationShiftsTheRows) {
    rules_[1].Operation = L"";
    Run([&] {
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"c", L"d", L"e"}));
        Select({2});
        user_.Click(id::CopyRule);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"c", L"c", L"d", L"e"}));
        ExpectShown(3);
        ExpectEditor([&](editors::CAddRule& editor) {
            EXPECT_EQ(editor.Caption(), L"Add rule");  // of row 1: the rule that is not shown
            user_.Press(Key::Escape);
        });
        user_.DoubleClickRow(id::Rules, 1);
        Select({4});
        user_.Click(id::MakeFirst);
        EXPECT_EQ(Descriptions(), (Texts{L"d", L"a", L"c", L"c", L"e"}));
        ExpectNewRule(L"new");
        user_.Click(id::AddRule);
        EXPECT_EQ(Descriptions().back(), L"new");
        ExpectNoneSelected();
        LeaveChanged();
    });
}

}  // namespace
}  // namespace tests
