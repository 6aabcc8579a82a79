// The window of one open dialog, in memory: where it lies, how large it is, and what becomes of the keyboard
// focus while another window is in front.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Machine.h"
#include "ui/Dialog.h"
#include "ui/Window.h"
#include "ui/memory/Input.h"
#include "ui/memory/ShownState.h"

namespace ui::memory {

class MemoryWindow final : public Window {
  public:
    // onEnd: called when the dialog ends; it may destroy the window.
    MemoryWindow(Dialog& dialog, const platform::ScreenMetrics& metrics, uint32_t dpi,
                 std::function<void()> onEnd = {});

    // Lays the controls out and notifies the dialog; what its handler throws passes through.
    void Open();

    const Dialog& Owner() const { return dialog_; }
    // The result that ended the dialog, IdCancel if it has not ended. Throws what a handler threw.
    int Result() const;
    // A handler threw. That ends the dialog, unless it survives; the first failure counts.
    void Fail(std::exception_ptr failure);

    // Comes to the front: the control that had the focus before gets it back; the first time, when the
    // program has chosen none, the first that can take it.
    void Activate();
    // Another window comes to the front: the focused control loses the focus.
    void Deactivate();

    bool IsMinimized() const { return minimized_; }
    Size OuterSize() const;  // in pixels, as it is when not minimised
    RowSelection& Rows() { return rows_; }
    // Before it is opened: the window is to remember what it was told to show.
    void RememberShown() { shown_.emplace(); }
    // What a window that remembers was not told of and therefore shows as it was before, in words.
    std::vector<std::string> Stale() const { return shown_ ? shown_->Stale(dialog_) : std::vector<std::string>(); }

    // What the user does with the window. Minimizing and restoring move the focus, too.
    void UserDraggedCorner(Size growth);
    void UserMinimized();
    void UserRestored();
    void UserMovedToMonitor(uint32_t dpi);
    // Asks whether the session may end, as the system does. False: the window shows why not, until there is
    // nothing to lose any more.
    bool UserEndsSession();
    std::wstring ShownReasonToStay() const { return reasonToStay_; }

    void Show(const Control& control, Aspect aspect) override;
    void Show(const Dialog& dialog, DialogAspect aspect) override;
    void ShowBounds(const Dialog& /*dialog*/) override {}
    void End(int result) override;
    bool HasEnded() const override { return result_.has_value(); }
    int ClientWidth(const Control& control) override;
    Rect NormalRect() const override;
    void SetNormalRect(const Rect& rect) override;

  private:
    Size LayOut();
    int Scaled(int pixels) const;
    Size Frame() const;
    Size ClientFor(Size outer) const;
    void TakeClientSize(Size client);
    Rect ToPixels(const Place& place) const;

    Dialog& dialog_;
    const platform::ScreenMetrics& metrics_;
    uint32_t dpi_;
    std::function<void()> onEnd_;
    std::optional<int> result_;
    std::exception_ptr failure_;
    int x_ = 100;
    int y_ = 100;
    Size client_;
    bool minimized_ = false;
    bool wasActive_ = false;  // the dialog has initialised itself and can be used
    bool behind_ = false;
    Control* focusBehind_ = nullptr;  // gets the focus when the window comes to the front again
    RowSelection rows_;
    std::optional<ShownState> shown_;
    std::wstring reasonToStay_;
};

}  // namespace ui::memory
