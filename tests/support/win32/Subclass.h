// Messages of a window that a test hears, or answers, before the window does.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <utility>

namespace tests {

// Stands before a window's own procedure while one lives.
class Subclass {
  public:
    // The handler returns nothing for what the window is to answer itself.
    using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

    Subclass(HWND window, Handler handler) : window_(window), handler_(std::move(handler)) {
        SetWindowSubclass(window_, Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~Subclass() { RemoveWindowSubclass(window_, Procedure, 1); }
    Subclass(const Subclass&) = delete;
    Subclass& operator=(const Subclass&) = delete;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) {
        const auto answer = reinterpret_cast<Subclass*>(self)->handler_(message, wParam, lParam);
        return answer ? *answer : DefSubclassProc(window, message, wParam, lParam);
    }

    const HWND window_;
    const Handler handler_;
};

}  // namespace tests
