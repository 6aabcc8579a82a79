// The window of one control. It shows the control's state and says what the user does with it; whether the
// user did it, or the program itself, has been decided before its notifications arrive here.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "ui/Control.h"

namespace ui::win32 {

// The whole text of a window.
std::wstring TextOf(HWND window);

// Keeps a window from laying itself out and drawing at every step of a change: it does so once, at the end.
class RedrawPause {
  public:
    explicit RedrawPause(HWND window);
    ~RedrawPause();
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

  private:
    const HWND window_;
    const bool paused_;
};

class ControlMirror {
  public:
    ControlMirror(Control& control, HWND window) : control_(control), window_(window) {}
    virtual ~ControlMirror() = default;
    ControlMirror(const ControlMirror&) = delete;
    ControlMirror& operator=(const ControlMirror&) = delete;

    Control& Mirrored() const { return control_; }
    HWND Window() const { return window_; }

    // Makes the window match the control's state, once after its creation, and whenever a part of it changed
    // since then.
    void ShowFirst();
    bool IsShown() const { return isShown_; }
    virtual void Show(Aspect aspect);
    // The monitor's resolution changed, and the font and the bounds with it.
    virtual void ShowRescaled(uint32_t /*dpi*/) {}
    // The system's colours changed, and the window has heard of it.
    virtual void ShowColors() {}
    // All controls get the places that they open with, one after the other: what has moved another control
    // for itself lets go of it before and takes hold of it again after.
    virtual void LetGo() {}
    virtual void TakeHold() {}
    // The window has these bounds within the dialog from now on.
    void NoteBounds(const Rect& bounds) { bounds_ = bounds; }
    bool HasBoundsOfControl() const { return bounds_ == control_.Bounds(); }
    // The program has given the window other bounds.
    virtual void Moved() {}
    // What a screen reader calls the control, where the window can carry it.
    virtual void ShowName(const std::wstring& /*name*/) {}
    // What the user sees in the window, the control holds: the system may have changed it without a word.
    virtual void TakeShown() {}
    // The text of one of the dialog's edits changed, by whomever.
    virtual void FollowEdits() {}

    // What the user did, as the system notifies a dialog of it.
    virtual void OnCommand(int /*notification*/) {}
    virtual LRESULT OnNotify(const NMHDR& /*notification*/) { return 0; }
    // A key has been pressed that may be a shortcut for what is done with the control's content.
    virtual void BeforeShortcut() {}
    // Whether files may be dropped onto the window at some time.
    virtual bool TakesPaths() const { return false; }
    // A file or folder dropped onto the window, with its full path.
    virtual void OnDrop(const std::wstring& /*path*/) {}
    // Notifications that ask what to draw. They are answered at any time. No answer: it was not a question.
    virtual std::optional<LRESULT> Answer(NMHDR& /*question*/) const { return std::nullopt; }

    // The control's bounds, and what the window needs below them: a combo box its list.
    Rect BoundsWithDrop() const;

  protected:
    // What the window was not created with.
    virtual void ShowAll() { Show(Aspect::Text); }
    virtual int DropHeight() const { return 0; }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window_, message, wParam, lParam);
    }
    virtual std::wstring ShownText() const { return control_.Text(); }
    void ShowText();
    void Focused() const { control_.UserFocused(); }
    void Left() const { control_.UserLeft(); }

  private:
    void MoveFocusAway() const;

    Control& control_;
    const HWND window_;
    Rect bounds_;
    bool isShown_ = false;
};

}  // namespace ui::win32
