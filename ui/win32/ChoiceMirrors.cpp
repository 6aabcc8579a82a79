#include "ui/win32/ChoiceMirrors.h"

#include <windowsx.h>

#include <bit>
#include <utility>

namespace ui::win32 {
namespace {

WPARAM SystemIndex(std::optional<size_t> index) {
    return index ? *index : static_cast<WPARAM>(CB_ERR);  // as for list boxes
}

std::optional<size_t> IndexOf(LRESULT systemIndex) {
    return systemIndex < 0 ? std::nullopt : std::optional(static_cast<size_t>(systemIndex));
}

// The window's own procedure, and the combo that the window is or belongs to.
constexpr const wchar_t* ProcedureProperty = L"ui::win32::ChoiceMirrors procedure";
constexpr const wchar_t* ComboProperty = L"ui::win32::ChoiceMirrors combo";

bool Scrolls(HWND window) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    return (style & WS_VSCROLL) != 0 && GetPropW(window, ComboProperty) == nullptr;
}

// None: nothing there scrolls, or it is disabled. A wheel that turns says on the screen where the mouse is.
HWND ScrollingWindowAt(POINT place, HWND combo) {
    const HWND window = WindowFromPoint(place);
    const HWND dialog = GetAncestor(combo, GA_ROOT);
    return IsChild(dialog, window) != FALSE && Scrolls(window) ? window : nullptr;
}

LRESULT CALLBACK GuardWheel(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto own = std::bit_cast<WNDPROC>(GetPropW(window, ProcedureProperty));
    const auto combo = static_cast<HWND>(GetPropW(window, ComboProperty));
    if (message == WM_MOUSEWHEEL && SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) == FALSE) {
        const HWND target = ScrollingWindowAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, combo);
        return target == nullptr ? 0 : SendMessageW(target, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        RemovePropW(window, ProcedureProperty);
        RemovePropW(window, ComboProperty);
    }
    return CallWindowProcW(own, window, message, wParam, lParam);
}

void Guard(HWND window, HWND combo) {
    const LONG_PTR own = GetWindowLongPtrW(window, GWLP_WNDPROC);
    const bool noted = SetPropW(window, ProcedureProperty, std::bit_cast<HANDLE>(own)) != FALSE &&
                       SetPropW(window, ComboProperty, combo) != FALSE;
    if (noted) SetWindowLongPtrW(window, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(&GuardWheel));
}

// Keeps the mouse wheel from choosing in a drop-down list that is closed: a notch too much would change what
// the user does not look at. The wheel goes to whatever scrolls under the mouse in the same dialog, or
// nowhere. An open list scrolls as ever.
void KeepWheelFromChoosing(HWND combo) {
    Guard(combo, combo);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(combo, &parts);
    if (parts.hwndItem != combo) Guard(parts.hwndItem, combo);  // an edit; where there is none, nothing is noted
}

}  // namespace

ComboMirror::ComboMirror(ChoiceControl& combo, HWND window) : ControlMirror(combo, window), combo_(combo) {
    KeepWheelFromChoosing(window);
}

void ComboMirror::ShowAll() {
    Show(Aspect::Items);
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
    for (const std::wstring& item : combo_.Items()) Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
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
    const RedrawPause pause(Window());
    const LRESULT top = Send(LB_GETTOPINDEX);
    Send(LB_RESETCONTENT);
    for (const std::wstring& item : list_.Items()) Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(top));
    Send(LB_SETCURSEL, SystemIndex(list_.Selected()));
}

void ListBoxMirror::OnCommand(int notification) {
    if (notification == LBN_SELCHANGE) list_.UserSelected(IndexOf(Send(LB_GETCURSEL)));
    if (notification == LBN_SETFOCUS) Focused();
    if (notification == LBN_KILLFOCUS) Left();
}

}  // namespace ui::win32
