// The windows of drop-down lists, editable combos and list boxes.
#pragma once

#include "ui/Choices.h"
#include "ui/win32/ControlMirror.h"

namespace ui::win32 {

class ComboMirror : public ControlMirror {
  public:
    ComboMirror(ComboBox& combo, HWND window) : ComboMirror(static_cast<ChoiceControl&>(combo), window) {}
    void Show(Aspect aspect) override;
    void OnCommand(int notification) override;

  protected:
    void ShowAll() override;
    int DropHeight() const override;
    ComboMirror(ChoiceControl& combo, HWND window);

  private:
    void ShowItems() const;
    void ShowSelection() const;
    ChoiceControl& combo_;
};

// The system completes the text from the list when the list opens or the window is resized, and says nothing:
// what the user then sees counts, and what the program resizes gets its text back.
class EditableComboMirror : public ComboMirror {
  public:
    EditableComboMirror(EditableCombo& combo, HWND window) : ComboMirror(combo, window), combo_(combo) {}
    void Show(Aspect aspect) override;
    void OnCommand(int notification) override;
    void Moved() override { ShowText(); }
    void TakeShown() override;

  protected:
    void ShowAll() override;

  private:
    EditableCombo& combo_;
};

class ListBoxMirror : public ControlMirror {
  public:
    ListBoxMirror(ListBox& list, HWND window) : ControlMirror(list, window), list_(list) {}
    void Show(Aspect aspect) override;
    void OnCommand(int notification) override;
    void ShowName(const std::wstring& name) override { SetWindowTextW(Window(), name.c_str()); }

  protected:
    void ShowAll() override { Show(Aspect::Items); }

  private:
    void ShowItems() const;
    ListBox& list_;
};

}  // namespace ui::win32
