// How clicks and keys select the rows of a list in report view: one row, with Ctrl row by row, with Shift a
// range.
#pragma once

#include <cstddef>
#include <map>

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

// Remembers for each list of a window the row from which Shift selects.
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

}  // namespace ui::memory
