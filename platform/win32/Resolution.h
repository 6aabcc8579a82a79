// What depends on the resolution of a monitor. The functions for it came with later editions of Windows 10
// (1607 and 1703), so they are not imported: where the system lacks one, what it has always had stands in.
#pragma once

#include <windows.h>

#include <cstdint>

namespace platform::win32 {

// The screen as a whole, to be asked what holds for all that is drawn upon it.
class ScreenCanvas {
  public:
    ScreenCanvas() : canvas_(GetDC(nullptr)) {}
    ~ScreenCanvas() { ReleaseDC(nullptr, canvas_); }
    ScreenCanvas(const ScreenCanvas&) = delete;
    ScreenCanvas& operator=(const ScreenCanvas&) = delete;

    HDC Handle() const { return canvas_; }

  private:
    const HDC canvas_;
};

// Of the monitor that shows the window; 96 where there is no scaling.
uint32_t DpiOf(HWND window);
// Pixels of a window part (SM_...) at a resolution.
int SystemMetric(int index, uint32_t dpi);
// The outer rectangle, with caption, borders and menu, of a window whose controls have this one at a
// resolution.
RECT OuterRect(HWND window, RECT inner, uint32_t dpi);
// Leaves it to the dialog to follow a change of the monitor's resolution.
void KeepSystemFromRescaling(HWND dialog);

}  // namespace platform::win32
