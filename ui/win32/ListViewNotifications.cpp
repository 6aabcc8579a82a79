// What list view windows report and ask for.
#include <algorithm>

#include "text/Case.h"
#include "ui/win32/ListViewMirror.h"

namespace ui::win32 {
namespace {

constexpr UINT UnchosenState = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT ChosenState = INDEXTOSTATEIMAGEMASK(2);

template <class Notification>
const Notification& As(const NMHDR& notification) {
    return reinterpret_cast<const Notification&>(notification);
}

}  // namespace

std::optional<LRESULT> ListViewMirror::Answer(NMHDR& question) const {
    switch (question.code) {
        case static_cast<UINT>(LVN_GETDISPINFOW):
            FillCell(reinterpret_cast<NMLVDISPINFOW&>(question).item);
            return 0;
        case static_cast<UINT>(LVN_ODFINDITEMW):
            return FindRow(As<NMLVFINDITEMW>(question));
        default:
            return std::nullopt;
    }
}

void ListViewMirror::FillCell(LVITEMW& item) const {
    const auto row = static_cast<size_t>(item.iItem);
    const auto column = static_cast<size_t>(item.iSubItem);
    if (row >= list_.RowCount() || column >= list_.Columns().size()) return;
    if ((item.mask & LVIF_TEXT) != 0) {
        std::wstring& text = cellTexts_[nextCellText_++ % cellTexts_.size()];
        text = list_.CellText(row, column);
        item.pszText = text.data();
    }
    if ((item.mask & LVIF_STATE) != 0 && column == 0 && list_.Style().checkBoxes) {
        item.stateMask |= LVIS_STATEIMAGEMASK;
        item.state = (item.state & ~UINT{LVIS_STATEIMAGEMASK}) | (list_.IsChecked(row) ? ChosenState : UnchosenState);
    }
}

// The user types the beginning of a row's first cell.
LRESULT ListViewMirror::FindRow(const NMLVFINDITEMW& wanted) const {
    constexpr LRESULT NoRow = -1;
    const size_t count = list_.RowCount();
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) return NoRow;
    const std::wstring beginning = text::Upper(wanted.lvfi.psz);
    const auto start = static_cast<size_t>(std::max(wanted.iStart, 0));
    for (size_t i = 0; i < count; ++i) {
        const size_t row = (start + i) % count;
        if (RowBeginsWith(row, beginning)) return static_cast<LRESULT>(row);
    }
    return NoRow;
}

bool ListViewMirror::RowBeginsWith(size_t row, std::wstring_view beginning) const {
    const std::wstring cell = list_.CellText(row, 0);
    return cell.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), cell.begin(),
                      [](wchar_t wanted, wchar_t unit) { return wanted == text::Upper(unit); });
}

LRESULT ListViewMirror::OnNotify(const NMHDR& notification) {
    switch (notification.code) {
        case static_cast<UINT>(LVN_ITEMCHANGED):
            SelectionChanged(As<NMLISTVIEW>(notification));
            FocusChanged(As<NMLISTVIEW>(notification));
            break;
        case static_cast<UINT>(LVN_ODSTATECHANGED):
            RangeChanged(As<NMLVODSTATECHANGE>(notification));
            break;
        case static_cast<UINT>(NM_CLICK):
            Pressed(As<NMITEMACTIVATE>(notification), Press::Click);
            break;
        case static_cast<UINT>(NM_DBLCLK):
            Pressed(As<NMITEMACTIVATE>(notification), Press::DoubleClick);
            break;
        case static_cast<UINT>(NM_RCLICK):
            Pressed(As<NMITEMACTIVATE>(notification), Press::RightClick);
            break;
        case static_cast<UINT>(LVN_KEYDOWN):
            KeyPressed(As<NMLVKEYDOWN>(notification).wVKey);
            break;
        case static_cast<UINT>(LVN_COLUMNCLICK):
            list_.UserClickedHeader(static_cast<size_t>(As<NMLISTVIEW>(notification).iSubItem));
            break;
        case static_cast<UINT>(HDN_ITEMCHANGEDW):
            ColumnResized(As<NMHEADERW>(notification));
            break;
        case static_cast<UINT>(NM_SETFOCUS):
            Focused();
            break;
        case static_cast<UINT>(NM_KILLFOCUS):
            Left();
            break;
        default:
            break;
    }
    return 0;
}

// The old state that comes with a change is not always what was told before, so the new one counts wherever
// it says something. Row -1 stands for all rows.
void ListViewMirror::SelectionChanged(const NMLISTVIEW& change) {
    const bool selected = (change.uNewState & LVIS_SELECTED) != 0;
    if ((!selected && (change.uOldState & LVIS_SELECTED) == 0) || list_.RowCount() == 0) return;
    const bool all = change.iItem < 0;
    const size_t first = all ? 0 : static_cast<size_t>(change.iItem);
    list_.UserSelected(first, all ? list_.RowCount() - 1 : first, selected);
}

void ListViewMirror::FocusChanged(const NMLISTVIEW& change) {
    const auto row = static_cast<size_t>(change.iItem);
    if ((change.uNewState & LVIS_FOCUSED) != 0) {
        if (change.iItem >= 0) list_.UserFocusedRow(row);
    } else if ((change.uOldState & LVIS_FOCUSED) != 0 && (change.iItem < 0 || list_.FocusedRow() == row)) {
        list_.UserFocusedRow(std::nullopt);
    }
}

// A list that gets the focus marks its first row where none is marked, also when it is the program that gives
// it the focus.
void ListViewMirror::TakeShown() {
    const int row = Next(AllRows, LVNI_FOCUSED);
    list_.UserFocusedRow(row < 0 ? std::nullopt : std::optional(static_cast<size_t>(row)));
}

void ListViewMirror::RangeChanged(const NMLVODSTATECHANGE& change) {
    if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) == 0 || change.iFrom < 0) return;
    list_.UserSelected(static_cast<size_t>(change.iFrom), static_cast<size_t>(change.iTo),
                       (change.uNewState & LVIS_SELECTED) != 0);
}

void ListViewMirror::Pressed(const NMITEMACTIVATE& place, Press press) {
    LVHITTESTINFO test{};
    test.pt = place.ptAction;
    Send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&test));
    ListHit hit;
    if (test.iItem >= 0) {
        hit.row = static_cast<size_t>(test.iItem);
        hit.column = static_cast<size_t>(test.iSubItem);
    }
    // The system leaves it to the owner of the data to turn a check mark over; the second click of a quick
    // pair on a check box is one more turn, not a double click.
    const bool onBox = hit.row && list_.Style().checkBoxes && (test.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON;
    if (onBox && press != Press::RightClick) {
        SetFocus(Window());
        ToggleCheck(*hit.row);
        press = Press::Click;
    }
    if (press == Press::Click) list_.UserClicked(hit);
    if (press == Press::DoubleClick) list_.UserDoubleClicked(hit);
    if (press == Press::RightClick) list_.UserRightClicked(hit);
}

void ListViewMirror::KeyPressed(int virtualKey) {
    list_.UserPressedKey(virtualKey);
}

// What the user is about to change has to be what he sees: where notifications were missed, the window is
// right.
void ListViewMirror::FollowSelection() {
    TakeShown();
    if (static_cast<size_t>(Send(LVM_GETSELECTEDCOUNT)) == list_.SelectedRows().size()) return;
    list_.UserSelected(0, list_.RowCount() - 1, false);
    for (int selected = Next(AllRows, LVNI_SELECTED); selected >= 0; selected = Next(selected, LVNI_SELECTED))
        list_.UserSelected(static_cast<size_t>(selected), static_cast<size_t>(selected), true);
}

// Where the row has the focus, showing its box announces it already.
void ListViewMirror::ToggleCheck(size_t row) {
    list_.UserToggledCheck(row);
    if (list_.FocusedRow() != row) AnnounceCheck(row);
}

void ListViewMirror::ColumnResized(const NMHEADERW& change) {
    const auto column = static_cast<size_t>(change.iItem);
    if (change.pitem == nullptr || (change.pitem->mask & HDI_WIDTH) == 0 || column >= list_.Columns().size()) return;
    list_.UserResizedColumn(column, change.pitem->cxy);
}

}  // namespace ui::win32
