// The real window of a dialog: made from the dialog's declarations by the system's dialog manager, it mirrors
// the dialog's state and reports to the dialog what the user does.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/Dialog.h"
#include "ui/Window.h"
#include "ui/win32/ControlMirror.h"
#include "ui/win32/IconLoader.h"
#include "ui/win32/MenusAndTooltips.h"
#include "ui/win32/Placing.h"

namespace ui::win32 {

// What makes a window without an owner modal all the same: while one lives, no other window of the thread
// takes input; windows that are opened meanwhile do.
class TaskModality {
  public:
    TaskModality();
    ~TaskModality();
    TaskModality(const TaskModality&) = delete;
    TaskModality& operator=(const TaskModality&) = delete;

    // To be called before the modal window goes, with that window: the one in which the user was at work
    // before comes to the front in its place.
    void EndBefore(HWND modal);

  private:
    void Enable();

    const HWND activeBefore_;
    std::vector<HWND> disabled_;
};

class DialogWindow : public ui::Window {
  public:
    // Takes what handlers of a modeless dialog throw once it is open: it has no run to leave through.
    using ExceptionTaker = std::function<void(std::exception_ptr)>;

    // With a taker the window is modeless, without one it is modal.
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
    bool IsModal() const { return taker_ == nullptr; }
    Dialog& Mirrored() const { return dialog_; }
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
    bool HasEnded() const override { return stage_ == Stage::Ended; }
    int ClientWidth(const Control& control) override;
    Rect NormalRect() const override;
    void SetNormalRect(const Rect& rect) override;

  private:
    // In this order, none twice.
    enum class Stage {
        Making,   // the window and its controls do not show the dialog yet, which hears of nothing
        Opening,  // the dialog initialises itself, hears of sizes and is asked for their limits
        InUse,    // by the user
        Ended,    // nothing reaches the dialog any more
    };

    // While one lives, what the controls notify of, and how large the window becomes, is the echo of what the
    // program itself is changing.
    class EchoGuard {
      public:
        explicit EchoGuard(DialogWindow& window) : window_(window) { ++window_.writing_; }
        ~EchoGuard() { --window_.writing_; }
        EchoGuard(const EchoGuard&) = delete;
        EchoGuard& operator=(const EchoGuard&) = delete;

      private:
        DialogWindow& window_;
    };

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Reply(LRESULT result) const;
    bool HearsOfSizes() const { return stage_ != Stage::Making && writing_ == 0; }

    void Attach(HWND window);
    void Detach();
    INT_PTR OnInit();
    void MakeMirrors();
    void ShowAll();
    void ShowFirst(ControlMirror& mirror);
    void ShowName(ControlMirror& mirror) const;
    void ReportOpeningBounds();
    void OnCommand(int id, int notification, HWND control);
    void HearCommand(int id, int notification, HWND control);
    INT_PTR OnNotify(NMHDR& notification);
    void AcceptDrops() const;
    void OnDrop(HDROP drop);
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

    [[nodiscard]] bool MoveAtOnce() const;
    void MoveOneByOne() const;
    void ShowMenuBar();
    void ShowIcon();
    void ShowFocus() const;
    void FollowFocus() const;
    ControlMirror* MirrorOf(HWND window) const;
    ControlMirror& MirrorOf(const Control& control) const;  // which has to be one of the dialog
    ControlMirror* SenderOf(const NMHDR& notification) const;
    Size Client() const;

    Dialog& dialog_;
    const ExceptionTaker taker_;
    HWND window_ = nullptr;
    Stage stage_ = Stage::Making;
    bool isAttended_ = true;  // RunModal, or OpenModeless until it returns, throws what handlers throw
    std::vector<std::unique_ptr<ControlMirror>> mirrors_;
    Tooltips tooltips_;
    MenuBar menuBar_;
    Rescaling rescaling_;
    std::optional<TaskModality> taskModality_;
    IconHandle smallIcon_;
    IconHandle largeIcon_;
    SizeKind sizeKind_ = SizeKind::Restored;
    int writing_ = 0;                  // how many of our own changes are being made right now
    int depth_ = 0;                    // how many messages are being worked on
    std::optional<Rect> place_;        // where the program wants the window to be when it is first shown
    std::optional<uint32_t> nextDpi_;  // to be taken when the window is no longer minimised
    bool staysInSession_ = false;      // the system shows why
    std::exception_ptr exception_;
};

}  // namespace ui::win32
