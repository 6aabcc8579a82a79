// The real window of a dialog: made from the dialog's declarations by the system's dialog manager, it mirrors
// the dialog's state and tells the dialog what the user does.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/Dialog.h"
#include "ui/Window.h"
#include "ui/win32/ControlMirror.h"
#include "ui/win32/IconLoader.h"
#include "ui/win32/MenuBar.h"
#include "ui/win32/Rescaling.h"
#include "ui/win32/TaskModality.h"
#include "ui/win32/Tooltips.h"

namespace ui::win32 {

class DroppedFiles;

class DialogWindow : public ui::Window {
  public:
    // Takes what handlers of a modeless dialog throw, which has no run to leave through.
    using ExceptionTaker = std::function<void(std::exception_ptr)>;

    explicit DialogWindow(Dialog& dialog, ExceptionTaker taker = {});
    ~DialogWindow() override;
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;

    // Without an owner, no other window of the thread takes input meanwhile. Throws what a handler threw, and
    // ScreenError when there can be no window.
    int RunModal(HWND owner);
    void OpenModeless(HWND owner);

    // Our own dialog behind a window of this process, if it is one.
    static DialogWindow* Of(HWND window);

    HWND Handle() const { return window_; }
    Dialog& Mirrored() const { return dialog_; }
    bool IsModal() const { return modal_; }
    // The window is gone, and none of its messages is being worked on.
    bool IsOver() const { return window_ == nullptr && depth_ == 0; }
    // A key pressed in the dialog, before its window gets it. True: it was a shortcut.
    bool Press(const KeyChord& chord) noexcept;
    // A handler threw. Unless the dialog survives, that ends it, and the exception leaves RunModal.
    void Fail(std::exception_ptr exception);

    void Show(const Control& control, Aspect aspect) override;
    void Show(const Dialog& dialog, DialogAspect aspect) override;
    void ShowBounds(const Dialog& dialog) override;
    void End(int result) override;
    bool HasEnded() const override { return ended_; }
    int ClientWidth(const Control& control) const override;
    Rect NormalRect() const override;
    void SetNormalRect(const Rect& rect) override;

  private:
    // While one lives, what the controls notify of is the echo of what the program itself is changing.
    class Writing {
      public:
        explicit Writing(DialogWindow& window) : window_(window) { ++window_.writing_; }
        ~Writing() { --window_.writing_; }
        Writing(const Writing&) = delete;
        Writing& operator=(const Writing&) = delete;

      private:
        DialogWindow& window_;
    };

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Reply(LRESULT result) const;

    void Attach(HWND window);
    void Detach();
    INT_PTR OnInit();
    void MakeMirrors();
    void ShowAll();
    void ReportOpeningBounds();
    void OnCommand(int id, int notification, HWND control);
    void HearCommand(int id, int notification, HWND control);
    INT_PTR OnNotify(NMHDR& notification);
    void OnDrop(const DroppedFiles& dropped);
    void OnSize(WPARAM kind, Size client);
    void OnMinMaxInfo(MINMAXINFO& info) const;
    INT_PTR OnScaledSize(uint32_t dpi, SIZE& size) const;
    void OnChangedDpi(uint32_t dpi, const RECT& suggested);
    void TakeDpi(uint32_t dpi);
    void LayOut(Size letter);
    Size OpeningSize(Size letter) const;
    void FitTo(POINT corner);
    bool MayEndSession(LPARAM how);
    void LetSessionEnd();
    void OnChangedColors();

    bool MoveAtOnce() const;
    void MoveOneByOne() const;
    void ShowMenuBar();
    void ShowIcon();
    void ShowFocus() const;
    void FollowFocus() const;
    ControlMirror* MirrorOf(HWND window) const;
    ControlMirror* MirrorOf(const Control& control) const;
    ControlMirror* SenderOf(const NMHDR& notification) const;
    Size Client() const;

    Dialog& dialog_;
    const ExceptionTaker taker_;
    HWND window_ = nullptr;
    std::vector<std::unique_ptr<ControlMirror>> mirrors_;
    Tooltips tooltips_;
    MenuBar menuBar_;
    Rescaling rescaling_;
    std::optional<TaskModality> taskModality_;
    IconHandle smallIcon_;
    IconHandle largeIcon_;
    SizeKind sizeKind_ = SizeKind::Restored;
    int writing_ = 0;  // how many of our own changes are being made right now
    int depth_ = 0;    // how many messages are being worked on
    bool modal_ = true;
    bool unattended_ = false;  // modeless and open: nobody waits for its end
    bool opened_ = false;      // the dialog is told of sizes and asked for their limits
    bool initialised_ = false;
    bool fitting_ = false;             // the window is getting the size that the dialog has already
    std::optional<Rect> place_;        // where the program wants the window to be when it is first shown
    std::optional<uint32_t> nextDpi_;  // to be taken when the window is no longer minimised
    bool ended_ = false;
    bool staysInSession_ = false;  // the system shows why
    std::exception_ptr exception_;
};

}  // namespace ui::win32
