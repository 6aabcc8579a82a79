#include "ui/memory/RowSelection.h"

#include <algorithm>

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
    if (mark != marks_.end() && mark->second < list.RowCount() && list.IsSelected(mark->second))
        return mark->second;
    return list.FocusedRow().value_or(row);
}

}  // namespace ui::memory
