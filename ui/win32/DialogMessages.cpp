// The one place where the messages of a dialog's window are sorted: questions, the echo of our own changes,
// and what the user does.
#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include <new>
#include <utility>

#include "ui/win32/DialogWindow.h"
#include "ui/win32/DroppedFiles.h"

namespace ui::win32 {
namespace {

constexpr const wchar_t* OwnProperty = L"ui::win32::DialogWindow";

}  // namespace

DialogWindow* DialogWindow::Of(HWND window) {
    return static_cast<DialogWindow*>(GetPropW(window, OwnProperty));
}

void DialogWindow::Attach(HWND window) {
    window_ = window;
    SetPropW(window, OwnProperty, this);
}

void DialogWindow::Detach() {
    LetSessionEnd();
    RemovePropW(window_, OwnProperty);
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
    if (ended_) return FALSE;  // nothing is told to a dialog that has ended
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
            OnDrop(DroppedFiles(reinterpret_cast<HDROP>(wParam)));
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
    if (!initialised_ || ended_) return false;
    ++depth_;
    bool pressed = true;
    try {
        ControlMirror* const focused = dialog_.Focus() == nullptr ? nullptr : MirrorOf(*dialog_.Focus());
        if (focused != nullptr) focused->BeforeShortcut();
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
    if (notification != EN_CHANGE) return;
    for (const auto& mirror : mirrors_) mirror->FollowEdits();
}

void DialogWindow::HearCommand(int id, int notification, HWND control) {
    ControlMirror* const mirror = MirrorOf(control);
    if (id == IdOk && notification == BN_CLICKED)
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

void DialogWindow::OnDrop(const DroppedFiles& dropped) {
    const HWND target =
        ChildWindowFromPointEx(window_, dropped.Place(), CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
    if (ControlMirror* const mirror = MirrorOf(target)) mirror->OnDrop(dropped.FirstPath());
}

void DialogWindow::OnSize(WPARAM kind, Size client) {
    if (!opened_ || fitting_) return;
    const SizeKind before = std::exchange(sizeKind_, kind == SIZE_MINIMIZED   ? SizeKind::Minimized
                                                     : kind == SIZE_MAXIMIZED ? SizeKind::Maximized
                                                                              : SizeKind::Restored);
    if (nextDpi_ && sizeKind_ == SizeKind::Restored) {
        const uint32_t dpi = *nextDpi_;
        nextDpi_.reset();
        TakeDpi(dpi);
        RECT outer{};
        GetWindowRect(window_, &outer);
        return FitTo({outer.left, outer.top});
    }
    // The system says its size once more when a window is first shown.
    if (before == sizeKind_ && client == dialog_.ClientSize()) return;
    dialog_.UserResized(sizeKind_, client);
}

void DialogWindow::OnMinMaxInfo(MINMAXINFO& info) const {
    if (!opened_ || fitting_) return;
    const Size smallest = dialog_.MinimumTrackSize();
    if (smallest.width > 0) info.ptMinTrackSize.x = smallest.width;
    if (smallest.height > 0) info.ptMinTrackSize.y = smallest.height;
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
    if (window == nullptr) return nullptr;
    for (const auto& mirror : mirrors_)
        if (mirror->Window() == window) return mirror.get();
    return nullptr;
}

ControlMirror* DialogWindow::MirrorOf(const Control& control) const {
    for (const auto& mirror : mirrors_)
        if (&mirror->Mirrored() == &control) return mirror.get();
    return nullptr;
}

ControlMirror* DialogWindow::SenderOf(const NMHDR& notification) const {
    if (ControlMirror* const mirror = MirrorOf(notification.hwndFrom)) return mirror;
    return MirrorOf(GetParent(notification.hwndFrom));  // the header of a list
}

Size DialogWindow::Client() const {
    RECT client{};
    GetClientRect(window_, &client);
    return {client.right, client.bottom};
}

}  // namespace ui::win32
