// What the window of a dialog has besides its controls: menu bar, system menu and tooltips.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "ui/Dialog.h"

namespace ui::win32 {

class MenuBar {
  public:
    // Makes the window carry these menus. Returns whether the bar itself came or went, which changes the room
    // that is left for the controls.
    bool Show(HWND window, const std::vector<Menu>& menus);

  private:
    bool CanKeepItems(const std::vector<Menu>& menus) const;
    std::vector<Menu> shown_;
};

// Puts a separator and the entry at the end of the window's system menu.
void AppendToSystemMenu(HWND window, const MenuItem& entry);

// One window that shows the text of the control under the mouse.
class Tooltips {
  public:
    // Of a control that has no tooltip yet. An empty text: it gets none.
    void Add(HWND control, const std::wstring& text);
    void SetText(HWND control, const std::wstring& text);
    // To be called when the control was moved, enabled, disabled, shown or hidden.
    void Follow(HWND control) const;
    // A message to the dialog itself: the mouse may be over a disabled control, which hears of nothing.
    void Hear(UINT message, WPARAM wParam, LPARAM lParam) const;
    // To be called when the system's colours changed.
    void TellOfColors() const;

  private:
    void Create(HWND dialog);
    void Send(UINT message, LPARAM parameter) const;  // where there is a window

    HWND dialog_ = nullptr;
    HWND window_ = nullptr;  // goes with the dialog's
};

}  // namespace ui::win32
