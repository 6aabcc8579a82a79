#include "ui/win32/WindowKinds.h"

#include <commctrl.h>

#include <concepts>

#include "ui/Screen.h"
#include "ui/win32/ChoiceMirrors.h"
#include "ui/win32/ListViewMirror.h"
#include "ui/win32/SimpleMirrors.h"

namespace ui::win32 {
namespace {

constexpr int DropHeight = 150;

DWORD StyleOf(const EditStyle& edit) {
    DWORD style = WS_BORDER | ES_AUTOHSCROLL;
    if (edit.digitsOnly) style |= ES_NUMBER;
    if (edit.readOnly) style |= ES_READONLY;
    if (!edit.multiLine) return style;
    style |= ES_MULTILINE | ES_AUTOVSCROLL;
    if (!edit.readOnly) style |= ES_WANTRETURN;
    if (edit.scrollBars) return style | WS_VSCROLL | WS_HSCROLL;
    return style & ~DWORD{ES_AUTOHSCROLL};  // lines break where the edit ends
}

DWORD StyleOf(const ListStyle& list) {
    DWORD style = WS_BORDER | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS;
    if (list.singleSelection) style |= LVS_SINGLESEL;
    if (!list.sortableHeaders) style |= LVS_NOSORTHEADER;
    return style;
}

class KindFinder : public ControlVisitor {
  public:
    void Visit(Label& control) override { Take<CaptionMirror>(control, {WC_STATICW, SS_LEFT}); }
    void Visit(Picture& control) override { Take<PictureMirror>(control, {WC_STATICW, SS_ICON | SS_CENTERIMAGE}); }
    // Transparent, so that the dialog paints the inside, which a group box leaves alone.
    void Visit(GroupBox& control) override {
        Take<CaptionMirror>(control, {WC_BUTTONW, BS_GROUPBOX, WS_EX_TRANSPARENT});
    }
    void Visit(Edit& control) override { Take<EditMirror>(control, {WC_EDITW, StyleOf(control.Style())}); }
    void Visit(Button& control) override {
        const DWORD type = control.Id() == IdOk ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        Take<PushButtonMirror>(control, {WC_BUTTONW, type | BS_NOTIFY});
    }
    void Visit(IconButton& control) override {
        Take<IconButtonMirror>(control, {WC_BUTTONW, BS_PUSHBUTTON | BS_ICON | BS_NOTIFY});
    }
    void Visit(CheckBox& control) override { Take<CheckBoxMirror>(control, {WC_BUTTONW, BS_CHECKBOX | BS_NOTIFY}); }
    void Visit(ComboBox& control) override {
        constexpr DWORD Style = CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL;
        Take<ComboMirror>(control, {WC_COMBOBOXW, Style, 0, DropHeight});
    }
    void Visit(EditableCombo& control) override {
        constexpr DWORD Style = CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_HASSTRINGS | WS_VSCROLL;
        Take<EditableComboMirror>(control, {WC_COMBOBOXW, Style, 0, DropHeight});
    }
    void Visit(ListBox& control) override {
        constexpr DWORD Style = WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
        Take<ListBoxMirror>(control, {WC_LISTBOXW, Style});
    }
    void Visit(UpDown& control) override {
        Take<UpDownMirror>(control, {UPDOWN_CLASSW, UDS_ARROWKEYS | UDS_ALIGNRIGHT | UDS_NOTHOUSANDS});
    }
    void Visit(ListView& control) override { Take<ListViewMirror>(control, {WC_LISTVIEWW, StyleOf(control.Style())}); }

    WindowKind Kind() const { return kind_; }

  private:
    template <class Mirror, class Mirrored>
    void Take(Mirrored& control, const WindowKind& kind) {
        kind_ = kind;
        if constexpr (std::derived_from<Mirror, CaptionMirror>) kind_.caption = Mirror::CaptionOf(control);
        kind_.makeMirror = [&control](HWND window) { return std::make_unique<Mirror>(control, window); };
    }

    WindowKind kind_;
};

}  // namespace

WindowKind KindOf(Control& control) {
    KindFinder finder;
    control.Accept(finder);
    return finder.Kind();
}

}  // namespace ui::win32
