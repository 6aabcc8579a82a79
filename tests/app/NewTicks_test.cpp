// A box of a rule that has just been ticked or cleared, and a command that comes before the list is left.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "editors/AddProfile.h"
#include "tests/app/MainWindowRules.h"

namespace tests {
namespace {

class NewTicks : public MainWindowRulesTest {
  protected:
    bool IsOn(size_t rule) { return StoredRules().at(rule).IsOn != 0; }
    void SaveAll() { user_.ChooseMenu(57603); }
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
    const std::vector<std::function<void()>> waysOut{
        [&] { user_.Press(Key::Escape); }, [&] { user_.PressCloseBox(); }, [&] { user_.ChooseMenu(32788); },
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
            user_.ExpectBox(L"Delete 1 rule(s)?", boxes::Question, ui::IdYes);
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
        user_.ChooseMenu(32810);
        SaveAll();
        EXPECT_FALSE(IsOn(0));
        LeaveUnchanged();
    });
}

}  // namespace
}  // namespace tests
