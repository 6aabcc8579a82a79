// The window that shows the tooltips of a dialog.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tests {

class TooltipWindow {
  public:
    explicit TooltipWindow(HWND dialog);

    // None where no control of the dialog has a tooltip.
    HWND Handle() const { return window_; }
    // What it shows when the mouse is over the control, which hears of the mouse itself; empty: nothing.
    std::wstring TextOver(HWND control) const;
    // The same where the dialog hears of the mouse in the control's stead.
    std::wstring TextAtPlaceOf(HWND control) const;
    // Where in the dialog that is.
    std::optional<RECT> PlaceOf(HWND control) const;

  private:
    const HWND dialog_;
    HWND window_ = nullptr;
};

}  // namespace tests
