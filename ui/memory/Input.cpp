#include "ui/memory/Input.h"

#include <algorithm>

#include "ui/Choices.h"
#include "ui/Controls.h"

namespace ui::memory {
namespace {

void SelectNone(ListView& list) {
    if (list.RowCount() > 0) list.UserSelected(0, list.RowCount() - 1, false);
}

// Where a key leads from the focused row of a list that has rows.
size_t Destination(const ListView& list, VirtualKey key) {
    const size_t last = list.RowCount() - 1;
    const std::optional<size_t> from = list.FocusedRow();
    switch (key) {
        case VirtualKey::Up:
            return std::max<size_t>(from.value_or(0), 1) - 1;
        case VirtualKey::Down:
            return from ? std::min(*from + 1, last) : 0;
        case VirtualKey::End:
            return last;
        default:
            return 0;
    }
}

}  // namespace

void RowSelection::Click(ListView& list, size_t row, Modifier modifier) {
    if (list.Style().singleSelection || modifier == Modifier::None) {
        SelectAlone(list, row);
    } else if (modifier == Modifier::Shift) {
        SelectFromMark(list, row);
    } else {
        Toggle(list, row);
    }
}

void RowSelection::ClickBesideRows(ListView& list) {
    SelectNone(list);
}

void RowSelection::RightClick(ListView& list, size_t row) {
    if (list.IsSelected(row)) {
        list.UserFocusedRow(row);
    } else {
        SelectAlone(list, row);
    }
}

void RowSelection::Move(ListView& list, VirtualKey key, Modifier modifier) {
    if (list.RowCount() == 0) return;
    const size_t row = Destination(list, key);
    if (list.Style().singleSelection || modifier == Modifier::None) {
        SelectAlone(list, row);
    } else if (modifier == Modifier::Shift) {
        SelectFromMark(list, row);
    } else {
        list.UserFocusedRow(row);
    }
}

void RowSelection::SelectAlone(ListView& list, size_t row) {
    const bool isAlone = list.Style().singleSelection && list.IsSelected(row);
    if (!isAlone) {
        SelectNone(list);
        list.UserSelected(row, row, true);
    }
    list.UserFocusedRow(row);
    marks_[&list] = row;
}

void RowSelection::SelectFromMark(ListView& list, size_t row) {
    const size_t mark = MarkOf(list, row);
    SelectNone(list);
    list.UserSelected(std::min(mark, row), std::max(mark, row), true);
    list.UserFocusedRow(row);
    marks_[&list] = mark;
}

void RowSelection::Toggle(ListView& list, size_t row) {
    list.UserSelected(row, row, !list.IsSelected(row));
    list.UserFocusedRow(row);
    marks_[&list] = row;
}

// The program may have filled the list anew or selected another row since the mark was set.
size_t RowSelection::MarkOf(const ListView& list, size_t row) const {
    const auto mark = marks_.find(&list);
    if (mark != marks_.end() && mark->second < list.RowCount() && list.IsSelected(mark->second)) return mark->second;
    return list.FocusedRow().value_or(row);
}

namespace {

void PressTab(Dialog& dialog, bool backwards) {
    if (Control* next = NextTabStop(dialog, backwards)) MoveFocus(dialog, *next);
}

// A focused push button is pressed whatever the key's usual meaning is.
bool ClickPushButton(Control* focus) {
    if (auto* button = dynamic_cast<Button*>(focus)) {
        button->UserClicked();
    } else if (auto* iconButton = dynamic_cast<IconButton*>(focus)) {
        iconButton->UserClicked();
    } else {
        return false;
    }
    return true;
}

bool HasRoomFor(const Edit& edit, size_t units) {
    const size_t longest = edit.Style().longest;
    return longest == 0 || edit.Text().size() + units <= longest;
}

void PressEnter(Dialog& dialog) {
    if (ClickPushButton(dialog.Focus())) return;
    auto* edit = dynamic_cast<Edit*>(dialog.Focus());
    if (edit == nullptr || !edit->Style().multiLine || edit->Style().readOnly) {
        dialog.UserPressedOk();
    } else if (!edit->IsReadOnly() && HasRoomFor(*edit, 2)) {
        edit->UserTyped(edit->Text() + L"\r\n");
    }
}

void MoveChoice(ChoiceControl& choice, VirtualKey key) {
    if (choice.Items().empty()) return;
    const size_t last = choice.Items().size() - 1;
    const std::optional<size_t> before = choice.Selected();
    std::optional<size_t> index = before;
    if (key == VirtualKey::Up) index = std::max<size_t>(before.value_or(0), 1) - 1;
    if (key == VirtualKey::Down) index = before ? std::min(*before + 1, last) : 0;
    if (key == VirtualKey::Home) index = 0;
    if (key == VirtualKey::End) index = last;
    if (index != before) choice.UserSelected(index);
}

bool IsCaretKey(VirtualKey key) {
    return key == VirtualKey::Home || key == VirtualKey::End;
}

void Step(const Dialog& dialog, const Edit& edit, VirtualKey key) {
    if (key != VirtualKey::Up && key != VirtualKey::Down) return;
    for (Control* control : dialog.Controls())
        if (auto* arrows = dynamic_cast<UpDown*>(control); arrows != nullptr && &arrows->Buddy() == &edit)
            arrows->UserStepped(key == VirtualKey::Up ? 1 : -1);
}

void PressInList(ListView& list, RowSelection& rows, VirtualKey key, Modifier modifier) {
    if (list.UserPressed({.key = static_cast<int>(key)})) return;
    list.UserPressedKey(static_cast<int>(key));
    const bool moves = key != VirtualKey::Space && key != VirtualKey::Delete;
    if (moves && list.HasFocus()) rows.Move(list, key, modifier);
}

void PressInControl(Dialog& dialog, RowSelection& rows, VirtualKey key, Modifier modifier) {
    Control* focus = dialog.Focus();
    if (auto* list = dynamic_cast<ListView*>(focus)) {
        PressInList(*list, rows, key, modifier);
    } else if (auto* edit = dynamic_cast<Edit*>(focus)) {
        Step(dialog, *edit, key);
    } else if (key == VirtualKey::Space) {
        auto* check = dynamic_cast<CheckBox*>(focus);
        if (!ClickPushButton(focus) && check != nullptr) check->UserClicked();
    } else if (auto* choice = dynamic_cast<ChoiceControl*>(focus)) {
        if (dynamic_cast<EditableCombo*>(focus) == nullptr || !IsCaretKey(key)) MoveChoice(*choice, key);
    }
}

}  // namespace

bool CanTakeFocus(const Control& control) {
    return control.TakesFocus() && control.IsVisible() && control.IsEnabled();
}

Control* NextTabStop(const Dialog& dialog, bool backwards) {
    const std::vector<Control*>& controls = dialog.Controls();
    const size_t count = controls.size();
    const auto focused = std::find(controls.begin(), controls.end(), dialog.Focus());
    const auto start = static_cast<size_t>(focused - controls.begin());
    for (size_t step = 1; step <= count; ++step) {
        const size_t ahead = start == count ? step - 1 : (start + step) % count;
        const size_t behind = (start + count - step) % count;
        Control* const next = controls[backwards ? behind : ahead];
        if (CanTakeFocus(*next)) return next;
    }
    return nullptr;
}

void MoveFocus(Dialog& dialog, Control& control) {
    Control* const old = dialog.Focus();
    if (old == &control) return;
    if (old != nullptr) old->UserLeft();
    if (dialog.Focus() == nullptr && CanTakeFocus(control)) control.UserFocused();
}

void PressKey(Dialog& dialog, RowSelection& rows, VirtualKey key, Modifier modifier) {
    switch (key) {
        case VirtualKey::Tab:
            PressTab(dialog, modifier == Modifier::Shift);
            break;
        case VirtualKey::Enter:
            PressEnter(dialog);
            break;
        case VirtualKey::Escape:
            dialog.UserPressedCancel();
            break;
        default:
            PressInControl(dialog, rows, key, modifier);
    }
}

}  // namespace ui::memory
