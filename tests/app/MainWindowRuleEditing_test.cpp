// Adding and editing rules: how the main window opens the rule editor, and what it does with the finished
// rule.
#include "editors/MaskList.h"
#include "tests/app/MainWindowRules.h"

namespace tests {
namespace {

class MainWindowRuleEditing : public MainWindowRulesTest {
  protected:
    // Opens the mask dialog of the rule editor and gives what it offers.
    Texts OfferedMasks() {
        Texts offered;
        user_.Expect<editors::AddMask>([this, &offered](editors::AddMask&) {
            offered = user_.Get<ui::EditableCombo>(ruleid::MaskCombo).Items();
            user_.Press(Key::Escape);
        });
        user_.Click(ruleid::AddMask);
        return offered;
    }
};

TEST_F(MainWindowRuleEditing, TheFirstSelectedRuleIsReplacedByTheFinishedOne) {
    rules_[3].IsOn = 0;
    const std::vector<std::function<void()>> ways{[this] { user_.Click(id::EditRule); },
                                                  [this] { user_.ChooseMenu(command::EditRule); }};
    for (const auto& edit : ways) {
        Run([&] {
            Select({3, 2});
            ExpectRenaming(L"c", L"changed");
            edit();
            EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"changed", L"d", L"e"}));
            ExpectShown(2);
            SaveChanged();
        });
        std::vector<config::Rule> expected = rules_;
        expected[2].Descryption = L"changed";
        EXPECT_EQ(StoredRules(), expected);
    }
}

TEST_F(MainWindowRuleEditing, ADoubleClickEditsItsRule) {
    Run([&] {
        ExpectRenaming(L"e", L"last");
        user_.DoubleClickRow(id::Rules, 4);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"d", L"last"}));
        ExpectShown(4);
        LeaveChanged();
    });
}

TEST_F(MainWindowRuleEditing, ARuleThatWasOffComesBackOn) {
    rules_[1].IsOn = 0;
    Run([&] {
        Select({1});
        ExpectRenaming(L"b", L"on again");
        user_.Click(id::EditRule);
        EXPECT_TRUE(List().IsChecked(1));
        SaveChanged();
    });
    EXPECT_EQ(StoredRules().at(1).IsOn, 1);
}

TEST_F(MainWindowRuleEditing, GivingUpLeavesTheRuleAsItWas) {
    Run([&] {
        for (const bool byDoubleClick : {false, true}) {
            ExpectEditor([&](editors::CAddRule&) {
                EXPECT_EQ(user_.Text(ruleid::Description), L"c");
                user_.Type(ruleid::Description, L"other");
                user_.Press(Key::Escape);
            });
            if (byDoubleClick) {
                user_.DoubleClickRow(id::Rules, 2);
            } else {
                Select({2});
                user_.Click(id::EditRule);
            }
        }
        EXPECT_EQ(Descriptions()[2], L"c");
        LeaveUnchanged();
    });
}

TEST_F(MainWindowRuleEditing, ANewRuleGoesToTheEnd) {
    for (const bool byMenu : {false, true}) {
        Run([&] {
            Select({1});
            ExpectNewRule(L"new");
            Give(byMenu, command::AddRule, id::AddRule);
            EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"d", L"e", L"new"}));
            ExpectShown(5);
            SaveChanged();
        });
        std::vector<config::Rule> expected = rules_;
        expected.push_back(RuleNamed(L"new"));
        EXPECT_EQ(StoredRules(), expected);
    }
}

TEST_F(MainWindowRuleEditing, GivingUpANewRuleLeavesTheListAsItWas) {
    Run([&] {
        ExpectEditor([&](editors::CAddRule& editor) {
            EXPECT_EQ(editor.Caption(), L"Add rule");
            user_.Click(ui::IdCancel);
        });
        user_.Click(id::AddRule);
        EXPECT_EQ(Descriptions().size(), 5U);
        LeaveUnchanged();
    });
}

TEST_F(MainWindowRuleEditing, TheEditorOffersTheProfilesMasksAndThoseOfTheExtensions) {
    rules_[0].Masks = {L"*.txt", L"*.xml"};
    rules_[4].Masks = {L"*.p7s"};
    configuration_.Settings.EncExt = L"enc";
    configuration_.Settings.ExtExt = {L"edi"};
    const Texts expected{L"*.txt", L"*.xml", L"*.dat", L"*.p7s", L"*.p7d",
                         L"*.enc", L"*.b64", L"*.hsh", L"*.vrf", L"*.edi"};
    Run([&] {
        ExpectEditor([&](editors::CAddRule&) {
            EXPECT_EQ(OfferedMasks(), expected);
            user_.Press(Key::Escape);
        });
        user_.Click(id::AddRule);
        Select({1});
        ExpectEditor([&](editors::CAddRule&) {
            EXPECT_EQ(OfferedMasks(), expected);
            user_.Press(Key::Escape);
        });
        user_.Click(id::EditRule);
        LeaveUnchanged();
    });
}

// A new rule is compared with the CS profile of the rule that was edited before it.
TEST_F(MainWindowRuleEditing, TheEditorRemembersTheStoreProfileFromOneOpeningToTheNext) {
    constexpr int bank = 1;
    rules_[2].ZCSProfile = L"Bank";
    certificates_.recipients = {L"CN=Anna"};
    Run([&] {
        Select({2});
        ExpectEditor([&](editors::CAddRule&) { user_.Press(Key::Escape); });
        user_.Click(id::EditRule);
        ExpectEditor([&](editors::CAddRule&) {
            user_.Click(ruleid::ActionButton);
            user_.Choose(ruleid::CsProfile, bank);  // no question
            EXPECT_EQ(user_.Text(ruleid::ActionField), L"1");
            user_.Press(Key::Escape);
        });
        user_.Click(id::AddRule);
        LeaveUnchanged();
    });
}

TEST_F(MainWindowRuleEditing, TheEditorKnowsTheOpenedProfile) {
    Run([&] {
        ExpectEditor([&](editors::CAddRule& editor) {
            EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::CsProfile).Items(), (Texts{L"Office", L"Bank"}));
            user_.Click(ruleid::ActionButton);
            EXPECT_EQ(certificates_.OpenedFor(), std::vector<std::string>{"Office"});
            EXPECT_EQ(certificates_.lastOwner, &editor);
            user_.Press(Key::Escape);
        });
        user_.Click(id::AddRule);
        LeaveUnchanged();
    });
}

}  // namespace
}  // namespace tests
