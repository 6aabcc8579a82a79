// The user of the in-memory screen: does to the control objects what a hand at keyboard and mouse makes real
// windows do to them, and refuses what such a hand could not do.
#pragma once

#include <optional>
#include <string>

#include "tests/support/Robot.h"
#include "ui/ListView.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {

class MemoryRobot final : public Robot, private ui::memory::User {
  public:
    explicit MemoryRobot(ui::memory::MemoryScreen& screen);  // becomes its user

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

  protected:
    void CheckWindows(ui::Dialog& dialog) override;

  private:
    void DialogOpened(ui::Dialog& dialog) override;
    int BoxOpened(const std::wstring& text, const std::wstring& caption, uint32_t flags) override;
    std::optional<std::wstring> FolderPickerOpened() override;
    std::optional<std::wstring> FilePickerOpened(ui::FilePickerKind kind) override;

    ui::memory::MemoryWindow* Window() const;
    ui::memory::RowSelection& Rows() const { return Window()->Rows(); }
    bool IsUsable(const ui::Control& control) const;
    bool TakeFocus(ui::Control& control) const;

    template <class Gesture>
    void Act(Gesture gesture);
    template <class C, class Gesture>
    void Use(int id, Gesture gesture);
    template <class Gesture>
    void UseRow(int id, size_t row, Gesture gesture);

    ui::memory::MemoryScreen& screen_;
};

}  // namespace tests
