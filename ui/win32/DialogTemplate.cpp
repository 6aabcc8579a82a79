#include "ui/win32/DialogTemplate.h"

#include "ui/win32/WindowKinds.h"

namespace ui::win32 {
namespace {

DWORD StyleOf(const DialogStyle& style) {
    DWORD bits = DS_SHELLFONT | WS_POPUP | WS_CAPTION;
    if (style.systemMenu) bits |= WS_SYSMENU;
    if (style.minimizeBox) bits |= WS_MINIMIZEBOX;
    // Only what changes its size is painted often enough to flicker.
    bits |= style.resizable ? WS_THICKFRAME | WS_CLIPCHILDREN : DS_MODALFRAME;
    return bits;
}

}  // namespace

DialogTemplate::DialogTemplate(const Dialog& dialog) {
    AddHeader(dialog);
    for (Control* control : dialog.Controls()) AddControl(*control);
}

void DialogTemplate::AddHeader(const Dialog& dialog) {
    constexpr int ExtendedVersion = 1;
    constexpr int ExtendedSignature = 0xFFFF;
    constexpr int FontPoints = 8;
    AddWord(ExtendedVersion);
    AddWord(ExtendedSignature);
    AddLong(0);  // help id
    AddLong(0);  // extended style
    AddLong(StyleOf(dialog.Style()));
    AddWord(static_cast<int>(dialog.Controls().size()));
    AddWord(0);
    AddWord(0);
    AddWord(dialog.Style().size.width);
    AddWord(dialog.Style().size.height);
    AddWord(0);  // no menu
    AddWord(0);  // the system's own dialog class
    AddText({});
    AddWord(FontPoints);
    AddWord(FW_NORMAL);
    AddWord(DEFAULT_CHARSET << 8);  // low byte: not italic
    AddText(L"MS Shell Dlg");
}

void DialogTemplate::AddControl(Control& control) {
    const WindowKind kind = KindOf(control);
    DWORD style = kind.style | WS_CHILD;
    if (control.IsVisible()) style |= WS_VISIBLE;
    if (!control.IsEnabled()) style |= WS_DISABLED;
    if (control.TakesFocus()) style |= WS_TABSTOP;
    const Place& place = control.Placement();
    AlignToLong();
    AddLong(0);  // help id
    AddLong(kind.extendedStyle);
    AddLong(style);
    AddWord(place.x);
    AddWord(place.y);
    AddWord(place.width);
    AddWord(place.height + kind.dropHeight);
    AddLong(static_cast<uint32_t>(control.Id()));
    AddText(kind.className);
    AddText({});  // the window's text is shown once it exists
    AddWord(0);   // no creation data
}

void DialogTemplate::AddLong(uint32_t value) {
    AddWord(static_cast<int>(value & 0xFFFF));
    AddWord(static_cast<int>(value >> 16));
}

void DialogTemplate::AddText(std::wstring_view text) {
    for (const wchar_t unit : text) AddWord(unit);
    AddWord(0);
}

void DialogTemplate::AlignToLong() {
    if (words_.size() % 2 != 0) AddWord(0);
}

}  // namespace ui::win32
