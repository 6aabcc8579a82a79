#include "ui/win32/ChoiceMirrors.h"

#include <utility>

#include "ui/win32/WheelGuard.h"

namespace ui::win32 {
namespace {

// The system's index, which is -1 for none.
WPARAM SystemIndex(std::optional<size_t> index) {
    return index ? *index : static_cast<WPARAM>(-1);
}

std::optional<size_t> IndexOf(LRESULT systemIndex) {
    return systemIndex < 0 ? std::nullopt : std::optional(static_cast<size_t>(systemIndex));
}

}  // namespace

ComboMirror::ComboMirror(ChoiceControl& combo, HWND window) : ControlMirror(combo, window), combo_(combo) {
    KeepWheelFromChoosing(window);
}

void ComboMirror::ShowAll() {
    Show(Aspect::Items);
    Show(Aspect::Text);
}

void ComboMirror::Show(Aspect aspect) {
    // The window of a drop-down list carries the selected item's text, the control has none of its own.
    if (aspect == Aspect::Items) {
        ShowItems();
    } else if (aspect == Aspect::Selection) {
        ShowSelection();
    } else if (aspect == Aspect::DroppedDown) {
        Send(CB_SHOWDROPDOWN, TRUE);
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));  // which the open list would keep hidden
    } else if (aspect != Aspect::Text) {
        ControlMirror::Show(aspect);
    }
}

void ComboMirror::ShowItems() const {
    Send(CB_RESETCONTENT);
    for (const std::wstring& item : combo_.Items())
        Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    ShowSelection();
}

void ComboMirror::ShowSelection() const {
    Send(CB_SETCURSEL, SystemIndex(combo_.Selected()));
}

void ComboMirror::OnCommand(int notification) {
    if (notification == CBN_SELCHANGE) combo_.UserSelected(IndexOf(Send(CB_GETCURSEL)));
    if (notification == CBN_SETFOCUS) Focused();
    if (notification == CBN_KILLFOCUS) Left();
}

int ComboMirror::DropHeight() const {
    RECT dropped{};
    RECT closed{};
    Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    GetWindowRect(Window(), &closed);
    return (dropped.bottom - dropped.top) - (closed.bottom - closed.top);
}

void EditableComboMirror::ShowAll() {
    Send(CB_LIMITTEXT, combo_.Longest());  // 0: as much as the system can hold
    ComboMirror::ShowAll();
}

void EditableComboMirror::Show(Aspect aspect) {
    if (aspect == Aspect::Text) {
        ShowText();
        return;
    }
    ComboMirror::Show(aspect);
    // Filling and selecting change the edit as well.
    if (aspect == Aspect::Items || aspect == Aspect::Selection) ShowText();
}

void EditableComboMirror::OnCommand(int notification) {
    if (notification == CBN_EDITCHANGE) combo_.UserTyped(TextOf(Window()));
    if (notification == CBN_CLOSEUP || notification == CBN_KILLFOCUS) TakeShown();
    ComboMirror::OnCommand(notification);
}

void EditableComboMirror::TakeShown() {
    if (std::wstring shown = TextOf(Window()); shown != combo_.Text()) combo_.UserTyped(std::move(shown));
}

void ListBoxMirror::Show(Aspect aspect) {
    if (aspect == Aspect::Items) {
        ShowItems();
    } else if (aspect == Aspect::Selection) {
        Send(LB_SETCURSEL, SystemIndex(list_.Selected()));
    } else if (aspect != Aspect::Text) {
        ControlMirror::Show(aspect);
    }
}

void ListBoxMirror::ShowItems() const {
    const bool redraw = IsWindowVisible(Window()) != FALSE;
    const LRESULT top = Send(LB_GETTOPINDEX);
    if (redraw) Send(WM_SETREDRAW, FALSE);
    Send(LB_RESETCONTENT);
    for (const std::wstring& item : list_.Items())
        Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(top));
    Send(LB_SETCURSEL, SystemIndex(list_.Selected()));
    if (redraw) Send(WM_SETREDRAW, TRUE);
    InvalidateRect(Window(), nullptr, TRUE);
}

void ListBoxMirror::OnCommand(int notification) {
    if (notification == LBN_SELCHANGE) list_.UserSelected(IndexOf(Send(LB_GETCURSEL)));
    if (notification == LBN_SETFOCUS) Focused();
    if (notification == LBN_KILLFOCUS) Left();
}

}  // namespace ui::win32
