// What Windows does to the program's windows and Wine does not. While one lives, windows behave as
// documented:
// - beyond a line on the screen there is a second monitor with another resolution: a dialog that comes there,
//   hidden or not, is asked for its size and hears of the resolution;
// - an editable combo that opens its list or is resized completes its text from the list without a word;
// - a list without a focused row gives the mark to its first row when it gets the focus.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <optional>

#include "tests/support/win32/ImportHook.h"

namespace tests {

class WindowsHabits {
  public:
    // When a dialog that is moved before it is shown hears of the other monitor.
    enum class Told { AtOnce, BeforeItIsShown };

    // Its left edge. A little of what is there reaches into the first monitor, the only one that there is:
    // saved places that do not are not taken.
    static constexpr int SecondMonitor = 1250;

    // At most one at a time. dpi: of the second monitor.
    explicit WindowsHabits(uint32_t dpi, Told told = Told::AtOnce);
    ~WindowsHabits();
    WindowsHabits(const WindowsHabits&) = delete;
    WindowsHabits& operator=(const WindowsHabits&) = delete;

    // Of the second monitor, for windows that come there from now on.
    void SetDpi(uint32_t dpi) { dpi_ = dpi; }

    // The outer size that the dialog says it will have at a resolution; none where it leaves that to the
    // system.
    static std::optional<SIZE> SizeAt(HWND dialog, uint32_t dpi);

  private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    static HMONITOR WINAPI MonitorOf(HWND window, DWORD flags);
    static BOOL WINAPI InfoOf(HMONITOR monitor, MONITORINFO* info);

    void Sent(const CWPRETSTRUCT& message);
    bool IsOnSecond(HWND window) const;
    void TellOfMonitor(HWND dialog);
    void CompleteText(HWND combo);

    static inline WindowsHabits* current_ = nullptr;

    uint32_t dpi_;
    const Told told_;
    std::map<HWND, uint32_t> shownAt_;  // the resolutions of the dialogs that have been told of one
    const ImportHook monitorOf_{"MonitorFromWindow", MonitorOf};
    const ImportHook infoOf_{"GetMonitorInfoW", InfoOf};
    HHOOK hook_ = nullptr;
};

}  // namespace tests
