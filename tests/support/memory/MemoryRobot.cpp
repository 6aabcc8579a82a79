#include "tests/support/memory/MemoryRobot.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

#include "tests/support/memory/Invariants.h"
#include "tests/support/memory/Typing.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/memory/Input.h"

namespace tests {
namespace {

using ui::memory::Modifier;
using ui::memory::VirtualKey;

// The system's own commands of the system menu.
constexpr int CommandMinimize = 0xF020;
constexpr int CommandClose = 0xF060;
constexpr int CommandRestore = 0xF120;

Modifier ModifierFor(Held held) {
    switch (held) {
        case Held::Shift:
            return Modifier::Shift;
        case Held::Control:
            return Modifier::Control;
        case Held::Nothing:
        case Held::Alt:
        case Held::AltGr:
            break;
    }
    return Modifier::None;
}

const ui::MenuItem* FindMenuItem(const ui::Dialog& dialog, int command) {
    for (const ui::Menu& menu : dialog.MenuBar())
        for (const ui::MenuItem& item : menu.items)
            if (item.command == command) return &item;
    return nullptr;
}

}  // namespace

MemoryRobot::MemoryRobot(ui::memory::MemoryScreen& screen) : screen_(screen) {
    screen_.SetUser(*this);
    screen_.RememberShown();
}

// A gesture on the dialog whose script is running. What a handler throws ends the dialog, as with real
// windows, whose procedures let nothing through.
template <class Gesture>
void MemoryRobot::Act(Gesture gesture) {
    ui::Dialog& dialog = Top();
    if (dialog.HasEnded()) {
        ADD_FAILURE() << "the dialog has ended and cannot be used";
        return;
    }
    try {
        gesture();
    } catch (...) {
        Window()->Fail(std::current_exception());
    }
    if (!dialog.HasEnded()) CheckWindows(dialog);
}

// A click on a control of kind C: gives it the focus, then acts.
template <class C, class Gesture>
void MemoryRobot::Use(int id, Gesture gesture) {
    Act([this, id, &gesture] {
        auto* const control = Top().Has(id) ? dynamic_cast<C*>(&Top().Find(id)) : nullptr;
        if (control == nullptr) {
            ADD_FAILURE() << "the dialog has no such control " << id;
        } else if (!IsUsable(*control)) {
            ADD_FAILURE() << "control " << id << " is hidden or disabled";
        } else if (TakeFocus(*control)) {
            gesture(*control);
        }
    });
}

template <class Gesture>
void MemoryRobot::UseRow(int id, size_t row, Gesture gesture) {
    Use<ui::ListView>(id, [id, row, &gesture](ui::ListView& list) {
        if (row < list.RowCount()) {
            gesture(list);
        } else {
            ADD_FAILURE() << "list " << id << " has no row " << row;
        }
    });
}

ui::memory::MemoryWindow* MemoryRobot::Window() const {
    return screen_.WindowOf(Top());
}

bool MemoryRobot::IsUsable(const ui::Control& control) const {
    return control.IsVisible() && control.IsEnabled() && !Top().HasEnded() && !Window()->IsMinimized();
}

// False when the handler of the control that lost the focus took this one away.
bool MemoryRobot::TakeFocus(ui::Control& control) const {
    if (control.TakesFocus()) ui::memory::MoveFocus(Top(), control);
    return IsUsable(control) && (!control.TakesFocus() || control.HasFocus());
}

void MemoryRobot::Click(int id) {
    Use<ui::Control>(id, [](ui::Control& control) {
        if (auto* button = dynamic_cast<ui::Button*>(&control)) button->UserClicked();
        if (auto* button = dynamic_cast<ui::IconButton*>(&control)) button->UserClicked();
        if (auto* check = dynamic_cast<ui::CheckBox*>(&control)) check->UserClicked();
    });
}

void MemoryRobot::ClickRow(int id, size_t row, Held held) {
    UseRow(id, row, [this, row, held](ui::ListView& list) {
        Rows().Click(list, row, ModifierFor(held));
        list.UserClicked({row, 0});
    });
}

void MemoryRobot::DoubleClickRow(int id, size_t row) {
    UseRow(id, row, [this, row](ui::ListView& list) {
        Rows().Click(list, row, Modifier::None);
        list.UserClicked({row, 0});
        if (IsUsable(list)) list.UserDoubleClicked({row, 0});
    });
}

void MemoryRobot::RightClickCell(int id, size_t row, size_t column) {
    UseRow(id, row, [this, id, row, column](ui::ListView& list) {
        if (column >= list.Columns().size()) {
            ADD_FAILURE() << "list " << id << " has no column " << column;
            return;
        }
        Rows().RightClick(list, row);
        list.UserRightClicked({row, column});
    });
}

void MemoryRobot::ClickBelowRows(int id) {
    Use<ui::ListView>(id, [this](ui::ListView& list) {
        Rows().ClickBesideRows(list);
        list.UserClicked({});
    });
}

void MemoryRobot::RightClickBelowRows(int id) {
    Use<ui::ListView>(id, [this](ui::ListView& list) {
        Rows().ClickBesideRows(list);
        list.UserRightClicked({});
    });
}

void MemoryRobot::ClickCheckBox(int id, size_t row) {
    UseRow(id, row, [id, row](ui::ListView& list) {
        if (list.Style().checkBoxes) {
            list.UserToggledCheck(row);
            list.UserClicked({row, 0});
        } else {
            ADD_FAILURE() << "list " << id << " has no check boxes";
        }
    });
}

// As real lists have it: one click and one more.
void MemoryRobot::DoubleClickCheckBox(int id, size_t row) {
    ClickCheckBox(id, row);
    ClickCheckBox(id, row);
}

void MemoryRobot::ClickHeader(int id, size_t column) {
    Use<ui::ListView>(id, [id, column](ui::ListView& list) {
        if (column >= list.Columns().size()) {
            ADD_FAILURE() << "list " << id << " has no column " << column;
        } else if (list.Style().sortableHeaders) {
            list.UserClickedHeader(column);
        }
    });
}

void MemoryRobot::Type(int id, std::wstring_view text) {
    Use<ui::Control>(id, [this, &text](ui::Control& control) {
        TypeInto(control, text, [this, &control] { return IsUsable(control) && control.HasFocus(); });
    });
}

void MemoryRobot::Paste(int id, const std::wstring& text) {
    Use<ui::Control>(id, [&text](ui::Control& control) { PasteInto(control, text); });
}

void MemoryRobot::SetFromOutside(int id, const std::wstring& text) {
    Use<ui::Edit>(id, [&text](ui::Edit& edit) { edit.UserTyped(text); });
}

// Where nothing can be dropped, nothing happens; dropping does not move the focus.
void MemoryRobot::Drop(int id, const std::wstring& path) {
    Act([this, id, &path] {
        auto* const edit = dynamic_cast<ui::Edit*>(&Top().Find(id));
        if (edit != nullptr && edit->TakesDrops()) edit->UserTyped(path);
    });
}

void MemoryRobot::Choose(int id, int index) {
    Use<ui::ChoiceControl>(id, [id, index](ui::ChoiceControl& choice) {
        if (index >= 0 && index < static_cast<int>(choice.Items().size())) {
            choice.UserSelected(index);
        } else {
            ADD_FAILURE() << "control " << id << " has no item " << index;
        }
    });
}

void MemoryRobot::Step(int id, int steps) {
    Use<ui::UpDown>(id, [this, steps](ui::UpDown& arrows) {
        if (IsUsable(arrows.Buddy()) && !TakeFocus(arrows.Buddy())) return;
        for (int i = 0; i < std::abs(steps) && IsUsable(arrows); ++i) arrows.UserStepped(steps < 0 ? -1 : 1);
    });
}

void MemoryRobot::Press(Key key, Held held) {
    Act([this, key, held] {
        const bool altGr = held == Held::AltGr;
        const ui::KeyChord chord{.key = CodeOf(key),
                                 .control = held == Held::Control || altGr,
                                 .alt = held == Held::Alt || altGr,
                                 .shift = held == Held::Shift};
        if (Top().UserPressed(chord)) return;
        // With Alt, keys are the menu's and the system's.
        if (key <= Key::End && held != Held::Alt && !altGr)
            ui::memory::PressKey(Top(), Rows(), static_cast<VirtualKey>(CodeOf(key)), ModifierFor(held));
    });
}

void MemoryRobot::ChooseMenu(int command) {
    Act([this, command] {
        const ui::MenuItem* const item = FindMenuItem(Top(), command);
        if (item == nullptr || !item->enabled || Window()->IsMinimized()) {
            ADD_FAILURE() << "menu item " << command << (item == nullptr ? " is missing" : " is disabled");
        } else {
            Top().UserChoseMenu(command);
        }
    });
}

void MemoryRobot::ChooseSystemMenu(int command) {
    if (command == CommandClose) return PressCloseBox();
    if (command == CommandMinimize) return Minimize();
    if (command == CommandRestore) return Restore();
    Act([this, command] {
        const bool known = Top().Style().systemMenu && Top().UserChoseSystemMenu(command);
        if (!known) ADD_FAILURE() << "system menu entry " << command << " is missing";
    });
}

void MemoryRobot::PressCloseBox() {
    Act([this] {
        if (Top().Style().systemMenu) {
            Top().UserPressedCancel();
        } else {
            ADD_FAILURE() << "the dialog has no close box";
        }
    });
}

void MemoryRobot::Resize(ui::Size outerGrowth) {
    Act([this, outerGrowth] {
        if (Top().Style().resizable && !Window()->IsMinimized()) {
            Window()->UserDraggedCorner(outerGrowth);
        } else {
            ADD_FAILURE() << "the dialog cannot be resized";
        }
    });
}

void MemoryRobot::Minimize() {
    Act([this] {
        if (Top().Style().minimizeBox && !Window()->IsMinimized()) {
            Window()->UserMinimized();
        } else {
            ADD_FAILURE() << "the dialog cannot be minimised";
        }
    });
}

void MemoryRobot::Restore() {
    Act([this] {
        if (Window()->IsMinimized()) {
            Window()->UserRestored();
        } else {
            ADD_FAILURE() << "the dialog is not minimised";
        }
    });
}

ui::Size MemoryRobot::OuterSize() {
    const ui::memory::MemoryWindow* const window = Window();
    return window == nullptr ? ui::Size{} : window->OuterSize();
}

void MemoryRobot::CheckWindows(ui::Dialog& dialog) {
    CheckInvariants(dialog);
    const ui::memory::MemoryWindow* const window = screen_.WindowOf(dialog);
    if (window == nullptr) return;
    for (const std::string& part : window->Stale()) ADD_FAILURE() << "the window was not told of " << part;
}

void MemoryRobot::DialogOpened(ui::Dialog& dialog) {
    Robot::DialogOpened(dialog, [&dialog] { dialog.Close(); });
}

int MemoryRobot::BoxOpened(const std::wstring& text, const std::wstring& caption, uint32_t flags) {
    return Robot::BoxOpened(screen_.LastOwner(), text, caption, flags);
}

std::optional<std::wstring> MemoryRobot::FolderPickerOpened() {
    return Robot::FolderPickerOpened(screen_.LastOwner(), screen_.LastFolder());
}

std::optional<std::wstring> MemoryRobot::FilePickerOpened(ui::FilePickerKind /*kind*/) {
    return Robot::FilePickerOpened(screen_.LastOwner(), screen_.LastFilePicker());
}

}  // namespace tests
