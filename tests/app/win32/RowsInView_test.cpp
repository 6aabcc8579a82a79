// Which rows of the rule list the user really sees after a command that moves to another row.
#include "tests/app/MainWindowRules.h"

#include "tests/config/ExchangeText.h"
#include "tests/support/win32/Win32Robot.h"

#include <commctrl.h>

namespace tests {
namespace {

class RowsInView : public MainWindowRulesTest {
  protected:
    void SetUp() override {
        MainWindowRulesTest::SetUp();
        rules_.clear();
        for (size_t i = 0; i < Count; ++i) rules_.push_back(RuleNamed(std::to_wstring(i)));
    }

    bool IsSeen(size_t row) {
        const HWND list = GetDlgItem(WindowOf(user_.Top()), id::Rules);
        const auto top = static_cast<size_t>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
        const auto whole = static_cast<size_t>(SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0));
        EXPECT_GE(whole, 2U);
        EXPECT_LT(whole, 20U);
        return top <= row && row < top + whole;
    }
    // The user selects the row, gives the command and sees these rows.
    void Check(size_t selected, int button, const Rows& seen) {
        SCOPED_TRACE(testing::Message() << "row " << selected << ", button " << button);
        user_.ClickRow(id::Rules, selected);
        user_.Click(button);
        EXPECT_EQ(List().SelectedRows(), Rows{seen.front()});
        for (const size_t row : seen) EXPECT_TRUE(IsSeen(row)) << row;
    }

    static constexpr size_t Count = 60;
};

TEST_F(RowsInView, AMovedRuleIsSeenAndWhenMovedDownTheOneBelowIt) {
    Run([this] {
        Check(40, id::MoveUp, {39});
        EXPECT_FALSE(IsSeen(0));
        Check(40, id::MoveDown, {41, 42});
        Check(Count - 2, id::MoveDown, {Count - 1});
        Check(30, id::MakeLast, {Count - 1});
        EXPECT_FALSE(IsSeen(30));
        Check(30, id::MakeFirst, {0});
        EXPECT_FALSE(IsSeen(30));
        LeaveChanged();
    });
}

TEST_F(RowsInView, ACopiedRuleIsSeen) {
    Run([this] {
        Check(45, id::CopyRule, {46});
        Check(Count, id::CopyRule, {Count + 1});
        LeaveChanged();
    });
}

TEST_F(RowsInView, TheLastOfTheImportedRulesIsSeen) {
    const std::wstring path = Put(L"one.prx", Record({{field::Operation, "HASH"}, {field::Descryption, "new"}}));
    Run([this, &path] {
        user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
        Check(3, id::ImportRules, {Count});
        LeaveChanged();
    });
}

TEST_F(RowsInView, AnEditedRuleIsSeen) {
    Run([this] {
        ExpectRenaming(L"50", L"fifty");
        Check(50, id::EditRule, {50});
        LeaveChanged();
    });
}

}  // namespace
}  // namespace tests
