// Shows the keys that are pressed in our dialogs to the dialog, before the window that they are meant for.
#pragma once

#include <windows.h>

namespace ui::win32 {

// For the dialogs of this thread, while one lives. Message boxes and the system's own dialogs are left alone.
class ShortcutKeys {
  public:
    ShortcutKeys();
    ~ShortcutKeys();
    ShortcutKeys(const ShortcutKeys&) = delete;
    ShortcutKeys& operator=(const ShortcutKeys&) = delete;

  private:
    const HHOOK hook_;
};

}  // namespace ui::win32
