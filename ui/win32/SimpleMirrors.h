// The windows of texts, pictures, edits, buttons, check boxes and up-down arrows.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "ui/Controls.h"
#include "ui/win32/ControlMirror.h"
#include "ui/win32/IconLoader.h"

namespace ui::win32 {

// Windows that take a single ampersand for the mark of an access key. The program's texts mean what they say.
class CaptionMirror : public ControlMirror {
  public:
    using ControlMirror::ControlMirror;

    // What its window is made with.
    static std::wstring CaptionOf(const Control& control) { return WithDoubledAmpersands(control.Text()); }

  protected:
    std::wstring ShownText() const override { return CaptionOf(Mirrored()); }
    static std::wstring WithDoubledAmpersands(const std::wstring& text);
};

class PictureMirror : public ControlMirror {
  public:
    PictureMirror(Picture& picture, HWND window) : ControlMirror(picture, window), picture_(picture) {}
    void Show(Aspect aspect) override;
    void ShowRescaled(uint32_t /*dpi*/) override { Show(Aspect::Icon); }

  protected:
    void ShowAll() override { Show(Aspect::Icon); }

  private:
    Picture& picture_;
    IconHandle icon_;
};

class EditMirror : public ControlMirror {
  public:
    EditMirror(Edit& edit, HWND window) : ControlMirror(edit, window), edit_(edit) {}
    void Show(Aspect aspect) override;
    void OnCommand(int notification) override;
    bool TakesPaths() const override { return edit_.Style().takesPaths; }
    void OnDrop(const std::wstring& path) override;

  protected:
    void ShowAll() override;

  private:
    void ShowCue() const;
    void Typed();
    Edit& edit_;
};

// What push buttons and check boxes share.
class ButtonMirror : public CaptionMirror {
  public:
    using CaptionMirror::CaptionMirror;
    void OnCommand(int notification) override;

  protected:
    virtual void Clicked() const = 0;
};

class PushButtonMirror : public ButtonMirror {
  public:
    PushButtonMirror(Button& button, HWND window) : ButtonMirror(button, window), button_(button) {}

  private:
    void Clicked() const override { button_.UserClicked(); }
    Button& button_;
};

// A disabled one draws its own pale picture: the system would leave little more than an outline of it, which
// cannot be seen upon a dark ground.
class IconButtonMirror : public ButtonMirror {
  public:
    IconButtonMirror(IconButton& button, HWND window) : ButtonMirror(button, window), button_(button) {}

    static std::wstring CaptionOf(const IconButton& button);
    void Show(Aspect aspect) override;
    void ShowRescaled(uint32_t /*dpi*/) override { LoadIcon(); }
    void ShowColors() override { ShowIcon(); }
    std::optional<LRESULT> Answer(NMHDR& question) const override;

  protected:
    void ShowAll() override;

  private:
    void Clicked() const override { button_.UserClicked(); }
    std::wstring ShownText() const override { return CaptionOf(button_); }
    void LoadIcon();
    void ShowIcon();
    void DrawFaded(HDC canvas) const;

    IconButton& button_;
    IconHandle icon_;       // in the size that is shown
    IconHandle fadedIcon_;  // none: the button is enabled
};

class CheckBoxMirror : public ButtonMirror {
  public:
    CheckBoxMirror(CheckBox& box, HWND window) : ButtonMirror(box, window), box_(box) {}
    void Show(Aspect aspect) override;

  protected:
    void ShowAll() override;

  private:
    void Clicked() const override { box_.UserClicked(); }
    CheckBox& box_;
};

// The window's own number follows that of the edit, in which it writes nothing itself.
class UpDownMirror : public ControlMirror {
  public:
    UpDownMirror(UpDown& arrows, HWND window) : ControlMirror(arrows, window), arrows_(arrows) {}
    void Show(Aspect aspect) override;
    void LetGo() override { Send(UDM_SETBUDDY); }
    void TakeHold() override;
    void FollowEdits() override;
    LRESULT OnNotify(const NMHDR& notification) override;

  protected:
    void ShowAll() override { Show(Aspect::Range); }

  private:
    UpDown& arrows_;
};

}  // namespace ui::win32
