#include "ui/win32/DialogWindow.h"

#include <algorithm>
#include <utility>

#include "ui/Names.h"
#include "ui/Screen.h"
#include "ui/win32/DialogTemplate.h"
#include "ui/win32/DroppedFiles.h"
#include "ui/win32/MirrorFactory.h"
#include "ui/win32/Placing.h"
#include "ui/win32/SystemFunctions.h"

namespace ui::win32 {
namespace {

constexpr UINT MoveFlags = SWP_NOZORDER | SWP_NOACTIVATE;

}  // namespace

DialogWindow::DialogWindow(Dialog& dialog, ExceptionTaker taker)
    : dialog_(dialog),
      taker_(std::move(taker)) {}

DialogWindow::~DialogWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
}

int DialogWindow::RunModal(HWND owner) {
    const DialogTemplate layout(dialog_);
    if (owner == nullptr) taskModality_.emplace();
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Data(), owner, Procedure,
                                                   reinterpret_cast<LPARAM>(this));
    const DWORD error = GetLastError();
    taskModality_.reset();
    if (exception_) std::rethrow_exception(std::exchange(exception_, nullptr));
    if (!ended_) throw ScreenError(error, L"Opening a window");
    return static_cast<int>(result);
}

void DialogWindow::OpenModeless(HWND owner) {
    modal_ = false;
    const DialogTemplate layout(dialog_);
    const HWND window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), layout.Data(), owner, Procedure,
                                                   reinterpret_cast<LPARAM>(this));
    const DWORD error = GetLastError();
    if (exception_) std::rethrow_exception(std::exchange(exception_, nullptr));
    if (ended_) return;
    if (window == nullptr) throw ScreenError(error, L"Opening a window");
    unattended_ = true;
    ShowWindow(window, SW_SHOW);
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ERASENOW | RDW_ALLCHILDREN);
    // The caller may be about to keep the thread busy for long. What has been drawn is sure to reach the
    // display once the queue has been looked at in vain, whatever else is waiting in it.
    constexpr UINT SentByNobody = 0xBFFF;
    MSG unused{};
    PeekMessageW(&unused, nullptr, SentByNobody, SentByNobody, PM_NOREMOVE);
}

void DialogWindow::Fail(std::exception_ptr exception) {
    if (initialised_ && !ended_ && dialog_.Survives(exception)) return;
    if (unattended_ && taker_) {
        taker_(std::move(exception));
    } else if (!exception_) {
        exception_ = std::move(exception);
    }
    dialog_.Close();
    if (!ended_) End(IdCancel);
}

INT_PTR DialogWindow::OnInit() {
    const uint32_t dpi = DpiOf(window_);
    KeepSystemFromRescaling(window_);
    rescaling_.Attach(window_);
    {
        const Writing writing(*this);
        MakeMirrors();
        ShowAll();
        ReportOpeningBounds();
    }
    opened_ = true;
    dialog_.Opened(*this, Client(), dpi);
    if (ended_) return TRUE;
    initialised_ = true;
    for (const auto& mirror : mirrors_) mirror->Complete();
    if (!place_) CenterOnOwner(window_);
    // The focus that the program chose holds only if the system is told that it need not choose any.
    return dialog_.Focus() == nullptr ? TRUE : FALSE;
}

void DialogWindow::MakeMirrors() {
    tooltips_.Attach(window_);
    for (Control* control : dialog_.Controls())
        mirrors_.push_back(MakeMirror(*control, GetDlgItem(window_, control->Id())));
}

void DialogWindow::ShowAll() {
    SetWindowTextW(window_, dialog_.Caption().c_str());
    ShowIcon();
    ShowMenuBar();
    for (const MenuItem& entry : dialog_.SystemMenuEntries()) AppendToSystemMenu(window_, entry);
    if (std::any_of(mirrors_.begin(), mirrors_.end(),
                    [](const auto& mirror) { return mirror->TakesPaths(); }))
        AcceptDrops(window_);
    for (const auto& mirror : mirrors_) {
        mirror->ShowAll();
        mirror->ShowName(SpokenName(dialog_, mirror->Mirrored()));
        tooltips_.SetText(mirror->Window(), mirror->Mirrored().Tooltip());
    }
}

void DialogWindow::ReportOpeningBounds() {
    for (const auto& mirror : mirrors_)
        mirror->Mirrored().SetOpeningBounds(BoundsIn(window_, mirror->Window()));
}

void DialogWindow::Show(const Control& control, Aspect aspect) {
    ControlMirror* const mirror = MirrorOf(control);
    if (mirror == nullptr) return;
    const Writing writing(*this);
    mirror->Show(aspect);
    if (aspect == Aspect::Name) {
        mirror->ShowName(SpokenName(dialog_, control));
        SetDlgItemTextW(window_, NamePlateId(control), control.Name().c_str());
    }
    if (aspect == Aspect::Tooltip) tooltips_.SetText(mirror->Window(), control.Tooltip());
    if (aspect == Aspect::Enabled || aspect == Aspect::Visible) tooltips_.Follow(mirror->Window());
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
    const Writing writing(*this);
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
    // The bar takes its room from outside: the controls keep theirs and need not hear of it.
    const bool wasOpened = std::exchange(opened_, false);
    if (menuBar_.Show(window_, dialog_.MenuBar())) ResizeClient(window_, client);
    opened_ = wasOpened;
}

void DialogWindow::ShowIcon() {
    const uint32_t dpi = DpiOf(window_);
    IconHandle largeIcon = LoadPicture(dialog_.Icon(), SystemMetric(SM_CXICON, dpi));
    IconHandle smallIcon = LoadPicture(dialog_.Icon(), SystemMetric(SM_CXSMICON, dpi));
    SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon.get()));
    SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon.get()));
    largeIcon_.swap(largeIcon);
    smallIcon_.swap(smallIcon);
}

void DialogWindow::ShowFocus() const {
    const Control* const focus = dialog_.Focus();
    ControlMirror* const mirror = focus == nullptr ? nullptr : MirrorOf(*focus);
    if (mirror == nullptr) return;
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(mirror->Window()), TRUE);
    mirror->TakeShown();
}

void DialogWindow::ShowBounds(const Dialog& /*dialog*/) {
    const Writing writing(*this);
    if (!MoveAtOnce()) MoveOneByOne();
    for (const auto& mirror : mirrors_) {
        mirror->Moved();
        tooltips_.Follow(mirror->Window());
    }
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// False: the system had no room to collect the moves.
bool DialogWindow::MoveAtOnce() const {
    HDWP moves = BeginDeferWindowPos(static_cast<int>(mirrors_.size()));
    for (const auto& mirror : mirrors_) {
        if (moves == nullptr) return false;
        const Rect to = mirror->BoundsWithDrop();
        moves = DeferWindowPos(moves, mirror->Window(), nullptr, to.x, to.y, to.width, to.height, MoveFlags);
    }
    return moves != nullptr && EndDeferWindowPos(moves) != FALSE;
}

void DialogWindow::MoveOneByOne() const {
    for (const auto& mirror : mirrors_) {
        const Rect to = mirror->BoundsWithDrop();
        SetWindowPos(mirror->Window(), nullptr, to.x, to.y, to.width, to.height, MoveFlags);
    }
}

void DialogWindow::End(int result) {
    if (std::exchange(ended_, true) || window_ == nullptr) return;
    if (modal_) {
        if (taskModality_) taskModality_->EndBefore(window_);
        EndDialog(window_, result);
    } else {
        DestroyWindow(window_);
    }
}

int DialogWindow::ClientWidth(const Control& control) const {
    const ControlMirror* const mirror = MirrorOf(control);
    RECT client{};
    if (mirror != nullptr) GetClientRect(mirror->Window(), &client);
    return client.right;
}

Rect DialogWindow::NormalRect() const {
    return NormalRectOf(window_);
}

void DialogWindow::SetNormalRect(const Rect& rect) {
    place_ = rect;
    MoveNormalRect(window_, rect);
    // A monitor with another resolution has made the window larger or smaller on the way.
    if (NormalRect() != rect) MoveNormalRect(window_, rect);
}

}  // namespace ui::win32
