// Keys in dialogs without real windows do what the system's dialog manager and controls make of them.
#include "ui/memory/Input.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/MemoryParts.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/ListView.h"
#include "ui/memory/MemoryScreen.h"

namespace {

using ui::memory::Modifier;
using ui::memory::NextTabStop;
using ui::memory::VirtualKey;

class KeyDialog : public ui::Dialog {
  public:
    explicit KeyDialog(ui::Screen& screen) : Dialog(screen, nullptr, {{200, 100}}) {
        list.OnKeyDown([this](int key) { listKeys.push_back(key); });
        plainList.SetRows(3);
    }

    using Dialog::AddShortcut;

    std::vector<std::wstring> heard;
    std::vector<int> listKeys;

    ui::Label label{*this, 10, {0, 0, 10, 10}, L"Name"};
    ui::Edit line{*this, 11, {0, 10, 10, 10}, {}, [this] { heard.push_back(L"line"); }};
    ui::Edit lines{*this, 12, {0, 20, 10, 10}, {.multiLine = true}};
    ui::Edit fixedLines{*this, 13, {0, 30, 10, 10}, {.readOnly = true, .multiLine = true}};
    ui::CheckBox check{*this, 14, {0, 40, 10, 10}, L"Check"};
    ui::Button push{*this, 15, {0, 50, 10, 10}, L"Push", [this] { heard.push_back(L"push"); }};
    ui::IconButton icon{*this, 16, {0, 60, 10, 10}, ui::Icon::Save, L"Save", [this] { heard.push_back(L"icon"); }};
    ui::ListView list{*this, 17, {0, 70, 10, 10}, {.checkBoxes = true}};
    ui::ListView plainList{*this, 18, {0, 75, 10, 10}, {.singleSelection = true}};
    ui::ComboBox combo{*this, 19, {0, 80, 10, 10}, [this] { heard.push_back(combo.SelectedItem()); }};
    ui::Edit number{*this, 20, {0, 90, 10, 10}, {.digitsOnly = true}};
    ui::UpDown arrows{*this, 21, number, 0, 10};
    ui::Button ok{*this, ui::IdOk, {0, 95, 10, 10}, L"OK"};
    ui::Button cancel{*this, ui::IdCancel, {0, 98, 10, 10}, L"Exit"};

  private:
    void OnOK() override { heard.push_back(L"ok"); }
    void OnCancel() override { heard.push_back(L"cancel"); }
};

class Keyboard : public testing::Test {
  protected:
    Keyboard() { dialog.list.SetRows(6); }

    void Press(VirtualKey key, Modifier modifier = Modifier::None) {
        ui::memory::PressKey(dialog, rows, key, modifier);
    }

    platform::memory::MemoryScreenMetrics metrics;
    ui::memory::MemoryScreen screen{metrics};
    KeyDialog dialog{screen};
    ui::memory::RowSelection rows;
};

using Rows = std::vector<size_t>;
using Heard = std::vector<std::wstring>;

TEST_F(Keyboard, TabStopsAtEachUsableControlInOrderAndGoesRound) {
    dialog.check.Enable(false);
    dialog.push.Show(false);
    std::vector<int> visited;
    for (int i = 0; i < 11; ++i) {
        Press(VirtualKey::Tab);
        visited.push_back(dialog.Focus()->Id());
    }
    EXPECT_EQ((std::vector<int>{11, 12, 13, 16, 17, 18, 19, 20, 1, 2, 11}), visited);
}

TEST_F(Keyboard, ShiftTabGoesBackwards) {
    dialog.lines.SetFocus();
    Press(VirtualKey::Tab, Modifier::Shift);
    EXPECT_EQ(&dialog.line, dialog.Focus());
    Press(VirtualKey::Tab, Modifier::Shift);
    EXPECT_EQ(&dialog.cancel, dialog.Focus());
}

TEST_F(Keyboard, TabDoesNothingWhereNoControlTakesTheFocus) {
    for (ui::Control* control : dialog.Controls()) control->Enable(false);
    EXPECT_EQ(nullptr, NextTabStop(dialog));
    Press(VirtualKey::Tab);
    EXPECT_EQ(nullptr, dialog.Focus());
}

TEST_F(Keyboard, TabTellsTheControlThatItLosesTheFocus) {
    dialog.line.OnFocusLost([this] { dialog.heard.push_back(dialog.line.HasFocus() ? L"has it" : L"lost"); });
    dialog.line.SetFocus();
    Press(VirtualKey::Tab);
    EXPECT_EQ(Heard{L"lost"}, dialog.heard);
    EXPECT_EQ(&dialog.lines, dialog.Focus());
}

TEST_F(Keyboard, AFocusMovedByTheLosingControlStaysWhereItWasPut) {
    dialog.line.OnFocusLost([this] { dialog.cancel.SetFocus(); });
    dialog.line.SetFocus();
    Press(VirtualKey::Tab);
    EXPECT_EQ(&dialog.cancel, dialog.Focus());
}

TEST_F(Keyboard, EnterPressesTheFocusedButtonElseOk) {
    for (ui::Control* focus : {static_cast<ui::Control*>(&dialog.line), static_cast<ui::Control*>(&dialog.push),
                               static_cast<ui::Control*>(&dialog.icon), static_cast<ui::Control*>(&dialog.check),
                               static_cast<ui::Control*>(&dialog.list), static_cast<ui::Control*>(&dialog.cancel)}) {
        focus->SetFocus();
        Press(VirtualKey::Enter);
    }
    EXPECT_EQ((Heard{L"ok", L"push", L"icon", L"ok", L"ok", L"cancel"}), dialog.heard);
    EXPECT_FALSE(dialog.check.IsChecked());
    EXPECT_TRUE(dialog.listKeys.empty());
}

TEST_F(Keyboard, EnterPressesADisabledOkInVain) {
    dialog.ok.Enable(false);
    dialog.line.SetFocus();
    Press(VirtualKey::Enter);
    EXPECT_TRUE(dialog.heard.empty());
}

TEST_F(Keyboard, EnterStartsALineInAMultiLineEdit) {
    dialog.lines.SetText(L"first");
    dialog.lines.SetFocus();
    Press(VirtualKey::Enter);
    EXPECT_EQ(L"first\r\n", dialog.lines.Text());
    dialog.lines.SetReadOnly(true);
    Press(VirtualKey::Enter);
    EXPECT_EQ(L"first\r\n", dialog.lines.Text());
    EXPECT_TRUE(dialog.heard.empty());
}

TEST_F(Keyboard, EnterInAMultiLineEditMadeForReadingPressesOk) {
    dialog.fixedLines.SetFocus();
    Press(VirtualKey::Enter);
    EXPECT_EQ(L"", dialog.fixedLines.Text());
    EXPECT_EQ(Heard{L"ok"}, dialog.heard);
}

TEST_F(Keyboard, EscapeCancels) {
    dialog.lines.SetFocus();
    Press(VirtualKey::Escape);
    EXPECT_EQ(Heard{L"cancel"}, dialog.heard);
}

TEST_F(Keyboard, SpaceClicksButtonsAndCheckBoxes) {
    dialog.push.SetFocus();
    Press(VirtualKey::Space);
    dialog.icon.SetFocus();
    Press(VirtualKey::Space);
    dialog.check.SetFocus();
    Press(VirtualKey::Space);
    EXPECT_EQ((Heard{L"push", L"icon"}), dialog.heard);
    EXPECT_TRUE(dialog.check.IsChecked());
}

TEST_F(Keyboard, ArrowsSelectInTheList) {
    dialog.list.SetFocus();
    Press(VirtualKey::Down);
    EXPECT_EQ(Rows{0}, dialog.list.SelectedRows());
    Press(VirtualKey::Down);
    EXPECT_EQ(Rows{1}, dialog.list.SelectedRows());
    Press(VirtualKey::End);
    Press(VirtualKey::Down);
    EXPECT_EQ(Rows{5}, dialog.list.SelectedRows());
    Press(VirtualKey::Up);
    EXPECT_EQ(Rows{4}, dialog.list.SelectedRows());
    Press(VirtualKey::Home);
    Press(VirtualKey::Up);
    EXPECT_EQ(Rows{0}, dialog.list.SelectedRows());
    EXPECT_EQ(0U, dialog.list.FocusedRow());
    EXPECT_EQ((std::vector<int>{40, 40, 35, 40, 38, 36, 38}), dialog.listKeys);
}

TEST_F(Keyboard, ShiftExtendsTheSelectionFromWhereItBegan) {
    dialog.list.SelectOnly(2);
    dialog.list.SetFocus();
    Press(VirtualKey::Down, Modifier::Shift);
    Press(VirtualKey::Down, Modifier::Shift);
    EXPECT_EQ((Rows{2, 3, 4}), dialog.list.SelectedRows());
    Press(VirtualKey::Home, Modifier::Shift);
    EXPECT_EQ((Rows{0, 1, 2}), dialog.list.SelectedRows());
    Press(VirtualKey::Down, Modifier::Control);
    EXPECT_EQ((Rows{0, 1, 2}), dialog.list.SelectedRows());
    EXPECT_EQ(1U, dialog.list.FocusedRow());
}

TEST_F(Keyboard, ShiftSelectsOneRowWhereOnlyOneCanBe) {
    dialog.plainList.SelectOnly(0);
    dialog.plainList.SetFocus();
    Press(VirtualKey::End, Modifier::Shift);
    EXPECT_EQ(Rows{2}, dialog.plainList.SelectedRows());
}

TEST_F(Keyboard, KeysInAnEmptyListAreOnlyHeard) {
    dialog.list.SetRows(0);
    dialog.list.SetFocus();
    for (const VirtualKey key : {VirtualKey::Down, VirtualKey::End, VirtualKey::Space, VirtualKey::Delete}) Press(key);
    EXPECT_EQ((std::vector<int>{40, 35, 32, 46}), dialog.listKeys);
    EXPECT_FALSE(dialog.list.FocusedRow());
}

TEST_F(Keyboard, AShortcutPressesItsButtonWhereAndWhileThatCanBe) {
    const ui::KeyChord chord{.key = ui::key::F2};
    dialog.AddShortcut(chord, &dialog.list, dialog.push);
    dialog.line.SetFocus();
    EXPECT_FALSE(dialog.UserPressed(chord));
    dialog.list.SetFocus();
    dialog.push.Enable(false);
    EXPECT_TRUE(dialog.UserPressed(chord));
    dialog.push.Enable(true);
    dialog.push.Show(false);
    EXPECT_TRUE(dialog.UserPressed(chord));
    EXPECT_EQ(Heard{}, dialog.heard);
    dialog.push.Show(true);
    EXPECT_TRUE(dialog.UserPressed(chord));
    EXPECT_EQ(Heard{L"push"}, dialog.heard);
    EXPECT_FALSE(dialog.UserPressed({.key = ui::key::F2, .shift = true}));
}

// Else the list would look for a row that begins with the letter, or select with the space bar.
TEST_F(Keyboard, AListKeepsTheKeysThatItTakes) {
    dialog.list.SetFocus();
    EXPECT_TRUE(dialog.UserPressed({.key = 'A', .control = true}));
    EXPECT_EQ(dialog.list.SelectedRows().size(), 6U);
    EXPECT_FALSE(dialog.UserPressed({.key = ui::key::Space}));  // no row has the focus
    dialog.list.FocusRow(2);
    EXPECT_TRUE(dialog.UserPressed({.key = ui::key::Space}));
    EXPECT_FALSE(dialog.UserPressed({.key = ui::key::Menu}));  // there are no details
    int shown = -1;
    dialog.list.OnDetails([&shown](size_t row) { shown = static_cast<int>(row); });
    EXPECT_TRUE(dialog.UserPressed({.key = ui::key::Menu}));
    EXPECT_EQ(shown, 2);
    dialog.plainList.SetFocus();
    EXPECT_FALSE(dialog.UserPressed({.key = 'A', .control = true}));
}

TEST_F(Keyboard, SpaceTogglesTheCheckOfTheFocusedRow) {
    dialog.list.SelectOnly(3);
    dialog.list.SetFocus();
    Press(VirtualKey::Space);
    EXPECT_TRUE(dialog.list.IsChecked(3));
    EXPECT_EQ(Rows{3}, dialog.list.SelectedRows());
    dialog.plainList.SelectOnly(1);
    dialog.plainList.SetFocus();
    Press(VirtualKey::Space);
    EXPECT_FALSE(dialog.plainList.IsChecked(1));
}

TEST_F(Keyboard, ArrowsChooseInAComboBox) {
    dialog.combo.SetItems({L"a", L"b", L"c"});
    dialog.combo.SetFocus();
    Press(VirtualKey::Down);
    Press(VirtualKey::End);
    Press(VirtualKey::Down);
    Press(VirtualKey::Up);
    Press(VirtualKey::Home);
    EXPECT_EQ((Heard{L"a", L"c", L"b", L"a"}), dialog.heard);
    dialog.combo.SetItems({});
    Press(VirtualKey::Down);
    EXPECT_EQ(std::nullopt, dialog.combo.Selected());
}

TEST_F(Keyboard, ArrowsCountInTheEditOfAnUpDown) {
    dialog.number.SetNumber(9);
    dialog.number.SetFocus();
    Press(VirtualKey::Up);
    Press(VirtualKey::Up);
    EXPECT_EQ(10, dialog.number.Number());
    Press(VirtualKey::Down);
    EXPECT_EQ(9, dialog.number.Number());
}

}  // namespace
