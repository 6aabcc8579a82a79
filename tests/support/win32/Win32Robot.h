// The user of real windows: presses real keys and buttons in them, and after each gesture looks whether the
// windows show what the controls say.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "tests/support/RecordingScreen.h"
#include "tests/support/Robot.h"
#include "tests/support/win32/OpenedWindows.h"
#include "tests/support/win32/SystemDialogs.h"
#include "ui/ListView.h"

namespace tests {

class Win32Robot final : public Robot {
  public:
    // The dialogs to be worked with have to be opened by this screen.
    explicit Win32Robot(RecordingScreen& screen);

    void Click(int id) override;
    void ClickRow(int id, size_t row, Held held = Held::Nothing) override;
    void DoubleClickRow(int id, size_t row) override;
    void RightClickCell(int id, size_t row, size_t column) override;
    void ClickBelowRows(int id) override;
    void RightClickBelowRows(int id) override;
    void ClickCheckBox(int id, size_t row) override;
    void DoubleClickCheckBox(int id, size_t row) override;
    void ClickHeader(int id, size_t column) override;
    void Type(int id, std::wstring_view text) override;
    void Paste(int id, const std::wstring& text) override;
    void SetFromOutside(int id, const std::wstring& text) override;
    void Drop(int id, const std::wstring& path) override;
    void Choose(int id, int index) override;
    void Step(int id, int steps) override;
    void Press(Key key, Held held = Held::Nothing) override;
    void ChooseMenu(int command) override;
    void ChooseSystemMenu(int command) override;
    void PressCloseBox() override;
    void Resize(ui::Size outerGrowth) override;
    void Minimize() override;
    void Restore() override;

    ui::Size OuterSize() override;
    // The last file picker, as the system showed it.
    const SeenPicker& LastPicker() const { return lastPicker_; }

  protected:
    void CheckWindows(ui::Dialog& dialog) override;

  private:
    void Opened(HWND window);
    void SystemDialogOpened(HWND window);

    HWND Window() const;  // of the dialog whose script is running
    bool IsUsable(const ui::Control& control, HWND window) const;

    // Do something in the dialog, with one of its controls, with one of its lists; the windows are looked at
    // afterwards.
    void Act(const std::function<void(HWND dialog)>& gesture);
    void Use(int id, const std::function<void(ui::Control& control, HWND window)>& gesture);
    void UseList(int id, const std::function<void(ui::ListView& list, HWND window)>& gesture);
    void UseRow(int id, size_t row, const std::function<void(ui::ListView& list, HWND window)>& gesture);

    RecordingScreen& screen_;
    OpenedWindows opened_;
    SeenPicker lastPicker_;
};

// The window of a dialog that is open, else none.
HWND WindowOf(const ui::Dialog& dialog);

}  // namespace tests
