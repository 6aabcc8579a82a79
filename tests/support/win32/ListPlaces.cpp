#include "tests/support/win32/ListPlaces.h"

#include <commctrl.h>

#include <algorithm>

namespace tests {
namespace {

LVHITTESTINFO HitTest(HWND list, POINT at) {
    LVHITTESTINFO test{};
    test.pt = at;
    SendMessageW(list, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&test));
    return test;
}

RECT RectOf(HWND list, size_t row, size_t column) {
    SendMessageW(list, LVM_ENSUREVISIBLE, row, FALSE);
    RECT rect{};
    rect.left = LVIR_LABEL;
    if (column == 0) {
        SendMessageW(list, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&rect));
    } else {
        rect.top = static_cast<LONG>(column);
        SendMessageW(list, LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&rect));
    }
    return rect;
}

}  // namespace

POINT PlaceOfCell(HWND list, size_t row, size_t column) {
    RECT cell = RectOf(list, row, column);
    RECT client{};
    GetClientRect(list, &client);
    if (cell.left >= client.right || cell.right <= 0) {
        SendMessageW(list, LVM_SCROLL, static_cast<WPARAM>(cell.left), 0);
        cell = RectOf(list, row, column);
    }
    const LONG right = std::min(cell.right, client.right);
    return {(cell.left + right) / 2, (cell.top + cell.bottom) / 2};
}

std::optional<POINT> PlaceOfCheckBox(HWND list, size_t row) {
    const RECT label = RectOf(list, row, 0);
    const LONG y = (label.top + label.bottom) / 2;
    for (LONG x = 0; x < label.left; ++x) {
        // A little inside of where the box begins.
        if ((HitTest(list, {x, y}).flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON) return POINT{x + 4, y};
    }
    return std::nullopt;
}

std::optional<POINT> PlaceBesideRows(HWND list) {
    RECT client{};
    GetClientRect(list, &client);
    for (const POINT at : {POINT{client.right / 2, client.bottom - 2}, POINT{client.right - 2, client.bottom / 2}})
        if (HitTest(list, at).iItem < 0) return at;
    return std::nullopt;
}

POINT PlaceOfHeader(HWND header, size_t column) {
    RECT rect{};
    SendMessageW(header, HDM_GETITEMRECT, column, reinterpret_cast<LPARAM>(&rect));
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

}  // namespace tests
