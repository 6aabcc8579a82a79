// The masks list of the rule editor.
#include <gtest/gtest.h>

#include "editors/MaskList.h"
#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

using editors::AddMask;
using Texts = std::vector<std::wstring>;

class RuleEditorMasks : public RuleEditorTest {
  protected:
    // Opens a rule with the masks; gives back those it has when it is accepted.
    Texts EditMasks(const Texts& masks, const std::function<void()>& script) {
        config::Rule rule = PlainRule(L"HASH");
        rule.Masks = masks;
        const auto result = Edit(rule, [&](ui::Dialog&) {
            EXPECT_EQ(ShownMasks(), masks);
            script();
            user_.Click(ui::IdOk);
        });
        return result ? result->Masks : Texts{L"not accepted"};
    }
    void ExpectMaskDialog(const std::wstring& holding, const std::wstring& typed) {
        user_.Expect<AddMask>([=, this](AddMask& dialog) {
            EXPECT_EQ(dialog.Caption(), L"Mask");
            EXPECT_EQ(user_.Get<ui::EditableCombo>(ruleid::MaskCombo).Items(), suggestions_);
            EXPECT_EQ(user_.Text(ruleid::MaskCombo), holding);
            user_.Type(ruleid::MaskCombo, typed);
            user_.Click(ui::IdOk);
        });
    }
    void ExpectMaskDialogGivenUp() {
        user_.Expect<AddMask>([this](AddMask&) {
            user_.Type(ruleid::MaskCombo, L"lost");
            user_.Click(ui::IdCancel);
        });
    }
    void ExpectDeleteQuestion(const std::wstring& count, int answer) {
        ExpectQuestion(L"Delete " + count + L" mask(s)?", answer);
    }
    int ColumnWidth() { return user_.Get<ui::ListView>(ruleid::Masks).Columns().at(0).width; }
};

TEST_F(RuleEditorMasks, HaveOneColumnAcrossTheList) {
    const auto masks = EditMasks({L"a"}, [this] {
        const auto& list = user_.Get<ui::ListView>(ruleid::Masks);
        ASSERT_EQ(list.Columns().size(), 1U);
        EXPECT_EQ(list.Columns()[0].header, L"Masks");
        EXPECT_EQ(ColumnWidth(), list.ClientWidth());
        EXPECT_FALSE(list.Style().singleSelection);
        EXPECT_FALSE(list.Style().checkBoxes);
    });
    EXPECT_EQ(masks, Texts{L"a"});
}

TEST_F(RuleEditorMasks, AreAddedAtTheEndDuplicatesIncluded) {
    const auto masks = EditMasks({L"a"}, [this] {
        ExpectMaskDialog(L"", L"b c ");
        user_.Click(ruleid::AddMask);
        ExpectMaskDialog(L"", L"a");
        user_.Click(ruleid::AddMask);
        ExpectMaskDialogGivenUp();
        user_.Click(ruleid::AddMask);
        EXPECT_EQ(ShownMasks(), (Texts{L"a", L"b c ", L"a"}));
    });
    EXPECT_EQ(masks, (Texts{L"a", L"b c ", L"a"}));
}

TEST_F(RuleEditorMasks, ALongListGetsItsScrollBarBesideTheColumn) {
    EditMasks(Texts(50, L"*.txt"),
              [this] { EXPECT_EQ(ColumnWidth(), user_.Get<ui::ListView>(ruleid::Masks).ClientWidth()); });
}

TEST_F(RuleEditorMasks, TheFirstSelectedOneIsEdited) {
    const auto masks = EditMasks({L"a", L"b", L"c", L"d"}, [this] {
        user_.Click(ruleid::EditMask);  // none selected: nothing happens
        user_.ClickRow(ruleid::Masks, 3);
        user_.ClickRow(ruleid::Masks, 1, Held::Control);
        ExpectMaskDialog(L"b", L"B");
        user_.Click(ruleid::EditMask);
        EXPECT_EQ(ShownMasks(), (Texts{L"a", L"B", L"c", L"d"}));
        user_.ClickRow(ruleid::Masks, 0);
        ExpectMaskDialogGivenUp();
        user_.Click(ruleid::EditMask);
    });
    EXPECT_EQ(masks, (Texts{L"a", L"B", L"c", L"d"}));
}

TEST_F(RuleEditorMasks, ADoubleClickEdits) {
    const auto masks = EditMasks({L"a", L"b"}, [this] {
        ExpectMaskDialog(L"b", L"x");
        user_.DoubleClickRow(ruleid::Masks, 1);
        user_.ClickRow(ruleid::Masks, 0);
        user_.ClickBelowRows(ruleid::Masks);
    });
    EXPECT_EQ(masks, (Texts{L"a", L"x"}));
}

TEST_F(RuleEditorMasks, ADoubleClickBesideTheItemsIsIgnored) {
    EditMasks({L"a", L"b"}, [this] {
        auto& list = user_.Get<ui::ListView>(ruleid::Masks);
        list.SelectOnly(0);
        list.UserDoubleClicked({});
    });
}

TEST_F(RuleEditorMasks, AllSelectedOnesAreDeletedAfterAQuestion) {
    const auto masks = EditMasks({L"1", L"2", L"3", L"4", L"5"}, [this] {
        user_.Click(ruleid::DeleteMask);  // none selected: no question
        user_.ClickRow(ruleid::Masks, 3);
        user_.ClickRow(ruleid::Masks, 1, Held::Control);
        ExpectDeleteQuestion(L"2", ui::IdNo);
        user_.Click(ruleid::DeleteMask);
        EXPECT_EQ(ShownMasks(), (Texts{L"1", L"2", L"3", L"4", L"5"}));
        ExpectDeleteQuestion(L"2", ui::IdYes);
        user_.Click(ruleid::DeleteMask);
        EXPECT_EQ(ShownMasks(), (Texts{L"1", L"3", L"5"}));
    });
    EXPECT_EQ(masks, (Texts{L"1", L"3", L"5"}));
}

TEST_F(RuleEditorMasks, TheDeleteKeyDeletesTheSelectedOnes) {
    const auto masks = EditMasks({L"1", L"2", L"3", L"4"}, [this] {
        user_.Click(ruleid::Masks);
        user_.Press(Key::Delete);  // none selected: no question
        user_.ClickRow(ruleid::Masks, 1);
        user_.ClickRow(ruleid::Masks, 3, Held::Control);
        ExpectDeleteQuestion(L"2", ui::IdNo);
        user_.Press(Key::Delete);
        EXPECT_EQ(user_.RowCount(ruleid::Masks), 4U);
        ExpectDeleteQuestion(L"2", ui::IdYes);
        user_.Press(Key::Delete);
        user_.Press(Key::Space);  // no other key deletes
        EXPECT_EQ(ShownMasks(), (Texts{L"1", L"3"}));
    });
    EXPECT_EQ(masks, (Texts{L"1", L"3"}));
}

TEST_F(RuleEditorMasks, KeysAddEditAndShowOne) {
    const auto masks = EditMasks({L"1", L"2"}, [this] {
        user_.Press(Key::Insert);  // the focus is not in the list yet
        user_.ClickRow(ruleid::Masks, 1);
        ExpectMaskDialog(L"2", L"two");
        user_.Press(Key::F2);
        user_.ClickRow(ruleid::Masks, 0);
        ExpectMaskDialog(L"", L"3");
        user_.Press(Key::Insert);
        user_.ClickRow(ruleid::Masks, 1);
        user_.ExpectBox(L"two", ui::box::Ok | ui::box::InformationIcon, ui::IdOk, L"Mask");
        user_.Press(Key::Menu);
        user_.Press(Key::A, Held::Control);
        EXPECT_EQ(user_.Get<ui::ListView>(ruleid::Masks).SelectedRows().size(), 3U);
    });
    EXPECT_EQ(masks, (Texts{L"1", L"two", L"3"}));
}

TEST_F(RuleEditorMasks, CanAllBeDeletedByTheKeyboard) {
    EditMasks({L"1", L"2", L"3"}, [this] {
        user_.Click(ruleid::Masks);
        user_.Press(Key::Home);
        user_.Press(Key::End, Held::Shift);
        for (int i = 0; i < 3; ++i) user_.Press(Key::Tab);
        ExpectDeleteQuestion(L"3", ui::IdYes);
        user_.Press(Key::Space);
        EXPECT_EQ(user_.RowCount(ruleid::Masks), 0U);
        ExpectMaskDialog(L"", L"new");
        user_.Click(ruleid::AddMask);
    });
}

TEST_F(RuleEditorMasks, ARightClickShowsTheWholeMask) {
    const std::wstring longMask(300, L'x');
    EditMasks({L"a", longMask}, [&] {
        user_.ExpectBox(longMask, ui::box::Ok | ui::box::InformationIcon, ui::IdOk, L"Mask");
        user_.RightClickCell(ruleid::Masks, 1, 0);
        user_.RightClickBelowRows(ruleid::Masks);
    });
}

TEST_F(RuleEditorMasks, AreKeptInTheRuleOnlyOnOk) {
    config::Rule rule = PlainRule(L"HASH");
    Edit(rule, [this](ui::Dialog&) {
        ExpectMaskDialog(L"", L"b");
        user_.Click(ruleid::AddMask);
        Leave();
    });
    EXPECT_EQ(rule.Masks, Texts{L"*.txt"});
}

}  // namespace
}  // namespace tests
