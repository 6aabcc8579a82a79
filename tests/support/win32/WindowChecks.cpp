#include "tests/support/win32/WindowChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "platform/win32/Resolution.h"
#include "tests/support/win32/Pictures.h"
#include "tests/support/win32/TooltipWindow.h"
#include "ui/Choices.h"
#include "ui/Controls.h"
#include "ui/Dialog.h"
#include "ui/ListView.h"
#include "ui/win32/ControlMirror.h"
#include "ui/win32/DialogTemplate.h"
#include "ui/win32/IconLoader.h"
#include "ui/win32/Placing.h"

#include <commctrl.h>

namespace tests {
namespace {

// Labels and buttons carry ampersands doubled, so that they are not taken for marks of access keys.
std::wstring WithSingleAmpersands(const std::wstring& text) {
    std::wstring single;
    for (size_t i = 0; i < text.size(); ++i) {
        single += text[i];
        if (text[i] == L'&' && i + 1 < text.size() && text[i + 1] == L'&') ++i;
    }
    return single;
}

std::wstring ItemText(HWND window, UINT lengthMessage, UINT textMessage, int index) {
    const auto place = static_cast<WPARAM>(index);
    const LRESULT length = SendMessageW(window, lengthMessage, place, 0);
    if (length < 0) return L"(none)";
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    SendMessageW(window, textMessage, place, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

// What a window hands out when it is asked for its icon.
Points PointsIn(LRESULT icon) {
    return PointsOf(reinterpret_cast<HICON>(icon));
}

ui::Size SizeOf(const ui::Control& control) {
    return {control.Bounds().width, control.Bounds().height};
}

// The index of the selected item as the system says it.
LRESULT SystemIndex(const ui::ChoiceControl& control) {
    return control.Selected() ? static_cast<LRESULT>(*control.Selected()) : -1;
}

class Checker : public ui::ControlVisitor {
  public:
    explicit Checker(HWND window) : window_(window) {}

    void Visit(ui::Label& control) override { EXPECT_EQ(control.Text(), WithSingleAmpersands(Text())); }
    void Visit(ui::Picture& control) override {
        const int size = ui::win32::PictureSizeFor(SizeOf(control));
        EXPECT_TRUE(DrawingOf(control.Icon(), size) == PointsIn(Send(STM_GETICON))) << "picture";
    }
    void Visit(ui::GroupBox& control) override { EXPECT_EQ(control.Text(), WithSingleAmpersands(Text())); }
    void Visit(ui::Edit& control) override {
        EXPECT_EQ(control.Text(), Text());
        EXPECT_EQ(control.IsReadOnly(), (GetWindowLongPtrW(window_, GWL_STYLE) & ES_READONLY) != 0);
        EXPECT_EQ(control.Cue(), Cue());
    }
    void Visit(ui::Button& control) override { EXPECT_EQ(control.Text(), WithSingleAmpersands(Text())); }
    void Visit(ui::IconButton& control) override {
        const std::wstring& name = control.Text().empty() ? control.Tooltip() : control.Text();
        EXPECT_EQ(name, WithSingleAmpersands(Text()));
        CheckPicture(control);
    }
    void Visit(ui::CheckBox& control) override {
        EXPECT_EQ(control.Text(), WithSingleAmpersands(Text()));
        EXPECT_EQ(control.IsChecked(), Send(BM_GETCHECK) == BST_CHECKED);
    }
    void Visit(ui::ComboBox& control) override {
        CheckItems(control, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT);
        // An open list says that the item under the mouse is selected.
        if (Send(CB_GETDROPPEDSTATE) == 0) {
            EXPECT_EQ(SystemIndex(control), Send(CB_GETCURSEL));
        }
    }
    void Visit(ui::EditableCombo& control) override {
        CheckItems(control, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT);
        EXPECT_EQ(control.Text(), Text());
    }
    void Visit(ui::ListBox& control) override {
        CheckItems(control, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT);
        EXPECT_EQ(SystemIndex(control), Send(LB_GETCURSEL));
    }
    void Visit(ui::UpDown& control) override {
        int lowest = 0;
        int highest = 0;
        SendMessageW(window_, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lowest), reinterpret_cast<LPARAM>(&highest));
        EXPECT_EQ(control.Lowest(), lowest);
        EXPECT_EQ(control.Highest(), highest);
        // Where the arrows go on from is what the edit says, or the limit that is nearest to it.
        EXPECT_EQ(std::clamp(control.Buddy().Number(), lowest, highest), Send(UDM_GETPOS32));
    }
    void Visit(ui::ListView& control) override { CheckListView(window_, control); }

  private:
    std::wstring Text() const { return ui::win32::TextOf(window_); }
    std::wstring Cue() const {
        std::array<wchar_t, 100> cue{};
        SendMessageW(window_, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue.data()), static_cast<LPARAM>(cue.size()));
        return cue.data();
    }
    LRESULT Send(UINT message) const { return SendMessageW(window_, message, 0, 0); }

    // A disabled button holds the empty picture of one pixel and draws the pale one itself.
    void CheckPicture(const ui::IconButton& button) const {
        const Points shown = PointsIn(SendMessageW(window_, BM_GETIMAGE, IMAGE_ICON, 0));
        if (button.IsEnabled() || button.Icon() == ui::Icon::None) {
            const int size = ui::win32::ButtonPictureSizeFor(SizeOf(button), platform::win32::DpiOf(window_));
            EXPECT_TRUE(DrawingOf(button.Icon(), size) == shown) << "picture";
        } else {
            EXPECT_EQ((ui::Size{1, 1}), shown.size) << "picture";
        }
    }

    void CheckItems(const ui::ChoiceControl& control, UINT countMessage, UINT lengthMessage, UINT textMessage) const {
        const int count = static_cast<int>(control.Items().size());
        ASSERT_EQ(count, Send(countMessage));
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(control.Items()[static_cast<size_t>(i)], ItemText(window_, lengthMessage, textMessage, i));
    }

    const HWND window_;
};

// A combo box is as high as its font makes it, whatever the dialog says.
bool SetsItsOwnHeight(const ui::Control& control) {
    return dynamic_cast<const ui::ComboBox*>(&control) != nullptr ||
           dynamic_cast<const ui::EditableCombo*>(&control) != nullptr;
}

void CheckBounds(HWND dialog, HWND window, const ui::Control& control) {
    const ui::Rect shown = ui::win32::BoundsIn(dialog, window);
    const ui::Rect& said = control.Bounds();
    EXPECT_EQ(said.x, shown.x);
    EXPECT_EQ(said.y, shown.y);
    EXPECT_EQ(std::max(0, said.width), shown.width);
    EXPECT_TRUE(SetsItsOwnHeight(control) || std::max(0, said.height) == shown.height) << shown.height;
}

void CheckFocus(HWND dialog, HWND window, const ui::Control& control) {
    if (GetActiveWindow() != dialog) return;
    const HWND focus = GetFocus();
    const bool holdsFocus = focus == window || (focus != nullptr && IsChild(window, focus) != FALSE);
    EXPECT_EQ(control.HasFocus(), holdsFocus) << "focus";
}

// What a screen reader finds before a control that does not say itself what it is.
void CheckNamePlate(HWND dialog, HWND window, const ui::Control& control) {
    const HWND plate = GetDlgItem(dialog, ui::win32::AccessibleLabelId(control));
    ASSERT_NE(nullptr, plate);
    EXPECT_EQ(plate, GetWindow(window, GW_HWNDPREV));
    EXPECT_EQ(control.Name(), ui::win32::TextOf(plate));
    EXPECT_FALSE(IsWindowVisible(plate));
}

// Some screen readers call a list what its window carries.
void CheckListName(HWND window, const ui::Dialog& mirrored, const ui::Control& control) {
    const bool isList =
        dynamic_cast<const ui::ListView*>(&control) != nullptr || dynamic_cast<const ui::ListBox*>(&control) != nullptr;
    if (isList) {
        EXPECT_EQ(ui::AccessibleName(mirrored, control), ui::win32::TextOf(window));
    }
}

// A disabled control does not hear of the mouse, but the dialog does.
void CheckTooltip(const TooltipWindow& tooltips, HWND dialog, HWND window, const ui::Control& control) {
    const std::wstring& text = control.Tooltip();
    EXPECT_EQ(text, tooltips.TextOver(window));
    EXPECT_EQ(text, tooltips.TextAtPlaceOf(window));
    if (text.empty()) return;
    const bool isThere = control.IsVisible() && !control.IsEnabled();
    const ui::Rect expected = isThere ? ui::win32::BoundsIn(dialog, window) : ui::Rect{};
    const RECT place = tooltips.PlaceOf(window).value_or(RECT{-1, -1, -1, -1});
    EXPECT_EQ(expected, (ui::Rect{place.left, place.top, place.right - place.left, place.bottom - place.top}))
        << "place of the tooltip";
}

void CheckControl(HWND dialog, const ui::Dialog& mirrored, const TooltipWindow& tooltips, ui::Control& control) {
    SCOPED_TRACE("control " + std::to_string(control.Id()));
    const HWND window = GetDlgItem(dialog, control.Id());
    ASSERT_NE(nullptr, window);
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    EXPECT_EQ(control.IsVisible(), (style & WS_VISIBLE) != 0) << "visible";
    EXPECT_EQ(control.IsEnabled(), IsWindowEnabled(window) != FALSE) << "enabled";
    CheckBounds(dialog, window, control);
    CheckFocus(dialog, window, control);
    CheckTooltip(tooltips, dialog, window, control);
    if (ui::NeedsAccessibleLabel(mirrored, control)) CheckNamePlate(dialog, window, control);
    CheckListName(window, mirrored, control);
    Checker checker(window);
    control.Accept(checker);
}

std::wstring MenuText(HMENU menu, UINT item, UINT by) {
    std::wstring text(static_cast<size_t>(GetMenuStringW(menu, item, nullptr, 0, by)) + 1, L'\0');
    const int length = GetMenuStringW(menu, item, text.data(), static_cast<int>(text.size()), by);
    text.resize(static_cast<size_t>(length));
    return text;
}

void CheckItem(HMENU menu, const ui::MenuItem& item) {
    const auto id = static_cast<UINT>(item.command);
    EXPECT_EQ(item.text, MenuText(menu, id, MF_BYCOMMAND));
    EXPECT_EQ(item.enabled, (GetMenuState(menu, id, MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED)) == 0) << item.command;
}

void CheckMenus(HWND window, const ui::Dialog& dialog) {
    const HMENU bar = GetMenu(window);
    ASSERT_EQ(dialog.MenuBar().empty(), bar == nullptr);
    for (size_t i = 0; i < dialog.MenuBar().size(); ++i) {
        const ui::Menu& menu = dialog.MenuBar()[i];
        EXPECT_EQ(menu.title, MenuText(bar, static_cast<UINT>(i), MF_BYPOSITION));
        for (const ui::MenuItem& item : menu.items) CheckItem(bar, item);
    }
    const HMENU systemMenu = GetSystemMenu(window, FALSE);
    for (const ui::MenuItem& entry : dialog.SystemMenuEntries()) CheckItem(systemMenu, entry);
}

void CheckIcons(HWND window, const ui::Dialog& dialog) {
    for (const auto& [kind, metric] : {std::pair{ICON_BIG, SM_CXICON}, std::pair{ICON_SMALL, SM_CXSMICON}}) {
        const int size = platform::win32::SystemMetric(metric, dialog.Dpi());
        const LRESULT shown = SendMessageW(window, WM_GETICON, static_cast<WPARAM>(kind), 0);
        EXPECT_TRUE(DrawingOf(dialog.Icon(), size) == PointsIn(shown)) << "icon of the window, " << size;
    }
}

}  // namespace

void CheckDialog(HWND window, const ui::Dialog& dialog) {
    ASSERT_NE(nullptr, window);
    EXPECT_EQ(dialog.Caption(), ui::win32::TextOf(window));
    CheckIcons(window, dialog);
    CheckMenus(window, dialog);
    const TooltipWindow tooltips(window);
    for (ui::Control* control : dialog.Controls()) CheckControl(window, dialog, tooltips, *control);
}

}  // namespace tests
