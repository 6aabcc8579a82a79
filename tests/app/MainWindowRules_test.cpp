// The commands on rules, as the user gives them in the main window.
#include <gtest/gtest.h>

#include "editors/AddRule.h"
#include "tests/app/MainWindow.h"

namespace tests {
namespace {

using app::CBrisgateDlg;
using Texts = std::vector<std::wstring>;
using Rows = std::vector<size_t>;

constexpr uint32_t question = ui::box::YesNo | ui::box::QuestionIcon | ui::box::SecondIsDefault;
constexpr wchar_t leaveQuestion[] = L"Some changes has not been saved. Exit without saving?";

// A main window whose profile holds five rules, described "a" to "e".
class MainWindowRulesTest : public MainWindowTest {
  protected:
    void SetUp() override {
        std::string text = R"([HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles\1]
ProfileName = "Office"
BasePath = "C:\Keys"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha]
ZCSProfile = { "Office" }
)";
        for (int number = 0; number < 5; ++number) {
            text += "\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule " +
                    std::to_string(number) +
                    "]\nOperation = \"HASH\"\nIs on = 1\nMask = \"*.dat\"\nDescryption = \"" +
                    static_cast<char>('a' + number) + "\"\n";
        }
        Seed(text);
    }

    ui::ListView& List() { return user_.Get<ui::ListView>(id::Rules); }
    Texts Descriptions() { return RuleColumn(1); }
    // Selects one row, and more with the Control key.
    void Select(const Rows& rows) {
        for (const size_t row : rows)
            user_.ClickRow(id::Rules, row, row == rows[0] ? Held::Nothing : Held::Control);
    }
    void LeaveUnchanged() { user_.PressCloseBox(); }
    void LeaveChanged() {
        user_.ExpectBox(leaveQuestion, question, ui::IdYes);
        user_.PressCloseBox();
    }
    // After a command that changed the list: which row is selected, and that the user is back in the list.
    void ExpectSelected(const Rows& rows) {
        EXPECT_EQ(List().SelectedRows(), rows);
        EXPECT_TRUE(List().HasFocus());
    }
};

TEST_F(MainWindowRulesTest, CopyPutsTheCopyBehindItsRule) {
    Run([&](CBrisgateDlg&) {
        Select({1, 3});
        user_.Click(1037);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"b", L"c", L"d", L"e"}));
        ExpectSelected({2});
        LeaveChanged();
    });
}

TEST_F(MainWindowRulesTest, DeleteAsksAndRemovesTheSelectedRules) {
    Run([&](CBrisgateDlg&) {
        Select({0, 2, 3});
        user_.ExpectBox(L"Delete 3 rule(s)?", question, ui::IdNo);
        user_.Click(1025);
        EXPECT_EQ(Descriptions().size(), 5U);
        user_.ExpectBox(L"Delete 3 rule(s)?", question, ui::IdYes);
        user_.ChooseMenu(32817);
        EXPECT_EQ(Descriptions(), (Texts{L"b", L"e"}));
        ExpectSelected({});
        Select({1});
        user_.ExpectBox(L"Delete 1 rule(s)?", question, ui::IdYes);
        user_.Press(Key::Delete);
        EXPECT_EQ(Descriptions(), Texts{L"b"});
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
    };
    const Case cases[] = {{1026, 32818, 2, {L"c", L"a", L"b", L"d", L"e"}, 0},
                          {1026, 32818, 0, {L"a", L"b", L"c", L"d", L"e"}, 0},
                          {1027, 32819, 2, {L"a", L"c", L"b", L"d", L"e"}, 1},
                          {1028, 32820, 2, {L"a", L"b", L"d", L"c", L"e"}, 3},
                          {1028, 32820, 3, {L"a", L"b", L"c", L"e", L"d"}, 4},
                          {1029, 32821, 1, {L"a", L"c", L"d", L"e", L"b"}, 4},
                          {1029, 32821, 4, {L"a", L"b", L"c", L"d", L"e"}, 4}};
    for (const Case& c : cases) {
        for (const bool byMenu : {false, true}) {
            Run([&](CBrisgateDlg&) {
                Select({c.row});
                byMenu ? user_.ChooseMenu(c.command) : user_.Click(c.button);
                EXPECT_EQ(Descriptions(), c.order) << c.button << " on " << c.row;
                ExpectSelected({c.selected});
                LeaveChanged();
            });
        }
    }
}

TEST_F(MainWindowRulesTest, MovesIgnoreTheOtherSelectedRows) {
    Run([&](CBrisgateDlg&) {
        Select({1, 3});
        user_.Click(1028);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"c", L"b", L"d", L"e"}));
        EXPECT_EQ(List().ScrollTarget(), 3U);
        LeaveChanged();
    });
}

TEST_F(MainWindowRulesTest, AtTheEdgeAndWithoutASelectionNothingHappens) {
    Run([&](CBrisgateDlg&) {
        for (const int button : {1037, 1024, 1025, 1026, 1027, 1028, 1029}) user_.Click(button);
        Select({0});
        user_.Click(1027);
        Select({4});
        user_.Click(1028);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"d", L"e"}));
        LeaveUnchanged();
    });
}

TEST_F(MainWindowRulesTest, UnderASearchCommandsWorkOnTheRuleAtTheRowsPosition) {
    Run([&](CBrisgateDlg&) {
        user_.Type(id::Search, L"d");
        user_.ClickRow(id::Rules, 0);
        user_.ExpectBox(L"Delete 1 rule(s)?", question, ui::IdYes);
        user_.Press(Key::Delete);
        EXPECT_EQ(Descriptions(), Texts{L"d"});
        user_.Type(id::Search, L"");
        EXPECT_EQ(Descriptions(), (Texts{L"b", L"c", L"d", L"e"}));
        LeaveChanged();
    });
}

TEST_F(MainWindowRulesTest, EditOpensTheEditorOnACopyOfTheRule) {
    Run([&](CBrisgateDlg&) {
        for (const bool byDoubleClick : {false, true}) {
            user_.Expect<editors::CAddRule>([&](editors::CAddRule& editor) {
                EXPECT_EQ(editor.Caption(), L"Edit rule");
                EXPECT_EQ(user_.Text(1079), L"c");
                user_.Type(1079, L"other");
                user_.Press(Key::Escape);
            });
            if (byDoubleClick) {
                user_.DoubleClickRow(id::Rules, 2);
            } else {
                Select({2});
                user_.Click(1024);
            }
        }
        EXPECT_EQ(Descriptions()[2], L"c");
        LeaveUnchanged();
    });
}

TEST_F(MainWindowRulesTest, AddOpensTheEditorOnANewRule) {
    Run([&](CBrisgateDlg&) {
        user_.Expect<editors::CAddRule>([&](editors::CAddRule& editor) {
            EXPECT_EQ(editor.Caption(), L"Add rule");
            user_.Click(ui::IdCancel);
        });
        user_.Click(1023);
        EXPECT_EQ(Descriptions().size(), 5U);
        LeaveUnchanged();
    });
}

}  // namespace
}  // namespace tests
