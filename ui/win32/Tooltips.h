// The tooltips of a dialog: one window that shows the text of the control under the mouse.
#pragma once

#include <windows.h>

#include <string>

namespace ui::win32 {

class Tooltips {
  public:
    // Creates the window, which goes with the dialog's.
    void Attach(HWND dialog);

    // An empty text: no tooltip.
    void SetText(HWND control, const std::wstring& text) const;
    // To be called when the control was moved, enabled, disabled, shown or hidden.
    void Follow(HWND control) const;
    // To be called when the system's colours changed.
    void TellOfColors() const { SendMessageW(window_, WM_SYSCOLORCHANGE, 0, 0); }

  private:
    HWND dialog_ = nullptr;
    HWND window_ = nullptr;
};

}  // namespace ui::win32
