#include "ui/win32/DialogTemplate.h"

#include <commctrl.h>

#include <algorithm>

#include "ui/Dialog.h"

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
    const auto& controls = dialog.Controls();
    const auto namePlates = std::count_if(controls.begin(), controls.end(), [&dialog](const auto* control) {
        return NeedsAccessibleLabel(dialog, *control);
    });
    AddHeader(dialog, static_cast<int>(controls.size()) + static_cast<int>(namePlates));
    for (Control* control : controls) {
        if (NeedsAccessibleLabel(dialog, *control)) AddAccessibleLabel(*control);
        AddControl(*control);
    }
}

void DialogTemplate::AddHeader(const Dialog& dialog, int items) {
    constexpr int ExtendedVersion = 1;
    constexpr int ExtendedSignature = 0xFFFF;
    AddWord(ExtendedVersion);
    AddWord(ExtendedSignature);
    AddLong(0);  // help id
    AddLong(0);  // extended style
    AddLong(StyleOf(dialog.Style()));
    AddWord(items);
    const Size units = dialog.Style().size;
    AddPlace({.width = units.width, .height = units.height});  // it moves to where it is to be before it is seen
    AddWord(0);                                                // no menu
    AddWord(0);                                                // the system's own dialog class
    AddText({});
    AddWord(DialogFontPoints);
    AddWord(FW_NORMAL);
    AddWord(DEFAULT_CHARSET << 8);  // low byte: not italic
    AddText(L"MS Shell Dlg");
}

void DialogTemplate::AddAccessibleLabel(const Control& control) {
    constexpr DWORD Hidden{};
    AddItem({WC_STATICW, SS_LEFT | SS_NOPREFIX}, Hidden, {}, AccessibleLabelId(control), control.Name());
}

void DialogTemplate::AddControl(Control& control) {
    DWORD state = 0;
    if (control.IsVisible()) state |= WS_VISIBLE;
    if (!control.IsEnabled()) state |= WS_DISABLED;
    if (control.TakesFocus()) state |= WS_TABSTOP;
    const WindowKind kind = KindOf(control);
    AddItem(kind, state, control.Placement(), control.Id(), kind.caption);
}

void DialogTemplate::AddItem(const WindowKind& kind, DWORD state, const Place& place, int id, std::wstring_view text) {
    AlignToLong();
    AddLong(0);  // help id
    AddLong(kind.extendedStyle);
    AddLong(kind.style | WS_CHILD | state);
    AddPlace({place.x, place.y, place.width, place.height + kind.dropHeight});
    AddLong(static_cast<uint32_t>(id));
    AddText(kind.className);
    AddText(text);
    AddWord(0);  // no creation data
}

void DialogTemplate::AddPlace(const Place& place) {
    AddWord(place.x);
    AddWord(place.y);
    AddWord(place.width);
    AddWord(place.height);
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
    words_.resize(words_.size() + words_.size() % 2);
}

}  // namespace ui::win32
