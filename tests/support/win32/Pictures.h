// What pictures look like in windows, and the drawings that they have to be.
#pragma once

#include <windows.h>

#include <cstdint>
#include <set>
#include <vector>

#include "ui/Controls.h"
#include "ui/win32/IconLoader.h"

namespace tests {

// Colours without their alpha, row by row.
struct Points {
    ui::Size size;
    std::vector<uint32_t> colors;
    bool operator==(const Points&) const = default;
};

inline constexpr uint32_t White = 0xFFFFFF;

// The inside of a window as it paints itself.
Points PaintingOf(HWND window);

// The icon in its own size upon a ground; nothing of no icon.
Points PointsOf(HICON icon, uint32_t ground = White);
// The drawing in a square of so many pixels upon a white ground, from the file that holds it.
const Points& DrawingOf(ui::Icon icon, int size);

// The same as an icon.
ui::win32::IconHandle LoadDrawing(ui::Icon icon, int size);

// The sizes that the file holds; that of 256 pixels it calls 0.
std::set<int> DrawnSizes(ui::Icon icon);

// Whether the button paints itself with this drawing over its middle, in its pale form where it is disabled.
bool PaintsDrawing(HWND window, ui::IconButton& button, ui::Icon icon);

// Every picture of the program.
const std::vector<ui::Icon>& AllPictures();

}  // namespace tests
