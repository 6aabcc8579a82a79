// Whether real list views show what the dialog's lists say. Of their rows, those in view are compared.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "tests/support/win32/WindowChecks.h"
#include "ui/ListView.h"

#include <commctrl.h>

namespace tests {
namespace {

constexpr UINT CheckedImage = 2;
constexpr int AllPictures = HDF_IMAGE | HDF_BITMAP_ON_RIGHT | HDF_BITMAP | HDF_SORTUP | HDF_SORTDOWN;

LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(window, message, wParam, lParam);
}

std::wstring CellOf(HWND list, size_t row, size_t column) {
    std::array<wchar_t, 1024> text{};
    LVITEMW item{};
    item.iSubItem = static_cast<int>(column);
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    Send(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    return text.data();
}

void CheckColumn(HWND list, HWND header, const ui::ListView& said, size_t index) {
    const ui::Column& column = said.Columns()[index];
    std::array<wchar_t, 256> text{};
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_FORMAT | HDI_IMAGE;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    Send(header, HDM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(column.header, text.data());
    const bool sorted = column.arrow != ui::SortArrow::None;
    EXPECT_EQ(sorted ? HDF_IMAGE | HDF_BITMAP_ON_RIGHT : 0, item.fmt & AllPictures) << "picture of a header";
    if (said.Style().sortableHeaders) {
        EXPECT_EQ(sorted ? static_cast<int>(column.arrow) : I_IMAGENONE, item.iImage) << "picture of a header";
    }
    EXPECT_EQ(column.width, Send(list, LVM_GETCOLUMNWIDTH, index));
}

void CheckRow(HWND window, const ui::ListView& list, size_t row) {
    SCOPED_TRACE("row " + std::to_string(row));
    for (size_t column = 0; column < list.Columns().size(); ++column)
        EXPECT_EQ(list.CellText(row, column), CellOf(window, row, column)) << "column " << column;
    const auto state = static_cast<UINT>(Send(window, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK));
    EXPECT_EQ(list.Style().checkBoxes && list.IsChecked(row), (state >> 12) == CheckedImage);
}

// Of very many selected rows only the first ones are compared: each takes the window a while to find.
void CheckSelection(HWND window, const ui::ListView& list) {
    constexpr size_t Enough = 1000;
    std::vector<size_t> said = list.SelectedRows();
    EXPECT_EQ(static_cast<LRESULT>(said.size()), Send(window, LVM_GETSELECTEDCOUNT));
    said.resize(std::min(said.size(), Enough));
    std::vector<size_t> shown;
    for (LRESULT row = -1; shown.size() < Enough;) {
        row = Send(window, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
        if (row < 0) break;
        shown.push_back(static_cast<size_t>(row));
    }
    EXPECT_EQ(said, shown);
    const LRESULT focused = Send(window, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
    EXPECT_EQ(list.FocusedRow() ? static_cast<LRESULT>(*list.FocusedRow()) : -1, focused);
}

// A click anywhere in a row selects it, and a text that a column cuts off is shown when the mouse rests on
// it.
void CheckStyle(HWND window, const ui::ListView& list) {
    const auto style = static_cast<DWORD>(Send(window, LVM_GETEXTENDEDLISTVIEWSTYLE));
    EXPECT_TRUE((style & LVS_EX_FULLROWSELECT) != 0) << "full row selection";
    EXPECT_TRUE((style & LVS_EX_LABELTIP) != 0) << "label tips";
    EXPECT_EQ(list.Style().checkBoxes, (style & LVS_EX_CHECKBOXES) != 0) << "check boxes";
}

}  // namespace

void CheckListView(HWND window, const ui::ListView& list) {
    CheckStyle(window, list);
    const auto header = reinterpret_cast<HWND>(Send(window, LVM_GETHEADER));
    ASSERT_EQ(static_cast<LRESULT>(list.Columns().size()), Send(header, HDM_GETITEMCOUNT));
    for (size_t i = 0; i < list.Columns().size(); ++i) CheckColumn(window, header, list, i);

    ASSERT_EQ(static_cast<LRESULT>(list.RowCount()), Send(window, LVM_GETITEMCOUNT));
    const auto top = static_cast<size_t>(Send(window, LVM_GETTOPINDEX));
    const auto shown = static_cast<size_t>(Send(window, LVM_GETCOUNTPERPAGE));
    for (size_t row = top; row < top + shown && row < list.RowCount(); ++row) CheckRow(window, list, row);
    CheckSelection(window, list);
}

}  // namespace tests
