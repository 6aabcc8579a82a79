// The simple controls: texts, pictures, edits, buttons, check boxes and up-down arrows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "ui/Control.h"
#include "ui/Icons.h"

namespace ui {

class Label : public Control {
  public:
    Label(Dialog& owner, int id, const Place& place, std::wstring text = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    bool HasCaption() const override { return true; }
    bool TakesFocus() const override { return false; }
};

class Picture : public Control {
  public:
    Picture(Dialog& owner, int id, const Place& place, ui::Icon icon);
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    bool TakesFocus() const override { return false; }
    ui::Icon Icon() const { return icon_; }
    void SetIcon(ui::Icon icon);

  private:
    ui::Icon icon_;
};

class GroupBox : public Control {
  public:
    GroupBox(Dialog& owner, int id, const Place& place, std::wstring text = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    bool HasCaption() const override { return true; }
    bool TakesFocus() const override { return false; }
};

struct EditStyle {
    bool digitsOnly = false;
    bool readOnly = false;
    bool multiLine = false;       // Enter starts a new line; lines end with "\r\n"
    bool scrollBars = false;      // both
    bool takesPaths = false;      // a file or folder dropped onto it becomes its content
    size_t longest = 0;           // UTF-16 units that typing and pasting can make it; 0: as many as the system can
    std::wstring_view refused{};  // characters left out of what is typed or pasted
};

class Edit : public Control {
  public:
    Edit(Dialog& owner, int id, const Place& place, const EditStyle& style = {}, Handler onChange = {});
    // Shows the field.
    Edit(Dialog& owner, int id, const Place& place, std::wstring& field, const EditStyle& style = {},
         Handler onChange = {});
    // Shows the field's number, which takes over none below 0.
    Edit(Dialog& owner, int id, const Place& place, int32_t& field, Handler onChange = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    const EditStyle& Style() const { return style_; }
    bool IsReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly);
    // What stands in grey where the edit is empty, with and without the focus. Edits of many lines show none.
    const std::wstring& Cue() const { return cue_; }
    void SetCue(std::wstring cue);
    bool TakesDrops() const { return style_.takesPaths && !readOnly_ && IsEnabled() && IsVisible(); }

    // The number in a digits-only edit: 0 when it is empty, the largest int32_t when it is beyond that.
    int32_t Number() const;
    void SetNumber(int32_t number);  // a text that already means this number stays as it is

    // How many characters of a text it refuses.
    size_t CountRefused(std::wstring_view text) const;

    void UserTyped(std::wstring text);  // the whole new content

  private:
    bool Refuses(wchar_t unit) const { return style_.refused.find(unit) != std::wstring_view::npos; }

    const EditStyle style_;
    bool readOnly_;
    std::wstring cue_;
    Handler onChange_;
};

// A push button. Those with the ids IdOk and IdCancel press the dialog's OK and Cancel and need no handler.
class Button : public Control {
  public:
    Button(Dialog& owner, int id, const Place& place, std::wstring text, Handler onClick = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    bool HasCaption() const override { return true; }
    void UserClicked();

  private:
    Handler onClick_;
};

// A button that shows only its icon. A text set on it names it for screen readers; without one its tooltip
// does.
class IconButton : public Control {
  public:
    IconButton(Dialog& owner, int id, const Place& place, ui::Icon icon, std::wstring tooltip, Handler onClick = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    bool HasCaption() const override { return true; }

    ui::Icon Icon() const { return icon_; }
    void SetIcon(ui::Icon icon);
    void UserClicked();

  private:
    ui::Icon icon_;
    Handler onClick_;
};

class CheckBox : public Control {
  public:
    CheckBox(Dialog& owner, int id, const Place& place, std::wstring text, Handler onClick = {});
    // Shows whether the flag is on: not 0. One that is on already keeps its number.
    CheckBox(Dialog& owner, int id, const Place& place, std::wstring text, int32_t& flag, Handler onClick = {});
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    bool HasCaption() const override { return true; }

    bool IsChecked() const { return checked_; }
    void SetChecked(bool checked);
    void UserClicked();  // toggles

  private:
    bool checked_ = false;
    Handler onClick_;
};

// Arrows at the right end of a digits-only edit that count it up and down within the range.
class UpDown : public Control {
  public:
    UpDown(Dialog& owner, int id, Edit& buddy, int32_t lowest, int32_t highest);
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
    bool TakesFocus() const override { return false; }

    Edit& Buddy() const { return buddy_; }
    int32_t Lowest() const { return lowest_; }
    int32_t Highest() const { return highest_; }
    void SetRange(int32_t lowest, int32_t highest);

    void UserStepped(int32_t steps);  // the edit's own handler hears of the change

  private:
    Edit& buddy_;
    int32_t lowest_;
    int32_t highest_;
};

}  // namespace ui
