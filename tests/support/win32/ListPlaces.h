// Where the parts of a list view are, in pixels of its client area. Asking for a row brings it into view.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>

namespace tests {

POINT PlaceOfCell(HWND list, size_t row, size_t column);
// None when the list shows no check box there.
std::optional<POINT> PlaceOfCheckBox(HWND list, size_t row);
// None when rows fill all of the list.
std::optional<POINT> PlaceBesideRows(HWND list);
// In the header's client area.
POINT PlaceOfHeader(HWND header, size_t column);

}  // namespace tests
