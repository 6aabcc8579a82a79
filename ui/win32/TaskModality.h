// What makes a window without an owner modal all the same.
#pragma once

#include <windows.h>

#include <vector>

namespace ui::win32 {

// While one lives, no other window of the thread takes input; windows that are opened meanwhile do.
class TaskModality {
  public:
    TaskModality();
    ~TaskModality();
    TaskModality(const TaskModality&) = delete;
    TaskModality& operator=(const TaskModality&) = delete;

    // To be called before the modal window goes, with that window: the one in which the user was at work
    // before comes to the front in its place.
    void EndBefore(HWND modal);

  private:
    void Enable();

    const HWND activeBefore_;
    std::vector<HWND> disabled_;
};

}  // namespace ui::win32
