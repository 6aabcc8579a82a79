// The menu bar and the system menu of a dialog's window.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/Menu.h"

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

}  // namespace ui::win32
