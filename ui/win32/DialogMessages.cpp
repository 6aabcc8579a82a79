// The one place where the messages of a dialog's window are sorted: questions, the echo of our own changes,
// and what the user does.
#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <bit>
#include <new>
#include <utility>

#include "platform/win32/Length.h"
#include "ui/win32/DialogWindow.h"

namespace ui::win32 {
namespace {

// Files and folders that the user dragged from another program and let go of over a window.
class DroppedFiles {
  public:
    explicit DroppedFiles(HDROP drop) : drop_(drop) {}
    ~DroppedFiles() { DragFinish(drop_); }
    DroppedFiles(const DroppedFiles&) = delete;
    DroppedFiles& operator=(const DroppedFiles&) = delete;

    // In the client area of the window.
    POINT Place() const {
        POINT place{};
        DragQueryPoint(drop_, &place);
        return place;
    }
    std::wstring FirstPath() const {
        using platform::win32::LongestPath;
        std::wstring path(LongestPath, L'\0');
        const UINT length = DragQueryFileW(drop_, 0, path.data(), LongestPath);
        return path.substr(0, length);
    }

  private:
    const HDROP drop_;
};

}  // namespace

// Each message asks for it: a property of the window, which any window can have, would be much slower.
DialogWindow* DialogWindow::Of(HWND window) {
    const bool isOurs = GetWindowLongPtrW(window, DWLP_DLGPROC) == std::bit_cast<LONG_PTR>(&Procedure);
    return isOurs ? reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER)) : nullptr;
}

void DialogWindow::Attach(HWND window) {
    window_ = window;
    SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
}

void DialogWindow::Detach() {
    LetSessionEnd();
    window_ = nullptr;
    dialog_.Closed();
}

INT_PTR CALLBACK DialogWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) reinterpret_cast<DialogWindow*>(lParam)->Attach(window);
    DialogWindow* const self = Of(window);
    return self == nullptr ? FALSE : self->Dispatch(message, wParam, lParam);
}

// No exception may travel through the system's own code: it is kept until the run of the dialog has ended.
INT_PTR DialogWindow::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    ++depth_;
    INT_PTR handled = FALSE;
    try {
        handled = Handle(message, wParam, lParam);
    } catch (...) {
        Fail(std::current_exception());
    }
    --depth_;
    return handled;
}

INT_PTR DialogWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) Detach();
    if (stage_ == Stage::Ended) return FALSE;
    tooltips_.Hear(message, wParam, lParam);
    switch (message) {
        case WM_INITDIALOG:
            return OnInit();
        case WM_COMMAND:
            OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
            return TRUE;
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
        case WM_SYSCOMMAND:
            return dialog_.UserChoseSystemMenu(static_cast<int>(wParam & 0xFFF0)) ? Reply(0) : FALSE;
        case WM_SIZE:
            OnSize(wParam, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return FALSE;
        case WM_GETMINMAXINFO:
            OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
            return FALSE;
        case WM_DROPFILES:
            OnDrop(reinterpret_cast<HDROP>(wParam));
            return Reply(0);
        case WM_QUERYENDSESSION:
            return Reply(MayEndSession(lParam));
        case WM_SYSCOLORCHANGE:
            OnChangedColors();
            return FALSE;
        case WM_DPICHANGED:
            OnChangedDpi(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return Reply(0);
        case WM_GETDPISCALEDSIZE:
            return OnScaledSize(static_cast<uint32_t>(wParam), *reinterpret_cast<SIZE*>(lParam));
        default:
            return FALSE;
    }
}

bool DialogWindow::Press(const KeyChord& chord) noexcept {
    if (stage_ != Stage::InUse) return false;
    ++depth_;
    bool pressed = true;
    try {
        if (const Control* const focus = dialog_.Focus()) MirrorOf(*focus).BeforeShortcut();
        pressed = dialog_.UserPressed(chord);
    } catch (...) {
        Fail(std::current_exception());
    }
    --depth_;
    return pressed;
}

INT_PTR DialogWindow::Reply(LRESULT result) const {
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
    return TRUE;
}

void DialogWindow::OnCommand(int id, int notification, HWND control) {
    if (writing_ == 0) HearCommand(id, notification, control);
    if (notification == EN_CHANGE)
        for (const auto& mirror : mirrors_) mirror->FollowEdits();
}

void DialogWindow::HearCommand(int id, int notification, HWND control) {
    ControlMirror* const mirror = MirrorOf(control);
    if (notification == BN_CLICKED)  // or chosen from a menu, or by Enter
        for (const auto& shown : mirrors_) shown->TakeShown();
    if (mirror != nullptr) {
        mirror->OnCommand(notification);
    } else if (id == IdOk) {
        dialog_.UserPressedOk();  // Enter, and there is no such button
    } else if (id == IdCancel) {
        dialog_.UserPressedCancel();  // Escape or the close box, and there is no such button
    } else if (control == nullptr) {
        dialog_.UserChoseMenu(id);
    }
}

INT_PTR DialogWindow::OnNotify(NMHDR& notification) {
    ControlMirror* const mirror = SenderOf(notification);
    if (mirror == nullptr) return FALSE;
    try {
        if (const std::optional<LRESULT> answer = mirror->Answer(notification)) return Reply(*answer);
    } catch (const std::bad_alloc&) {
        return FALSE;  // a cell stays empty; a box would come up with each painting
    }
    return writing_ > 0 ? FALSE : Reply(mirror->OnNotify(notification));
}

void DialogWindow::AcceptDrops() const {
    constexpr UINT CopyGlobalData = 0x0049;
    // The drop itself, and what carries the files from a program without an administrator's rights.
    for (const UINT message : {UINT{WM_DROPFILES}, UINT{WM_COPYDATA}, CopyGlobalData})
        ChangeWindowMessageFilterEx(window_, message, MSGFLT_ALLOW, nullptr);
    DragAcceptFiles(window_, TRUE);
}

void DialogWindow::OnDrop(HDROP drop) {
    const DroppedFiles dropped(drop);
    const HWND target = ChildWindowFromPointEx(window_, dropped.Place(), CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
    if (ControlMirror* const mirror = MirrorOf(target)) mirror->OnDrop(dropped.FirstPath());
}

// Controls hear of it from their dialog alone.
void DialogWindow::OnChangedColors() {
    const auto tell = [](HWND control, LPARAM) -> BOOL {
        SendMessageW(control, WM_SYSCOLORCHANGE, 0, 0);
        return TRUE;
    };
    EnumChildWindows(window_, tell, 0);
    tooltips_.TellOfColors();
    for (const auto& mirror : mirrors_) mirror->ShowColors();
}

// A session that has to end at once cannot be held up.
bool DialogWindow::MayEndSession(LPARAM how) {
    const wchar_t* const reason = dialog_.ReasonToStay();
    if (reason == nullptr) {
        LetSessionEnd();
        return true;
    }
    if ((static_cast<DWORD>(how) & ENDSESSION_CRITICAL) != 0) return true;
    ShutdownBlockReasonCreate(window_, reason);
    staysInSession_ = true;
    return false;
}

void DialogWindow::LetSessionEnd() {
    if (std::exchange(staysInSession_, false)) ShutdownBlockReasonDestroy(window_);
}

ControlMirror* DialogWindow::MirrorOf(HWND window) const {
    for (const auto& mirror : mirrors_)
        if (mirror->Window() == window) return mirror.get();
    return nullptr;
}

ControlMirror& DialogWindow::MirrorOf(const Control& control) const {
    return **std::find_if(mirrors_.begin(), mirrors_.end(),
                          [&control](const auto& mirror) { return &mirror->Mirrored() == &control; });
}

ControlMirror* DialogWindow::SenderOf(const NMHDR& notification) const {
    if (ControlMirror* const mirror = MirrorOf(notification.hwndFrom)) return mirror;
    return MirrorOf(GetParent(notification.hwndFrom));  // the header of a list
}

}  // namespace ui::win32
