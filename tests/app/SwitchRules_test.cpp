// Switching rules on and off by the check boxes of their rows, also where a command comes before the list is
// left.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/RuleList.h"
#include "editors/AddProfile.h"
#include "tests/app/MainWindowRules.h"

namespace tests {
namespace {

using Checks = std::vector<bool>;

std::vector<config::Rule> RulesWith(const std::vector<int32_t>& isOn) {
    std::vector<config::Rule> rules;
    for (const int32_t value : isOn) {
        rules.emplace_back().Operation = L"HASH";
        rules.back().IsOn = value;
    }
    return rules;
}

std::vector<int32_t> IsOnOf(const std::vector<config::Rule>& rules) {
    std::vector<int32_t> isOn;
    for (const config::Rule& rule : rules) isOn.push_back(rule.IsOn);
    return isOn;
}

TEST(SwitchRules, FollowsTheRowAtTheRulesPosition) {
    struct Case {
        const char* what;
        Checks checks;
        std::vector<int32_t> before;
        std::vector<int32_t> after;
        bool changed;
    };
    const Case cases[] = {
        {"as they are", {true, false, true}, {1, 0, 1}, {1, 0, 1}, false},
        {"one goes off", {true, false, true}, {1, 1, 1}, {1, 0, 1}, true},
        {"one goes on", {true, true, true}, {1, 0, 1}, {1, 1, 1}, true},
        {"the last one", {true, true, false}, {1, 1, 1}, {1, 1, 0}, true},
        {"any other number that means on becomes 1", {true, true}, {2, -1}, {1, 1}, true},
        {"any number that means on goes off", {false, false}, {2, -1}, {0, 0}, true},
        {"no row: on", {false}, {0, 0, 1}, {0, 1, 1}, true},
        {"no row, and on already", {false}, {0, 1, 1}, {0, 1, 1}, false},
        {"no rows at all", {}, {0, 1}, {1, 1}, true},
        {"no rules", {true}, {}, {}, false},
    };
    for (const Case& c : cases) {
        std::vector<config::Rule> rules = RulesWith(c.before);
        EXPECT_EQ(app::SwitchRules(c.checks, rules), c.changed) << c.what;
        EXPECT_EQ(IsOnOf(rules), c.after) << c.what;
    }
}

TEST(SwitchRules, LeavesRulesWithoutAnOperationAloneAndCountsThem) {
    std::vector<config::Rule> rules = RulesWith({1, 0, 1, 0});
    rules[0].Operation = rules[3].Operation = L"";
    EXPECT_TRUE(app::SwitchRules({false, true, false}, rules));
    EXPECT_EQ(IsOnOf(rules), (std::vector<int32_t>{1, 1, 0, 0}));
}

TEST(SwitchRules, ChangesNothingElse) {
    std::vector<config::Rule> rules = RulesWith({1});
    rules[0].Descryption = L"what it does";
    std::vector<config::Rule> expected = rules;
    expected[0].IsOn = 0;
    EXPECT_TRUE(app::SwitchRules({false}, rules));
    EXPECT_EQ(rules, expected);
}

class MainWindowSwitches : public MainWindowRulesTest {
  protected:
    void EnterAndLeaveTheList() {
        user_.Click(id::Rules);
        user_.Click(id::Search);
    }
    std::vector<int32_t> StoredSwitches() { return IsOnOf(StoredRules()); }
};

TEST_F(MainWindowSwitches, LeavingTheListAsItIsChangesNothing) {
    rules_[1].IsOn = 0;
    Run([&] {
        EnterAndLeaveTheList();
        user_.ClickCheckBox(id::Rules, 3);
        user_.ClickCheckBox(id::Rules, 3);
        user_.Click(id::Search);
        LeaveUnchanged();
    });
}

TEST_F(MainWindowSwitches, ARuleGoesOffAndOnAgainEachTimeTheListIsLeft) {
    Run([&] {
        user_.ClickCheckBox(id::Rules, 1);
        user_.Click(id::Search);
        user_.Click(id::Save);
        EXPECT_EQ(StoredSwitches(), (std::vector<int32_t>{1, 0, 1, 1, 1}));
        user_.ClickCheckBox(id::Rules, 1);
        user_.Click(id::Search);
        SaveChanged();
    });
    EXPECT_EQ(StoredSwitches(), (std::vector<int32_t>{1, 1, 1, 1, 1}));
}

TEST_F(MainWindowSwitches, ADoubleClickOnABoxTurnsItTwiceAndOpensNoEditor) {
    rules_[1].IsOn = 0;
    Run([&] {
        for (const size_t row : {0U, 1U}) {
            Select({row});
            user_.DoubleClickCheckBox(id::Rules, row);
            EXPECT_EQ(List().IsChecked(row), row == 0);
        }
        user_.Click(id::Search);
        LeaveUnchanged();
    });
}

TEST_F(MainWindowSwitches, AnotherNumberThanOneIsPutRight) {
    rules_[2].IsOn = 2;
    Run([&] {
        EXPECT_TRUE(List().IsChecked(2));
        EnterAndLeaveTheList();
        SaveChanged();
    });
    EXPECT_EQ(StoredSwitches(), (std::vector<int32_t>{1, 1, 1, 1, 1}));
}

TEST_F(MainWindowSwitches, RulesBeyondTheLastRowAreSwitchedOn) {
    for (config::Rule& rule : rules_) rule.IsOn = 0;
    Run([&] {
        user_.Type(id::Search, L"d");
        EnterAndLeaveTheList();
        SaveChanged();
    });
    EXPECT_EQ(StoredSwitches(), (std::vector<int32_t>{0, 1, 1, 1, 1}));
}

TEST_F(MainWindowSwitches, ARuleWithoutAnOperationKeepsItsSwitch) {
    rules_[0].Operation = rules_[4].Operation = L"";
    rules_[4].IsOn = 0;
    Run([&] {
        user_.ClickCheckBox(id::Rules, 0);  // shows the second rule, and stands for the first
        user_.Click(id::Search);
        LeaveUnchanged();
    });
}

// Deleting a profile empties the list, though the name of another one counts as opened.
TEST_F(MainWindowSwitches, RulesThatAreNotListedAreNotSwitched) {
    configuration_.Profiles.emplace_back().Name = L"Aaa";
    rules_[2].IsOn = 0;
    Run([&] {
        ExpectQuestion(L"Delete profile 'Aaa'?", ui::IdYes);
        user_.Click(id::DeleteProfile);
        EXPECT_EQ(List().RowCount(), 0U);
        List().UserLeft();
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(StoredSwitches(), (std::vector<int32_t>{1, 1, 0, 1, 1}));
}

TEST_F(MainWindowSwitches, WithoutAnOpenedProfileThereIsNothingToSwitch) {
    configuration_.Profiles.emplace_back().Name = L"Beta";
    rules_[2].IsOn = 2;
    Run([&] {
        user_.ClickRow(id::Profiles, 1);
        ExpectQuestion(L"Delete profile 'Beta'?", ui::IdYes);
        user_.Click(id::DeleteProfile);
        EXPECT_EQ(user_.Text(id::ProfileLabel), L"Profile: ");
        List().UserLeft();
        user_.Type(id::Search, L"a");  // fills the list, with nothing
        List().UserLeft();
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(StoredSwitches(), (std::vector<int32_t>{1, 1, 2, 1, 1}));
}

class NewTicks : public MainWindowRulesTest {
  protected:
    bool IsOn(size_t rule) { return StoredRules().at(rule).IsOn != 0; }
    void SaveAll() { user_.ChooseMenu(command::Save); }
    // In a main window of its own: clears the first rule's box, gives the command and leaves.
    void After(const char* what, const std::function<void()>& command) {
        SCOPED_TRACE(what);
        SetUp();
        Run([&] {
            user_.ClickCheckBox(id::Rules, 0);
            command();
        });
    }
};

TEST_F(NewTicks, AreSavedByEveryWayToSave) {
    After("Save in the menu", [&] {
        SaveAll();
        LeaveUnchanged();
    });
    EXPECT_FALSE(IsOn(0));
    After("Enter", [&] { user_.Press(Key::Enter); });
    EXPECT_FALSE(IsOn(0));
    After("Save", [&] {
        user_.Click(id::Save);
        LeaveUnchanged();
    });
    EXPECT_FALSE(IsOn(0));
}

TEST_F(NewTicks, AreAskedAboutByEveryWayOut) {
    const std::vector<std::function<void()>> waysOut{[&] { user_.Press(Key::Escape); }, [&] { user_.PressCloseBox(); },
                                                     [&] { user_.ChooseMenu(command::Exit); },
                                                     [&] { user_.Click(ui::IdCancel); }};
    for (const auto& leave : waysOut) {
        After("a way out", [&] {
            ExpectLeaveQuestion(ui::IdNo);
            leave();
            ExpectLeaveQuestion(ui::IdYes);
            leave();
        });
        EXPECT_TRUE(IsOn(0)) << "nothing was saved";
    }
}

TEST_F(NewTicks, AreInTheListThatACommandFillsAnew) {
    const std::vector<std::function<void()>> commands{
        [&] { user_.ChooseMenu(command::CopyRule); },
        [&] { user_.ChooseMenu(command::MoveDown); },
        [&] { user_.ChooseMenu(command::MakeLast); },
        [&] {
            ExpectQuestion(L"Delete 1 rule(s)?", ui::IdYes);
            user_.Press(Key::Delete);
        },
        [&] {
            ExpectRenaming(L"c", L"edited");
            user_.DoubleClickRow(id::Rules, 2);
        },
    };
    for (const auto& command : commands) {
        After("a command", [&] {
            user_.ClickRow(id::Rules, 2);
            command();
            EXPECT_FALSE(List().IsChecked(0));
            SaveAll();
            LeaveUnchanged();
        });
        EXPECT_FALSE(IsOn(0));
    }
}

// Then boxes stand for other rules than those beside which they are seen.
TEST_F(NewTicks, UnderASearchCountOnceTheListIsLeft) {
    Run([&] {
        user_.Type(id::Search, L"c");
        user_.ClickCheckBox(id::Rules, 0);
        SaveAll();
        EXPECT_TRUE(IsOn(0));
        EXPECT_TRUE(IsOn(2));
        user_.Click(id::Search);
        SaveAll();
        EXPECT_FALSE(IsOn(0));
        EXPECT_TRUE(IsOn(2));
        LeaveUnchanged();
    });
}

// The list is left for the editor, whose copy of the rules comes back.
TEST_F(NewTicks, UnderASearchAreNotLostToTheProfileEditor) {
    Run([&] {
        user_.Type(id::Search, L"c");
        user_.ClickCheckBox(id::Rules, 0);
        user_.Expect<editors::CAddProfile>([&](editors::CAddProfile&) { user_.Click(ui::IdOk); });
        user_.ChooseMenu(command::EditProfile);
        SaveAll();
        EXPECT_FALSE(IsOn(0));
        LeaveUnchanged();
    });
}

}  // namespace
}  // namespace tests
