#include "ui/win32/DialogWindow.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/win32/Resolution.h"
#include "ui/Dialog.h"
#include "ui/Screen.h"
#include "ui/win32/DialogTemplate.h"
#include "ui/win32/Placing.h"
#include "ui/win32/WindowKinds.h"

namespace ui::win32 {
namespace {

bool TakesInput(HWND window) {
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
}

// A menu bar takes its room at once: the dialog may ask how large its window is while it initialises itself.
bool IsShownByShowAll(DialogAspect aspect) {
    return aspect != DialogAspect::MenuBar && aspect != DialogAspect::ReasonToStay;
}

// Nothing may be thrown through the system's code.
BOOL CALLBACK Note(HWND window, LPARAM list) noexcept {
    try {
        if (TakesInput(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
        return TRUE;
    } catch (const std::bad_alloc&) {
        return FALSE;
    }
}

}  // namespace

TaskModality::TaskModality() : activeBefore_(GetActiveWindow()) {
    EnumThreadWindows(GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(&disabled_));
    for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

TaskModality::~TaskModality() {
    Enable();
}

void TaskModality::EndBefore(HWND modal) {
    Enable();
    if (GetActiveWindow() == modal && TakesInput(activeBefore_)) SetActiveWindow(activeBefore_);
}

void TaskModality::Enable() {
    for (const HWND window : std::exchange(disabled_, {})) EnableWindow(window, TRUE);  // refused for one that is gone
}

DialogWindow::DialogWindow(Dialog& dialog, ExceptionTaker taker) : dialog_(dialog), taker_(std::move(taker)) {}

DialogWindow::~DialogWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
}

int DialogWindow::RunModal(HWND owner) {
    const DialogTemplate layout(dialog_);
    if (owner == nullptr) taskModality_.emplace();
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Data(), owner, Procedure,
                                                   reinterpret_cast<LPARAM>(this));
    const DWORD error = GetLastError();
    if (exception_) std::rethrow_exception(std::exchange(exception_, nullptr));
    if (!HasEnded()) throw ScreenError(error, L"Opening a window");
    return static_cast<int>(result);
}

void DialogWindow::OpenModeless(HWND owner) {
    const DialogTemplate layout(dialog_);
    const HWND window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), layout.Data(), owner, Procedure,
                                                   reinterpret_cast<LPARAM>(this));
    const DWORD error = GetLastError();
    if (exception_) std::rethrow_exception(std::exchange(exception_, nullptr));
    if (HasEnded()) return;
    if (window == nullptr) throw ScreenError(error, L"Opening a window");
    isAttended_ = false;
    ShowWindow(window, SW_SHOW);
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ERASENOW | RDW_ALLCHILDREN);
    // The caller may be about to keep the thread busy for long. What has been drawn is sure to reach the
    // display once the queue has been looked at in vain, whatever else is waiting in it.
    constexpr UINT SentByNobody = 0xBFFF;
    MSG unused{};
    PeekMessageW(&unused, nullptr, SentByNobody, SentByNobody, PM_NOREMOVE);
}

void DialogWindow::Fail(std::exception_ptr exception) {
    if (stage_ == Stage::InUse && dialog_.RecoversFrom(exception)) return;
    if (!isAttended_) {
        taker_(std::move(exception));
    } else if (!exception_) {
        exception_ = std::move(exception);
    }
    End(IdCancel);
}

INT_PTR DialogWindow::OnInit() {
    const uint32_t dpi = platform::win32::DpiOf(window_);
    platform::win32::KeepSystemFromRescaling(window_);
    rescaling_.Attach(window_);
    MakeMirrors();
    ReportOpeningBounds();
    stage_ = Stage::Opening;
    dialog_.Opened(*this, Client(), dpi);
    if (HasEnded()) return FALSE;
    ShowAll();
    stage_ = Stage::InUse;
    if (!place_) CenterOnOwner(window_);
    // The focus that the program chose holds only if the system is told that it need not choose any.
    return dialog_.Focus() == nullptr ? TRUE : FALSE;
}

void DialogWindow::MakeMirrors() {
    const EchoGuard guard(*this);
    for (Control* control : dialog_.Controls())
        mirrors_.push_back(KindOf(*control).makeMirror(GetDlgItem(window_, control->Id())));
    for (const auto& mirror : mirrors_) mirror->TakeHold();
}

// The dialog has initialised itself: what it has come to be is shown once.
void DialogWindow::ShowAll() {
    const EchoGuard guard(*this);
    SetWindowTextW(window_, dialog_.Caption().c_str());
    ShowIcon();
    ShowMenuBar();
    for (const MenuItem& entry : dialog_.SystemMenuEntries()) AppendToSystemMenu(window_, entry);
    if (std::any_of(mirrors_.begin(), mirrors_.end(), [](const auto& mirror) { return mirror->TakesPaths(); }))
        AcceptDrops();
    for (const auto& mirror : mirrors_) ShowFirst(*mirror);
    ShowFocus();
}

void DialogWindow::ShowFirst(ControlMirror& mirror) {
    if (mirror.IsShown()) return;
    const EchoGuard guard(*this);
    mirror.ShowFirst();
    ShowName(mirror);
    tooltips_.Add(mirror.Window(), mirror.Mirrored().Tooltip());
}

void DialogWindow::ShowName(ControlMirror& mirror) const {
    const Control& control = mirror.Mirrored();
    mirror.ShowName(AccessibleName(dialog_, control));
    const HWND label = GetDlgItem(window_, AccessibleLabelId(control));
    if (label != nullptr && TextOf(label) != control.Name()) SetWindowTextW(label, control.Name().c_str());
}

void DialogWindow::Show(const Control& control, Aspect aspect) {
    ControlMirror& mirror = MirrorOf(control);
    const bool isAct = aspect == Aspect::Scroll || aspect == Aspect::DroppedDown;
    if (isAct) ShowFirst(mirror);
    if (!mirror.IsShown()) return;
    const EchoGuard guard(*this);
    mirror.Show(aspect);
    if (aspect == Aspect::Name) ShowName(mirror);
    if (aspect == Aspect::Tooltip) tooltips_.SetText(mirror.Window(), control.Tooltip());
    if (aspect == Aspect::Enabled || aspect == Aspect::Visible) tooltips_.Follow(mirror.Window());
    if (control.HasFocus() && !(control.IsEnabled() && control.IsVisible())) FollowFocus();
}

// The focused control was taken from the user, who did not move the focus but finds it elsewhere.
void DialogWindow::FollowFocus() const {
    dialog_.UserLeft(*dialog_.Focus());
    const HWND focus = GetFocus();
    for (const auto& mirror : mirrors_) {
        const bool holdsFocus = mirror->Window() == focus || IsChild(mirror->Window(), focus) != FALSE;
        if (holdsFocus && IsWindowEnabled(mirror->Window()) != FALSE) dialog_.UserFocused(mirror->Mirrored());
    }
}

void DialogWindow::Show(const Dialog& dialog, DialogAspect aspect) {
    if (stage_ == Stage::Opening && IsShownByShowAll(aspect)) return;
    const EchoGuard guard(*this);
    switch (aspect) {
        case DialogAspect::Caption:
            SetWindowTextW(window_, dialog.Caption().c_str());
            break;
        case DialogAspect::Icon:
            ShowIcon();
            break;
        case DialogAspect::MenuBar:
            ShowMenuBar();
            break;
        case DialogAspect::SystemMenu:
            AppendToSystemMenu(window_, dialog.SystemMenuEntries().back());
            break;
        case DialogAspect::Focus:
            ShowFocus();
            break;
        case DialogAspect::ReasonToStay:
            if (dialog.ReasonToStay() == nullptr) LetSessionEnd();
            break;
    }
}

void DialogWindow::ShowMenuBar() {
    const Size client = Client();
    // The bar takes its room from outside: the controls keep theirs.
    if (menuBar_.Show(window_, dialog_.MenuBar())) ResizeClient(window_, client);
}

void DialogWindow::ShowIcon() {
    const uint32_t dpi = dialog_.Dpi();
    IconHandle largeIcon = LoadPicture(dialog_.Icon(), platform::win32::SystemMetric(SM_CXICON, dpi));
    IconHandle smallIcon = LoadPicture(dialog_.Icon(), platform::win32::SystemMetric(SM_CXSMICON, dpi));
    SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon.get()));
    SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon.get()));
    largeIcon_.swap(largeIcon);
    smallIcon_.swap(smallIcon);
}

void DialogWindow::ShowFocus() const {
    const Control* const focus = dialog_.Focus();
    if (focus == nullptr) return;
    ControlMirror& mirror = MirrorOf(*focus);
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(mirror.Window()), TRUE);
    mirror.TakeShown();
}

void DialogWindow::End(int result) {
    if (std::exchange(stage_, Stage::Ended) == Stage::Ended || window_ == nullptr) return;
    if (IsModal()) {
        if (taskModality_) taskModality_->EndBefore(window_);
        EndDialog(window_, result);
    } else {
        DestroyWindow(window_);
    }
}

}  // namespace ui::win32
