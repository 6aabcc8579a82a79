#include "ui/win32/SimpleMirrors.h"
#include "platform/win32/Resolution.h"

#include <commctrl.h>

namespace ui::win32 {
namespace {

Size ClientSizeOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return {area.right, area.bottom};
}

}  // namespace

std::wstring CaptionMirror::WithDoubledAmpersands(const std::wstring& text) {
    std::wstring doubled;
    for (const wchar_t unit : text) doubled.append(unit == L'&' ? 2 : 1, unit);
    return doubled;
}

void PictureMirror::Show(Aspect aspect) {
    ControlMirror::Show(aspect);
    if (aspect != Aspect::Icon) return;
    IconHandle icon = LoadPicture(picture_.Icon(), PictureSizeFor(ClientSizeOf(Window())));
    Send(STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_.swap(icon);  // the old one goes once the window has let go of it
}

void EditMirror::ShowAll() {
    Send(EM_SETLIMITTEXT, edit_.Style().longest);  // 0: as much as the system can hold
    Show(Aspect::Text);
    if (!edit_.Cue().empty()) Show(Aspect::Cue);
    if (edit_.IsReadOnly() != edit_.Style().readOnly) Show(Aspect::ReadOnly);
}

void EditMirror::Show(Aspect aspect) {
    const bool refilled = aspect == Aspect::Text && GetFocus() == Window() && GetWindowTextLengthW(Window()) == 0;
    ControlMirror::Show(aspect);
    // What the program puts where the user has just deleted everything gives way to the next key.
    if (refilled) Send(EM_SETSEL, 0, -1);
    if (aspect == Aspect::ReadOnly) Send(EM_SETREADONLY, edit_.IsReadOnly());
    if (aspect == Aspect::Cue) ShowCue();
}

// An empty one takes an earlier one away. The window does not always paint itself anew for it.
void EditMirror::ShowCue() const {
    constexpr WPARAM alsoWithFocus = TRUE;
    Send(EM_SETCUEBANNER, alsoWithFocus, reinterpret_cast<LPARAM>(edit_.Cue().c_str()));
    InvalidateRect(Window(), nullptr, TRUE);
}

void EditMirror::OnCommand(int notification) {
    if (notification == EN_CHANGE) Typed();
    if (notification == EN_SETFOCUS) Focused();
    if (notification == EN_KILLFOCUS) Left();
}

// Where the control refuses a part of it, its text replaces the window's, which would move the caret to the
// front.
void EditMirror::Typed() {
    const std::wstring typed = TextOf(Window());
    DWORD caret{};
    Send(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    edit_.UserTyped(typed);
    if (edit_.CountRefused(typed) == 0) return;
    const size_t kept = caret - edit_.CountRefused(std::wstring_view(typed).substr(0, caret));
    Send(EM_SETSEL, kept, static_cast<LPARAM>(kept));
}

void EditMirror::OnDrop(const std::wstring& path) {
    if (edit_.TakesDrops()) SetWindowTextW(Window(), path.c_str());  // heard like typing
}

void ButtonMirror::OnCommand(int notification) {
    // The second click of a quick pair comes under another name; it is a click all the same.
    if (notification == BN_CLICKED || notification == BN_DOUBLECLICKED) Clicked();
    if (notification == BN_SETFOCUS) Focused();
    if (notification == BN_KILLFOCUS) Left();
}

std::wstring IconButtonMirror::CaptionOf(const IconButton& button) {
    return WithDoubledAmpersands(button.Text().empty() ? button.Tooltip() : button.Text());
}

void IconButtonMirror::Show(Aspect aspect) {
    ControlMirror::Show(aspect == Aspect::Tooltip ? Aspect::Text : aspect);
    if (aspect == Aspect::Icon) LoadIcon();
    if (aspect == Aspect::Enabled) ShowIcon();
}

void IconButtonMirror::ShowAll() {
    ButtonMirror::ShowAll();
    LoadIcon();
}

void IconButtonMirror::LoadIcon() {
    const int size = ButtonPictureSizeFor(ClientSizeOf(Window()), platform::win32::DpiOf(Window()));
    IconHandle icon = LoadPicture(button_.Icon(), size);
    icon_.swap(icon);  // the old one goes once the window has let go of it
    ShowIcon();
}

void IconButtonMirror::ShowIcon() {
    static const IconHandle Empty = EmptyPicture();
    fadedIcon_ = button_.IsEnabled() ? IconHandle() : FadedPicture(icon_.get());
    const IconHandle& icon = fadedIcon_ == nullptr ? icon_ : Empty;
    Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    InvalidateRect(Window(), nullptr, TRUE);
}

std::optional<LRESULT> IconButtonMirror::Answer(NMHDR& question) const {
    if (question.code != static_cast<UINT>(NM_CUSTOMDRAW)) return std::nullopt;
    const auto& stage = reinterpret_cast<const NMCUSTOMDRAW&>(question);
    if (stage.dwDrawStage == CDDS_POSTPAINT) DrawFaded(stage.hdc);
    const bool drawsItself = stage.dwDrawStage == CDDS_PREPAINT && fadedIcon_ != nullptr;
    return drawsItself ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
}

void IconButtonMirror::DrawFaded(HDC canvas) const {
    const Size area = ClientSizeOf(Window());
    const int size = ButtonPictureSizeFor(area, platform::win32::DpiOf(Window()));
    const int x = (area.width - size) / 2;
    const int y = (area.height - size) / 2;
    DrawIconEx(canvas, x, y, fadedIcon_.get(), size, size, 0, nullptr, DI_NORMAL);
}

void CheckBoxMirror::ShowAll() {
    Show(Aspect::Text);
    Show(Aspect::Check);
}

void CheckBoxMirror::Show(Aspect aspect) {
    ControlMirror::Show(aspect);
    if (aspect == Aspect::Check) Send(BM_SETCHECK, box_.IsChecked() ? BST_CHECKED : BST_UNCHECKED);
}

// The arrows take their room from the right end of the edit.
void UpDownMirror::TakeHold() {
    Send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(GetDlgItem(GetParent(Window()), arrows_.Buddy().Id())));
}

void UpDownMirror::Show(Aspect aspect) {
    ControlMirror::Show(aspect);
    if (aspect != Aspect::Range) return;
    Send(UDM_SETRANGE32, static_cast<WPARAM>(arrows_.Lowest()), arrows_.Highest());
    FollowEdits();
}

void UpDownMirror::FollowEdits() {
    Send(UDM_SETPOS32, 0, arrows_.Buddy().Number());  // kept within the range
}

LRESULT UpDownMirror::OnNotify(const NMHDR& notification) {
    if (notification.code != static_cast<UINT>(UDN_DELTAPOS)) return 0;
    arrows_.UserStepped(reinterpret_cast<const NMUPDOWN&>(notification).iDelta);
    return TRUE;  // the edit has changed, and the window's number with it
}

}  // namespace ui::win32
