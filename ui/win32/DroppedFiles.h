// Files and folders that the user dragged from another program and let go of over a window.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>

namespace ui::win32 {

// Owns what the system handed over with WM_DROPFILES.
class DroppedFiles {
  public:
    explicit DroppedFiles(HDROP drop) : drop_(drop) {}
    ~DroppedFiles() { DragFinish(drop_); }
    DroppedFiles(const DroppedFiles&) = delete;
    DroppedFiles& operator=(const DroppedFiles&) = delete;

    POINT Place() const;  // in the client area of the window
    std::wstring FirstPath() const;

  private:
    const HDROP drop_;
};

// Lets files be dropped anywhere onto the window, also from programs that run with fewer rights than this
// one.
void AcceptDrops(HWND window);

}  // namespace ui::win32
