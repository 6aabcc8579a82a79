// Tells of every dialog, the program's or the system's, that opens on this thread. It tells from within the
// loop that the dialog runs, as a message among others, so that what is done then is done to a dialog that is
// alive.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace tests {

class OpenedWindows {
  public:
    // At most one at a time.
    explicit OpenedWindows(std::function<void(HWND)> onOpened);
    ~OpenedWindows();
    OpenedWindows(const OpenedWindows&) = delete;
    OpenedWindows& operator=(const OpenedWindows&) = delete;

  private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Sent(const CWPRETSTRUCT& message);
    void Tell(HWND opened);

    static inline OpenedWindows* current_ = nullptr;

    const std::function<void(HWND)> onOpened_;
    HWND receiver_ = nullptr;
    HHOOK hook_ = nullptr;
    std::vector<HWND> hidden_;  // initialised, and not yet shown
    std::vector<HWND> untold_;  // shown, and not yet told of
};

}  // namespace tests
