// What the system's dialog manager and its controls do with keys and clicks, for dialogs that have no real
// window. Text does not come this way: an edit is given its whole new content.
#pragma once

#include <cstddef>
#include <map>

#include "ui/Dialog.h"
#include "ui/ListView.h"

namespace ui::memory {

// The keys that the dialog manager and the controls care for.
enum class VirtualKey : int {
    Tab = key::Tab,
    Enter = key::Enter,
    Escape = key::Escape,
    Space = key::Space,
    End = key::End,
    Home = key::Home,
    Up = key::Up,
    Down = key::Down,
    Delete = key::Delete
};

// Held while another key or the mouse button is pressed.
enum class Modifier { None, Shift, Control };

// How clicks and keys select the rows of a list in report view: one row, with Ctrl row by row, with Shift a
// range. Remembers for each list of a window the row from which Shift selects.
class RowSelection {
  public:
    void Click(ListView& list, size_t row, Modifier modifier);
    void ClickBesideRows(ListView& list);  // selects none
    // Selects the row alone, unless it is one of those selected.
    void RightClick(ListView& list, size_t row);
    // Up, Down, Home or End.
    void Move(ListView& list, VirtualKey key, Modifier modifier);

  private:
    void SelectAlone(ListView& list, size_t row);
    void SelectFromMark(ListView& list, size_t row);
    void Toggle(ListView& list, size_t row);
    size_t MarkOf(const ListView& list, size_t row) const;

    std::map<const ListView*, size_t> marks_;
};

// Shown, enabled and made for the focus.
bool CanTakeFocus(const Control& control);

// The control to which Tab leads from the focused one, going round at the end; the first (backwards: the
// last) when nothing has the focus. None: no control can take it. The focused control itself: no other can.
Control* NextTabStop(const Dialog& dialog, bool backwards = false);

// Gives the control the focus as a click or Tab does: first the control that had it hears of its loss. When
// its handler moved the focus elsewhere or made the control unusable, that stands.
void MoveFocus(Dialog& dialog, Control& control);

// Gives the key to the focused control and the dialog. rows: the row marks of the dialog's window.
void PressKey(Dialog& dialog, RowSelection& rows, VirtualKey key, Modifier modifier = Modifier::None);

}  // namespace ui::memory
