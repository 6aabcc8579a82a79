#include "ui/win32/WindowKinds.h"

#include <commctrl.h>

#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/ListView.h"
#include "ui/Screen.h"

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
    void Visit(Label&) override { kind_ = {WC_STATICW, SS_LEFT}; }
    void Visit(Picture&) override { kind_ = {WC_STATICW, SS_ICON | SS_CENTERIMAGE}; }
    // Transparent, so that the dialog paints the inside, which a group box leaves alone.
    void Visit(GroupBox&) override { kind_ = {WC_BUTTONW, BS_GROUPBOX, WS_EX_TRANSPARENT}; }
    void Visit(Edit& control) override { kind_ = {WC_EDITW, StyleOf(control.Style())}; }
    void Visit(Button& control) override {
        const DWORD type = control.Id() == IdOk ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        kind_ = {WC_BUTTONW, type | BS_NOTIFY};
    }
    void Visit(IconButton&) override { kind_ = {WC_BUTTONW, BS_PUSHBUTTON | BS_ICON | BS_NOTIFY}; }
    void Visit(CheckBox&) override { kind_ = {WC_BUTTONW, BS_CHECKBOX | BS_NOTIFY}; }
    void Visit(ComboBox&) override {
        kind_ = {WC_COMBOBOXW, CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL, 0, DropHeight};
    }
    void Visit(EditableCombo&) override {
        kind_ = {WC_COMBOBOXW, CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_HASSTRINGS | WS_VSCROLL, 0, DropHeight};
    }
    void Visit(ListBox&) override {
        kind_ = {WC_LISTBOXW, WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT};
    }
    void Visit(UpDown&) override {
        kind_ = {UPDOWN_CLASSW, UDS_ARROWKEYS | UDS_ALIGNRIGHT | UDS_NOTHOUSANDS};
    }
    void Visit(ListView& control) override { kind_ = {WC_LISTVIEWW, StyleOf(control.Style())}; }

    const WindowKind& Kind() const { return kind_; }

  private:
    WindowKind kind_;
};

}  // namespace

WindowKind KindOf(Control& control) {
    KindFinder finder;
    control.Accept(finder);
    return finder.Kind();
}

}  // namespace ui::win32
