// Each gesture on a simple control reaches its handler once, with the state already changed; what the program
// sets is shown and heard by nobody.
#include <algorithm>

#include "tests/ui/Gallery.h"

namespace tests {
namespace {

using namespace gallery;

class ControlGalleryTest : public GalleryTest {};

TEST_F(ControlGalleryTest, OpensAsDeclaredAndHearsNothing) {
    EXPECT_EQ(ui::IdCancel, Run([this] {
                  EXPECT_EQ(Heard{}, gallery_.TakeHeard());
                  EXPECT_EQ(&gallery_.name, gallery_.Focus());
                  EXPECT_EQ(L"R&D", user_.Text(Frame));
                  EXPECT_EQ(0, gallery_.resized);
              }));
}

TEST_F(ControlGalleryTest, ButtonsAreHeardOnce) {
    Run([this] {
        user_.Click(Apply);
        EXPECT_EQ(Heard{L"apply"}, gallery_.TakeHeard());
        EXPECT_TRUE(gallery_.apply.HasFocus());
        user_.Click(Save);
        EXPECT_EQ(Heard{L"save"}, gallery_.TakeHeard());
        user_.Press(Key::Space);
        EXPECT_EQ(Heard{L"save"}, gallery_.TakeHeard());
    });
}

TEST_F(ControlGalleryTest, CheckBoxesTurnOver) {
    Run([this] {
        user_.Click(Tick);
        EXPECT_EQ(Heard{L"ticked"}, gallery_.TakeHeard());
        user_.Press(Key::Space);
        EXPECT_EQ(Heard{L"unticked"}, gallery_.TakeHeard());
    });
}

TEST_F(ControlGalleryTest, TypingIsHeardKeyByKey) {
    Run([this] {
        gallery_.name.SetText(L"old");
        user_.Type(Name, L"xy");
        EXPECT_EQ((Heard{L"name x", L"name xy"}), gallery_.TakeHeard());
        user_.Paste(Name, L"pasted");
        EXPECT_EQ(L"pasted", user_.Text(Name));
        EXPECT_EQ(L"name pasted", gallery_.TakeHeard().back());
        user_.Type(Name, L"");
        EXPECT_EQ(Heard{L"name "}, gallery_.TakeHeard());
    });
}

TEST_F(ControlGalleryTest, DigitsOnlyEditsRefuseLetters) {
    Run([this] {
        user_.Type(Digits, L"1a2");
        EXPECT_EQ((Heard{L"digits 1", L"digits 12"}), gallery_.TakeHeard());
        EXPECT_EQ(12, gallery_.digits.Number());
    });
}

TEST_F(ControlGalleryTest, ArrowsCountWithinTheirRange) {
    Run([this] {
        gallery_.digits.SetNumber(98);
        user_.Step(Arrows, 1);
        EXPECT_EQ(Heard{L"digits 99"}, gallery_.TakeHeard());
        user_.Step(Arrows, 1);
        EXPECT_EQ(99, gallery_.digits.Number());
        user_.Step(Arrows, -2);
        EXPECT_EQ(97, gallery_.digits.Number());
        user_.Press(Key::Up);
        EXPECT_EQ(L"98", user_.Text(Digits));
    });
}

TEST_F(ControlGalleryTest, ManyLinesTakeEnter) {
    Run([this] {
        user_.Type(Notes, L"a\nb");
        EXPECT_EQ(L"a\r\nb", user_.Text(Notes));
        EXPECT_EQ(L"notes a\r\nb", gallery_.TakeHeard().back());
        user_.Press(Key::Enter);
        EXPECT_EQ(L"a\r\nb\r\n", user_.Text(Notes));
        EXPECT_FALSE(gallery_.HasEnded());
    });
}

TEST_F(ControlGalleryTest, AHandlerMayCorrectWhatIsTyped) {
    gallery_.onHear = [this](const std::wstring&) {
        if (gallery_.digits.Number() < 4) gallery_.digits.SetNumber(4);
    };
    Run([this] {
        user_.Type(Digits, L"3");
        EXPECT_EQ(L"4", user_.Text(Digits));
        EXPECT_EQ(1U, gallery_.TakeHeard().size());
    });
}

TEST_F(ControlGalleryTest, ACorrectionLeavesZerosInFrontOfTheRightNumber) {
    Run([this] {
        user_.Type(Digits, L"007");
        gallery_.digits.SetNumber(7);
        EXPECT_EQ(L"007", user_.Text(Digits));
        gallery_.digits.SetNumber(8);
        EXPECT_EQ(L"8", user_.Text(Digits));
        user_.Type(Digits, L"18");
        gallery_.digits.SetNumber(8);
        EXPECT_EQ(L"8", user_.Text(Digits));
    });
}

TEST_F(ControlGalleryTest, BackspaceDeletes) {
    Run([this] {
        user_.Type(Name, L"abc\bd");
        EXPECT_EQ(L"abd", user_.Text(Name));
        user_.Type(Name, L"\b");
        EXPECT_EQ(L"", user_.Text(Name));
    });
}

TEST_F(ControlGalleryTest, WhatTheProgramPutsIntoAnEmptiedEditGivesWayToTheNextKey) {
    gallery_.onHear = [this](const std::wstring&) {
        gallery_.digits.SetNumber(std::min(gallery_.digits.Number(), 60));
    };
    Run([this] {
        user_.Type(Digits, L"3\b57");
        EXPECT_EQ(L"57", user_.Text(Digits));
        user_.Type(Digits, L"999");
        EXPECT_EQ(L"60", user_.Text(Digits));
    });
}

TEST_F(ControlGalleryTest, ADroppedPathReplacesTheContent) {
    const std::wstring folder = L"D:\\Exchange\\\x0412 \x00E9\\" + std::wstring(300, L'x');
    Run([this, &folder] {
        user_.Type(Name, L"before");
        user_.Click(Tick);
        gallery_.TakeHeard();
        user_.Drop(Name, folder);
        EXPECT_EQ(folder, user_.Text(Name));
        EXPECT_EQ(Heard{L"name " + folder}, gallery_.TakeHeard());
        EXPECT_EQ(&gallery_.tick, gallery_.Focus());
    });
}

TEST_F(ControlGalleryTest, APathDroppedElsewhereDoesNothing) {
    Run([this] {
        for (const int id : {Fixed, Notes, Digits, Tick, Rows, Kinds}) user_.Drop(id, L"D:\\In");
        gallery_.name.Enable(false);
        user_.Drop(Name, L"D:\\In");
        gallery_.name.Enable(true);
        gallery_.name.SetReadOnly(true);
        user_.Drop(Name, L"D:\\In");
        EXPECT_EQ(Heard{}, gallery_.TakeHeard());
        EXPECT_EQ(L"", user_.Text(Name));
        EXPECT_EQ(L"fixed", user_.Text(Fixed));
    });
}

TEST_F(ControlGalleryTest, ChoicesAreHeardOnce) {
    Run([this] {
        user_.Choose(Kinds, 1);
        EXPECT_EQ(Heard{L"kind Two"}, gallery_.TakeHeard());
        user_.Press(Key::Down);
        EXPECT_EQ(Heard{L"kind Three"}, gallery_.TakeHeard());
        user_.Choose(Mask, 1);
        EXPECT_EQ(Heard{L"mask *.p7s"}, gallery_.TakeHeard());
        EXPECT_EQ(L"*.p7s", user_.Text(Mask));
        user_.Type(Mask, L"ab");
        EXPECT_EQ((Heard{L"mask a", L"mask ab"}), gallery_.TakeHeard());
        EXPECT_EQ(std::nullopt, gallery_.mask.Selected());
        user_.Choose(Names, 2);
        EXPECT_EQ(Heard{L"chose zip"}, gallery_.TakeHeard());
        user_.Press(Key::Up);
        EXPECT_EQ(Heard{L"chose xml"}, gallery_.TakeHeard());
    });
}

TEST_F(ControlGalleryTest, TheProgramMayDropAListDown) {
    Run([this] {
        user_.Click(Kinds);
        gallery_.kinds.DropDown();
        EXPECT_TRUE(gallery_.kinds.IsDroppedDown());
        user_.Choose(Kinds, 2);
        EXPECT_FALSE(gallery_.kinds.IsDroppedDown());
        EXPECT_EQ(Heard{L"kind Three"}, gallery_.TakeHeard());
    });
}

TEST_F(ControlGalleryTest, TheProgramIsNeverHeard) {
    Run([this] {
        gallery_.name.SetText(L"n");
        gallery_.name.SetCue(L"Whom?");
        gallery_.digits.SetNumber(7);
        gallery_.digits.SetReadOnly(true);
        gallery_.notes.SetText(L"one\r\ntwo");
        gallery_.tick.SetChecked(true);
        gallery_.kinds.Select(2);
        gallery_.kinds.SetItems({L"A & B"});
        gallery_.kinds.Select(0);
        gallery_.mask.SetText(L"m");
        gallery_.mask.Select(0);
        gallery_.mask.SetItems({L"q"});
        gallery_.mask.SetText(L"typed");
        gallery_.names.Select(1);
        gallery_.names.Add(L"bcd");
        gallery_.names.Remove(0);
        gallery_.sign.SetIcon(ui::Icon::Error);
        gallery_.save.SetIcon(ui::Icon::RuleAdd);
        gallery_.save.SetTooltip(L"Add & go");
        gallery_.apply.SetText(L"Run & go");
        gallery_.frame.SetText(L"A & B");
        gallery_.hint.SetText(L"A & B");
        gallery_.frame.Show(false);
        gallery_.arrows.SetRange(1, 5);
        gallery_.SetCaption(L"Other");
        gallery_.rows.SelectOnly(3);
        gallery_.rows.SetFocus();
        gallery_.fixed.Enable(true);
        user_.Click(Apply);  // lets the windows be looked at
        EXPECT_EQ((Heard{L"rows left", L"apply"}), gallery_.TakeHeard());
        EXPECT_EQ(L"xml", gallery_.names.SelectedItem());
    });
}

TEST_F(ControlGalleryTest, TabVisitsWhatCanBeUsedInTheOrderDeclared) {
    Run([this] {
        gallery_.digits.Show(false);
        gallery_.tick.Enable(false);
        gallery_.name.SetFocus();
        std::vector<int> visited;
        for (int i = 0; i < 11; ++i) {
            user_.Press(Key::Tab);
            visited.push_back(gallery_.Focus() == nullptr ? 0 : gallery_.Focus()->Id());
        }
        EXPECT_EQ((std::vector{Notes, Kinds, Mask, Names, Save, Rows, Apply, ui::IdOk, ui::IdCancel, Name, Notes}),
                  visited);
        user_.Press(Key::Tab, Held::Shift);
        EXPECT_TRUE(gallery_.name.HasFocus());
    });
}

TEST_F(ControlGalleryTest, EnterPressesOkAndTheFocusedButton) {
    gallery_.onOk = [] {};
    Run([this] {
        user_.Click(Name);
        user_.Press(Key::Enter);
        EXPECT_EQ(Heard{L"OK"}, gallery_.TakeHeard());
        user_.Click(Apply);
        user_.Press(Key::Enter);
        EXPECT_EQ((Heard{L"apply", L"apply"}), gallery_.TakeHeard());
        gallery_.ok.Enable(false);
        user_.Click(Name);
        user_.Press(Key::Enter);
        EXPECT_EQ(Heard{}, gallery_.TakeHeard());
    });
}

TEST_F(ControlGalleryTest, EscapeCancels) {
    EXPECT_EQ(ui::IdCancel, Run([this] {
                  user_.Press(Key::Escape);
                  EXPECT_EQ(Heard{L"Cancel"}, gallery_.TakeHeard());
                  EXPECT_TRUE(gallery_.HasEnded());
              }));
    EXPECT_EQ(ui::IdCancel, Run([this] {
                  user_.Click(Notes);
                  user_.Press(Key::Escape);
                  EXPECT_TRUE(gallery_.HasEnded());
              }));
    EXPECT_EQ(ui::IdOk, Run([this] { user_.Click(ui::IdOk); }));
}

TEST_F(ControlGalleryTest, EscapeDoesNothingWhileCancelIsDisabled) {
    Run([this] {
        gallery_.cancel.Enable(false);
        user_.Press(Key::Escape);
        EXPECT_EQ(Heard{}, gallery_.TakeHeard());
        EXPECT_FALSE(gallery_.HasEnded());
        gallery_.cancel.Enable(true);
        user_.Press(Key::Escape);
        EXPECT_EQ(Heard{L"Cancel"}, gallery_.TakeHeard());
    });
}

TEST_F(ControlGalleryTest, NamesThatDifferOnlyInCaseStayInTheOrderOfTheirComing) {
    Run([this] {
        EXPECT_EQ(1, gallery_.names.Add(L"ABC"));
        EXPECT_EQ(2, gallery_.names.Add(L"abc"));
        user_.Click(Apply);  // lets the windows be looked at
        EXPECT_EQ((std::vector<std::wstring>{L"Abc", L"ABC", L"abc", L"xml", L"zip"}), gallery_.names.Items());
    });
}

TEST_F(ControlGalleryTest, AControlTakenFromTheUserLosesTheFocus) {
    Run([this] {
        user_.Click(Apply);
        gallery_.apply.Enable(false);
        EXPECT_TRUE(gallery_.ok.HasFocus());
        gallery_.ok.Show(false);
        EXPECT_TRUE(gallery_.cancel.HasFocus());
        user_.Press(Key::Tab);
        EXPECT_TRUE(gallery_.name.HasFocus());
    });
}

}  // namespace
}  // namespace tests
