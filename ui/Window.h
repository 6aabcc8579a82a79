// The window that mirrors an open dialog. Made by the screen; only the dialog and its controls talk to it.
#pragma once

#include "ui/Control.h"
#include "ui/Geometry.h"

namespace ui {

enum class DialogAspect { Caption, Icon, MenuBar, SystemMenu, Focus, ReasonToStay };

class Window {
  public:
    virtual ~Window() = default;

    // Makes the window match the state. No handler hears of it.
    virtual void Show(const Control& control, Aspect aspect) = 0;
    virtual void Show(const Dialog& dialog, DialogAspect aspect) = 0;
    // Moves every control to its bounds and paints the whole window anew.
    virtual void ShowBounds(const Dialog& dialog) = 0;

    // Ends the run of the dialog with the result; the window is gone when its Run returns.
    virtual void End(int result) = 0;
    // Whether the run has ended, by End or because a handler threw: the user can do nothing more in it.
    virtual bool HasEnded() const = 0;

    // Pixels inside a control's border, without its scroll bar when one is shown.
    virtual int ClientWidth(const Control& control) = 0;

    // The outer rectangle that the window has when it is neither minimised nor maximised; x, y, width and
    // height in pixels of the screen.
    virtual Rect NormalRect() const = 0;
    virtual void SetNormalRect(const Rect& rect) = 0;
};

}  // namespace ui
