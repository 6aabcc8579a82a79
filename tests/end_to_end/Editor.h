// The released program, run as a process of its own and driven from outside through its windows.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/Ids.h"

namespace tests {

// Keys that the program works on, of the machine and of the user.
inline constexpr wchar_t serviceRoot[] = L"SOFTWARE\\TALVERON\\morcelservice";
inline constexpr wchar_t libraryRoot[] = L"SOFTWARE\\TALVERON\\morcel";
// Controls of the main window.

class Editor {
  public:
    // Starts the program: the released one, or a copy elsewhere.
    explicit Editor(const std::wstring& program = L"brisgate.exe");
    ~Editor();  // ends the process if it is still running
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    // Waits until the program shows a window with this title; null after ten seconds or when the program has
    // ended.
    HWND WaitForWindow(const std::wstring& title) const;
    // The main window, once it is shown and has opened its first profile.
    HWND MainWindow() const;
    // The message box (a window with the program's title that holds no rule list).
    HWND WaitForBox() const;
    bool WaitForEnd() const;
    bool WaitUntilGone(HWND window) const;

    // The files of all modules that the program has loaded.
    std::vector<std::wstring> Modules() const;

    // Presses a button of the window and returns at once.
    static void Press(HWND window, int id);
    static std::wstring TextOf(HWND window, int id);
    static std::wstring BoxText(HWND box);
    // Selects one row of a list and no other.
    void SelectRow(HWND window, int listId, int row) const;
    // Waits until the list has so many rows.
    bool WaitForRows(HWND window, int listId, int count) const;
    // Waits until the control has this text.
    bool WaitForText(HWND window, int id, const std::wstring& text) const;
    // Every cell of a list in the program, row by row.
    std::vector<std::vector<std::wstring>> Rows(HWND window, int listId, int columns) const;

  private:
    // False after ten seconds, or when the program has ended.
    bool WaitUntil(const std::function<bool()>& holds) const;

    PROCESS_INFORMATION process_{};
};

}  // namespace tests
