// What every control of a dialog has. A control object is its own state; the window, when there is one,
// mirrors it. The program changes a control silently with the Set functions; what the user does arrives
// through the User functions, which change the state first and then call the dialog's handler.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ui/Geometry.h"

namespace ui {

// Keys and what is held with them, with the system's codes.
namespace key {
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Up = 38;
inline constexpr int Down = 40;
inline constexpr int Insert = 45;
inline constexpr int Delete = 46;
inline constexpr int Menu = 93;  // the one beside the right Ctrl
inline constexpr int F1 = 112;
inline constexpr int F2 = 113;
inline constexpr int F10 = 121;
}  // namespace key

// A key that is no part of a text. Letters have the code of their capital.
struct KeyChord {
    int key = 0;
    bool control = false;
    bool alt = false;
    bool shift = false;
    bool operator==(const KeyChord&) const = default;
};

class Dialog;
class Label;
class Picture;
class GroupBox;
class Edit;
class Button;
class IconButton;
class CheckBox;
class ComboBox;
class EditableCombo;
class ListBox;
class UpDown;
class ListView;

using Handler = std::function<void()>;

// What of a control changed and has to be shown anew.
enum class Aspect {
    Text,
    Name,
    Enabled,
    Visible,
    Bounds,
    Tooltip,
    Cue,  // of edits
    Icon,
    ReadOnly,
    Check,        // of a check box
    Items,        // of combo and list boxes, their selection included
    DroppedDown,  // of drop-down lists: the list opens
    Selection,    // of combo and list boxes: the chosen item; of list views: the selected rows
    Columns,      // of list views: headers, widths and sort arrows
    Rows,         // of list views: their number and all that goes with each
    RowChecks,    // of list views
    Scroll,       // of list views: the row to bring into view
    Range,        // of up-down controls
};

class ControlVisitor {
  public:
    virtual ~ControlVisitor() = default;
    virtual void Visit(Label& control) = 0;
    virtual void Visit(Picture& control) = 0;
    virtual void Visit(GroupBox& control) = 0;
    virtual void Visit(Edit& control) = 0;
    virtual void Visit(Button& control) = 0;
    virtual void Visit(IconButton& control) = 0;
    virtual void Visit(CheckBox& control) = 0;
    virtual void Visit(ComboBox& control) = 0;
    virtual void Visit(EditableCombo& control) = 0;
    virtual void Visit(ListBox& control) = 0;
    virtual void Visit(UpDown& control) = 0;
    virtual void Visit(ListView& control) = 0;
};

class Control {
  public:
    Control(Dialog& owner, int id, const Place& place, std::wstring text);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    virtual void Accept(ControlVisitor& visitor) = 0;
    // Whether the Tab key stops here (while the control is shown and enabled).
    virtual bool TakesFocus() const { return true; }
    // Whether the control says by itself what it is: a button, say, and not an edit.
    virtual bool HasCaption() const { return false; }

    int Id() const { return id_; }
    const Place& Placement() const { return place_; }

    // The text that the window carries: a caption, or what an edit holds.
    const std::wstring& Text() const { return text_; }
    void SetText(std::wstring text);

    // What a screen reader calls a control that has no caption, if that is not the text of the label right
    // before it (AccessibleName).
    const std::wstring& Name() const { return name_; }
    void SetName(std::wstring name);

    bool IsEnabled() const { return enabled_; }
    void Enable(bool enabled);
    bool IsVisible() const { return visible_; }
    void Show(bool visible);

    const std::wstring& Tooltip() const { return tooltip_; }
    void SetTooltip(std::wstring tooltip);

    // In pixels, within the dialog's client area; known once the dialog is open.
    const Rect& Bounds() const { return bounds_; }

    void SetFocus();
    bool HasFocus() const;
    // The control lost the keyboard focus to another control or another window.
    void OnFocusLost(Handler handler) { onFocusLost_ = std::move(handler); }

    // The user's hands; also called by the windows themselves.
    virtual bool UserPressed(const KeyChord& /*chord*/) { return false; }  // false: it means nothing here
    void UserFocused();
    void UserLeft();

    // The dialog's own business when it opens and is resized.
    void SetOpeningBounds(const Rect& bounds) { bounds_ = openingBounds_ = bounds; }
    void FollowGrowth(const Size& growth);
    // The resolution has changed; the opening bounds are those for the new one already.
    virtual void FollowDpi(uint32_t /*dpi*/) {}

  protected:
    Dialog& Owner() const { return owner_; }
    void Changed(Aspect aspect) const;
    // Takes over a text that the window already shows.
    void TakeText(std::wstring text) { text_ = std::move(text); }

  private:
    Dialog& owner_;
    const int id_;
    const Place place_;
    std::wstring text_;
    std::wstring name_;
    std::wstring tooltip_;
    bool enabled_ = true;
    bool visible_ = true;
    Rect bounds_;
    Rect openingBounds_;  // at the size that the dialog opens with, at this resolution
    Handler onFocusLost_;
};

}  // namespace ui
