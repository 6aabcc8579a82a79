#include "ui/win32/ListViewMirror.h"

#include <utility>

#include "platform/win32/Resolution.h"

namespace ui::win32 {

HWND ListViewMirror::Header() const {
    return reinterpret_cast<HWND>(Send(LVM_GETHEADER));
}

void ListViewMirror::ShowAll() {
    if (list_.Style().checkBoxes) Send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
    ShowExtendedStyle();
    ShowHeaderPictures(platform::win32::DpiOf(Window()));
    ShowColumns();
    ShowRows();
    if (list_.RowCount() != 0) ShowSelection();
}

void ListViewMirror::Show(Aspect aspect) {
    switch (aspect) {
        case Aspect::Text:
            break;  // what its window carries is its name
        case Aspect::Columns:
            ShowColumns();
            break;
        case Aspect::Rows:
            ShowRows();
            break;
        case Aspect::RowChecks:
            ShowChecks();
            break;
        case Aspect::Selection:
            ShowSelection();
            break;
        case Aspect::Scroll:
            Send(LVM_ENSUREVISIBLE, list_.ScrollTarget(), FALSE);
            break;
        default:
            ControlMirror::Show(aspect);
    }
}

void ListViewMirror::ShowExtendedStyle() {
    DWORD style = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
    if (list_.Style().checkBoxes) style |= LVS_EX_CHECKBOXES;
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style));
}

// The pictures of check boxes are made in the size that suits the monitor when the style is switched on.
void ListViewMirror::ShowRescaled(uint32_t dpi) {
    const RedrawPause pause(Window());
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, 0);
    ShowExtendedStyle();
    ShowHeaderPictures(dpi);
}

void ListViewMirror::ShowHeaderPictures(uint32_t dpi) {
    if (!list_.Style().sortableHeaders) return;
    constexpr std::array ByArrow{Icon::SortDescending, Icon::SortAscending};
    const int room = platform::win32::SystemMetric(SM_CXSMICON, dpi);
    ImageListHandle pictures = MakeImageList(ByArrow, PictureSizeFor({room, room}));
    SendMessageW(Header(), HDM_SETIMAGELIST, HDSIL_NORMAL, reinterpret_cast<LPARAM>(pictures.get()));
    headerPictures_.swap(pictures);  // the old ones go once the window has let go of them
}

void ListViewMirror::ShowColumns() {
    const RedrawPause pause(Window());
    const std::vector<Column>& wanted = list_.Columns();
    for (; shownColumns_.size() > wanted.size(); shownColumns_.pop_back())
        Send(LVM_DELETECOLUMN, shownColumns_.size() - 1);
    for (size_t i = 0; i < shownColumns_.size(); ++i) ShowColumn(i);
    while (shownColumns_.size() < wanted.size()) AddColumn(shownColumns_.size());
}

void ListViewMirror::AddColumn(size_t index) {
    const Column& column = list_.Columns()[index];
    shownColumns_.push_back(column);
    LVCOLUMNW shown{};
    shown.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    shown.pszText = shownColumns_[index].header.data();
    shown.cx = column.width;
    shown.iSubItem = static_cast<int>(index);
    Send(LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&shown));
    // Without being told, a header would draw the first of the pictures as soon as it draws any.
    if (list_.Style().sortableHeaders) ShowArrow(index);
}

// Each part that is shown already would be laid out and drawn once more. The width is the window's own: the user
// changes it, too.
void ListViewMirror::ShowColumn(size_t index) {
    const Column& column = list_.Columns()[index];
    const Column before = std::exchange(shownColumns_[index], column);
    LVCOLUMNW shown{};
    if (Send(LVM_GETCOLUMNWIDTH, index) != column.width) shown.mask |= LVCF_WIDTH;
    if (before.header != column.header) shown.mask |= LVCF_TEXT;
    shown.pszText = shownColumns_[index].header.data();
    shown.cx = column.width;
    if (shown.mask != 0) Send(LVM_SETCOLUMNW, index, reinterpret_cast<LPARAM>(&shown));
    if (before.arrow != column.arrow) ShowArrow(index);
}

void ListViewMirror::ShowArrow(size_t index) const {
    const Column& column = list_.Columns()[index];
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    const auto place = static_cast<WPARAM>(index);
    SendMessageW(Header(), HDM_GETITEMW, place, reinterpret_cast<LPARAM>(&item));
    constexpr int PictureAfterTitle = HDF_IMAGE | HDF_BITMAP_ON_RIGHT;
    const bool hasArrow = column.arrow != SortArrow::None;
    item.mask = HDI_FORMAT | HDI_IMAGE;
    item.fmt = hasArrow ? item.fmt | PictureAfterTitle : item.fmt & ~PictureAfterTitle;
    item.iImage = hasArrow ? static_cast<int>(column.arrow) : I_IMAGENONE;
    SendMessageW(Header(), HDM_SETITEMW, place, reinterpret_cast<LPARAM>(&item));
}

// Taking all rows away first forgets selection, focus and scroll position with them.
void ListViewMirror::ShowRows() const {
    const bool wasEmpty = Send(LVM_GETITEMCOUNT) == 0;
    if (wasEmpty && list_.RowCount() == 0) return;
    const RedrawPause pause(Window());
    if (!wasEmpty) Send(LVM_SETITEMCOUNT, 0);
    Send(LVM_SETITEMCOUNT, list_.RowCount());
    Send(LVM_SETSELECTIONMARK, 0, -1);
}

void ListViewMirror::ShowSelection() const {
    const RedrawPause pause(Window());
    if (list_.AreAllSelected() && !list_.Style().singleSelection) {
        SetState(AllRows, LVIS_SELECTED, true);
    } else {
        SelectNone();
        for (const size_t row : list_.SelectedRows()) SetState(static_cast<int>(row), LVIS_SELECTED, true);
    }
    const std::optional<size_t> focused = list_.FocusedRow();
    if (!focused) return;
    SetState(static_cast<int>(*focused), LVIS_FOCUSED, true);
    Send(LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(*focused));
}

// Some systems visit every row of the list when told to change all: that pays only where most rows are
// selected.
void ListViewMirror::SelectNone() const {
    const auto selected = static_cast<size_t>(Send(LVM_GETSELECTEDCOUNT));
    if (selected > list_.RowCount() / 2) return SetState(AllRows, LVIS_SELECTED, false);
    int row = AllRows;
    for (size_t left = selected; left != 0; --left) SetState(row = Next(row, LVNI_SELECTED), LVIS_SELECTED, false);
}

// The first row after this one that is of the kind (LVNI_...); -1: none.
int ListViewMirror::Next(int row, LPARAM kind) const {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), kind));
}

void ListViewMirror::SetState(int row, UINT state, bool on) const {
    LVITEMW item{};
    item.state = on ? state : UINT{};
    item.stateMask = state;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListViewMirror::ShowChecks() const {
    InvalidateRect(Window(), nullptr, FALSE);
    if (const std::optional<size_t> row = list_.FocusedRow()) AnnounceCheck(*row);
}

// The window does not know that the picture which it draws is a state of the row: screen readers would not
// hear of it.
void ListViewMirror::AnnounceCheck(size_t row) const {
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Window(), OBJID_CLIENT, static_cast<LONG>(row) + 1);
}

}  // namespace ui::win32
