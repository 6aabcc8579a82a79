// What the user does with single controls.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/win32/Input.h"
#include "tests/support/win32/ListPlaces.h"
#include "tests/support/win32/Win32Robot.h"
#include "ui/Choices.h"
#include "ui/Controls.h"

#include <commctrl.h>

namespace tests {
namespace {

// The part of a control that takes text: the control, or the edit within an editable combo.
HWND EditOf(HWND window) {
    const HWND inner = FindWindowExW(window, nullptr, L"Edit", nullptr);
    return inner == nullptr ? window : inner;
}

bool IsPressedByClick(const ui::Control& control) {
    return dynamic_cast<const ui::Button*>(&control) != nullptr ||
           dynamic_cast<const ui::IconButton*>(&control) != nullptr ||
           dynamic_cast<const ui::CheckBox*>(&control) != nullptr;
}

void ChooseInCombo(HWND combo, int index) {
    const auto notify = [combo](int notification) {
        const auto id = static_cast<WPARAM>(GetDlgCtrlID(combo));
        SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(id, notification), reinterpret_cast<LPARAM>(combo));
    };
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
    notify(CBN_SELENDOK);
    notify(CBN_SELCHANGE);
}

void ChooseInListBox(HWND list, int index) {
    SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
    RECT item{};
    SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    input::Click(list, {(item.left + item.right) / 2, (item.top + item.bottom) / 2});
}

}  // namespace

void Win32Robot::Click(int id) {
    Use(id, [this](const ui::Control& control, HWND window) {
        if (IsPressedByClick(control)) {
            // A mouse button that goes down on a push button also makes it the one that Enter presses.
            input::Focus(GetParent(window), window);
            if (IsUsable(control, window)) input::Click(window, input::CenterOf(window));
        } else if (control.TakesFocus()) {
            input::Focus(GetParent(window), window);
        }
    });
}

void Win32Robot::Type(int id, std::wstring_view text) {
    Use(id, [this, &text](const ui::Control& control, HWND window) {
        const HWND edit = EditOf(window);
        input::Focus(GetParent(window), window);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        const auto* const plain = dynamic_cast<const ui::Edit*>(&control);
        const bool manyLines = plain != nullptr && plain->Style().multiLine;
        constexpr wchar_t Backspace = L'\b';
        if (text.empty()) input::Type(edit, Backspace);
        for (const wchar_t unit : text) {
            if (unit == L'\r' || (unit == L'\n' && !manyLines)) continue;
            if (!IsUsable(control, window) || GetFocus() != edit) return;
            input::Type(edit, unit == L'\n' ? L'\r' : unit);
        }
    });
}

void Win32Robot::Paste(int id, const std::wstring& text) {
    Use(id, [&text](const ui::Control&, HWND window) {
        const HWND edit = EditOf(window);
        input::Focus(GetParent(window), window);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        input::Paste(edit, text);
    });
}

void Win32Robot::SetFromOutside(int id, const std::wstring& text) {
    Use(id, [&text](const ui::Control&, HWND window) { SetWindowTextW(EditOf(window), text.c_str()); });
}

void Win32Robot::Drop(int id, const std::wstring& path) {
    Act([this, id, &path](HWND dialog) { input::Drop(GetDlgItem(dialog, id), path); });
}

void Win32Robot::Choose(int id, int index) {
    Use(id, [id, index](const ui::Control& control, HWND window) {
        const auto* const choice = dynamic_cast<const ui::ChoiceControl*>(&control);
        if (choice == nullptr || index < 0 || index >= static_cast<int>(choice->Items().size())) {
            ADD_FAILURE() << "control " << id << " has no item " << index;
            return;
        }
        input::Focus(GetParent(window), window);
        if (dynamic_cast<const ui::ListBox*>(choice) != nullptr) {
            ChooseInListBox(window, index);
        } else {
            ChooseInCombo(window, index);
        }
    });
}

void Win32Robot::Step(int id, int steps) {
    Use(id, [this, steps](const ui::Control& control, HWND window) {
        RECT area{};
        GetClientRect(window, &area);
        const LONG quarter = area.bottom / 4;
        for (int i = 0; i < std::abs(steps) && IsUsable(control, window); ++i)
            input::Click(window, {area.right / 2, steps > 0 ? quarter : area.bottom - quarter});
    });
}

void Win32Robot::UseList(int id, const std::function<void(ui::ListView&, HWND)>& gesture) {
    Use(id, [id, &gesture](ui::Control& control, HWND window) {
        auto* const list = dynamic_cast<ui::ListView*>(&control);
        if (list == nullptr) {
            ADD_FAILURE() << "control " << id << " is no list";
        } else {
            gesture(*list, window);
        }
    });
}

void Win32Robot::UseRow(int id, size_t row, const std::function<void(ui::ListView&, HWND)>& gesture) {
    UseList(id, [id, row, &gesture](ui::ListView& list, HWND window) {
        if (row >= list.RowCount()) {
            ADD_FAILURE() << "list " << id << " has no row " << row;
        } else {
            gesture(list, window);
        }
    });
}

void Win32Robot::ClickRow(int id, size_t row, Held held) {
    UseRow(id, row,
           [row, held](const ui::ListView&, HWND window) { input::Click(window, PlaceOfCell(window, row, 0), held); });
}

void Win32Robot::DoubleClickRow(int id, size_t row) {
    UseRow(id, row,
           [row](const ui::ListView&, HWND window) { input::DoubleClick(window, PlaceOfCell(window, row, 0)); });
}

void Win32Robot::RightClickCell(int id, size_t row, size_t column) {
    UseRow(id, row, [id, row, column](const ui::ListView& list, HWND window) {
        if (column >= list.Columns().size()) {
            ADD_FAILURE() << "list " << id << " has no column " << column;
        } else {
            input::RightClick(window, PlaceOfCell(window, row, column));
        }
    });
}

void Win32Robot::ClickBelowRows(int id) {
    UseList(id, [id](const ui::ListView&, HWND window) {
        if (const std::optional<POINT> place = PlaceBesideRows(window)) {
            input::Click(window, *place);
        } else {
            ADD_FAILURE() << "rows fill the whole of list " << id;
        }
    });
}

void Win32Robot::RightClickBelowRows(int id) {
    UseList(id, [id](const ui::ListView&, HWND window) {
        if (const std::optional<POINT> place = PlaceBesideRows(window)) {
            input::RightClick(window, *place);
        } else {
            ADD_FAILURE() << "rows fill the whole of list " << id;
        }
    });
}

void Win32Robot::ClickCheckBox(int id, size_t row) {
    UseRow(id, row, [id, row](const ui::ListView&, HWND window) {
        if (const std::optional<POINT> place = PlaceOfCheckBox(window, row)) {
            input::Click(window, *place);
        } else {
            ADD_FAILURE() << "list " << id << " has no check boxes";
        }
    });
}

void Win32Robot::DoubleClickCheckBox(int id, size_t row) {
    UseRow(id, row, [id, row](const ui::ListView&, HWND window) {
        if (const std::optional<POINT> place = PlaceOfCheckBox(window, row)) {
            input::DoubleClick(window, *place);
        } else {
            ADD_FAILURE() << "list " << id << " has no check boxes";
        }
    });
}

void Win32Robot::ClickHeader(int id, size_t column) {
    UseList(id, [id, column](const ui::ListView& list, HWND window) {
        if (column >= list.Columns().size()) {
            ADD_FAILURE() << "list " << id << " has no column " << column;
            return;
        }
        const auto header = reinterpret_cast<HWND>(SendMessageW(window, LVM_GETHEADER, 0, 0));
        input::Focus(GetParent(window), window);
        input::Click(header, PlaceOfHeader(header, column));
    });
}

}  // namespace tests
