// The base of every dialog. A dialog declares its controls as members, in tab order, and hears of what the
// user does through their handlers and through the virtual functions below. Whether a real window or a test
// stands behind it is the screen's business.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "ui/Control.h"
#include "ui/Geometry.h"
#include "ui/Icons.h"
#include "ui/Screen.h"

namespace ui {

class Window;

struct DialogStyle {
    Size size;                            // of the client area, in dialog units
    const wchar_t* guidePage = L"index";  // the chapter of the guide that explains it
    bool resizable = false;
    bool minimizeBox = false;
    bool systemMenu = true;  // with the close box
};

// A menu bar as plain data.
struct MenuItem {
    int command = 0;
    std::wstring text;
    bool enabled = true;
    bool operator==(const MenuItem&) const = default;
};

struct Menu {
    std::wstring title;
    std::vector<MenuItem> items;
    bool operator==(const Menu&) const = default;
};

enum class SizeKind { Restored, Minimized, Maximized };

class Dialog {
  public:
    Dialog(ui::Screen& screen, Dialog* owner, const DialogStyle& style, std::wstring caption = {});
    virtual ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // Runs the dialog until it ends and returns its result: IdOk, IdCancel or what EndDialog was given.
    int DoModal();
    // Shows the dialog and returns at once; Close, or the end of the object, takes it away.
    void OpenModeless();
    void Close();

    bool IsOpen() const { return window_ != nullptr; }
    // Not open, or on its way out: the user can do nothing more in it.
    bool HasEnded() const;
    const DialogStyle& Style() const { return style_; }
    Dialog* Parent() const { return parent_; }
    const std::vector<Control*>& Controls() const { return controls_; }
    // The control with the id. Throws std::out_of_range when there is none.
    Control& Find(int id) const;
    bool Has(int id) const;

    const std::wstring& Caption() const { return caption_; }
    ui::Icon Icon() const { return icon_; }
    const std::vector<Menu>& MenuBar() const { return menuBar_; }
    const std::vector<MenuItem>& SystemMenuEntries() const { return systemMenuEntries_; }
    Control* Focus() const { return focus_; }
    // Of the client area, at the last size event of the restored kind.
    Size ClientSize() const { return clientSize_; }
    uint32_t Dpi() const { return dpi_; }
    // Of the client area at another resolution, where the dialog would open with the given size: it is larger
    // or smaller than that as whoever sized the window last has left it.
    Size ClientSizeAt(uint32_t dpi, Size openingSize) const;
    // The outer rectangle of the window that is neither minimised nor maximised, in pixels of the screen.
    Rect NormalRect() const;
    // The smallest outer size to which the user can drag the window, in pixels; 0: the system's.
    virtual Size MinimumTrackSize() const { return {}; }
    // What would be lost if the user's session ended now, as the system shows it; none: nothing. It is asked
    // for while memory may be short.
    virtual const wchar_t* ReasonToStay() const { return nullptr; }

    void SetFocus(Control& control);

    // For controls that were given a field of a record to show: how they show what it holds, and how it takes
    // over what they show.
    void Bind(const void* field, Handler load, Handler store) {
        bindings_.push_back({field, std::move(load), std::move(store)});
    }
    // Pixels inside the control's border, without its scroll bar when one is shown; 0 while the dialog is not
    // open.
    int ClientWidthOf(const Control& control) const;

    // What the windows report and the user does. Exceptions of handlers pass through.
    void Opened(Window& window, Size clientSize, uint32_t dpi);  // every control has its opening bounds
    void Closed();
    void UserResized(SizeKind kind, Size clientSize);
    // The screen has no room for the client size that the dialog took: the window has this one. On other
    // monitors what the user chose still counts.
    void LimitedTo(Size clientSize);
    // Every control has the bounds that it would open with at the new resolution, and the dialog the size.
    // The window then takes the client size.
    void UserChangedDpi(uint32_t dpi, Size openingSize);
    void UserPressedOk();      // the OK button, or Enter with no other button to press
    void UserPressedCancel();  // the Cancel button, Escape or the close box
    void UserChoseMenu(int command);
    bool UserChoseSystemMenu(int command);  // false: the system's own command, left to it
    // A key that may be a shortcut, before the control with the focus gets it. False: it does.
    bool UserPressed(const KeyChord& chord);
    void UserFocused(Control& control);
    void UserLeft(Control& control);
    // For the windows, when a handler of what the user does has thrown: the dialog stays open if only memory
    // was short, and that has been reported.
    [[nodiscard]] bool RecoversFrom(const std::exception_ptr& failure) const;

  protected:
    // Called once the window exists and before it is shown.
    virtual void OnInitDialog() {}
    virtual void OnOK() { EndDialog(IdOk); }
    virtual void OnCancel() { EndDialog(IdCancel); }
    virtual void OnMenuCommand(int /*command*/) {}
    virtual void OnSystemCommand(int /*command*/) {}
    // After a size event of the restored kind: the controls have moved, the window is about to be painted.
    virtual void OnResized() {}

    void EndDialog(int result);

    // Between a record and the controls that were given fields of it to show.
    template <class Record>
    void LoadControls(const Record& record) {
        for (const Binding& binding : bindings_)
            if (Lies(binding.field, &record, sizeof(record))) binding.load();
    }
    template <class Record>
    void StoreControls(Record& record) {
        for (const Binding& binding : bindings_)
            if (Lies(binding.field, &record, sizeof(record))) binding.store();
    }

    // A key does what the button does, while the button can be used. where: the control that has to have the
    // focus; none: it acts in the whole dialog.
    template <class PushButton>
    void AddShortcut(const KeyChord& chord, const Control* where, PushButton& button) {
        AddShortcut(chord, where, [&button] {
            if (button.IsEnabled() && button.IsVisible()) button.UserClicked();
        });
    }
    void AddShortcut(const KeyChord& chord, const Control* where, Handler action);
    // A shortcut of the dialog is about to act; the focus stays where it is.
    virtual void OnShortcut() {}

    void SetCaption(std::wstring caption);
    void SetIcon(ui::Icon icon);
    void SetMenuBar(std::vector<Menu> menus);
    void EnableMenuItems(const std::vector<int>& commands, bool enabled);
    // Puts a separator and the entry at the end of the system menu. command: a multiple of 16 below 0xF000.
    void AppendToSystemMenu(int command, std::wstring text);

    void SetNormalRect(const Rect& rect);
    // There may be no reason to stay any more.
    void ReasonToStayChanged();

    ui::Screen& Screen() const { return screen_; }

  private:
    friend class Control;

    struct Shortcut {
        KeyChord chord;
        const Control* where;
        Handler action;
    };

    struct Binding {
        const void* field;
        Handler load;
        Handler store;
    };

    static bool Lies(const void* field, const void* record, size_t size) {
        const std::less<const void*> before;
        return !before(field, record) && before(field, static_cast<const char*>(record) + size);
    }
    void Register(Control& control) { controls_.push_back(&control); }
    void FollowGrowth();

    ui::Screen& screen_;
    Dialog* const parent_;
    const DialogStyle style_;
    std::wstring caption_;
    ui::Icon icon_ = ui::Icon::None;
    std::vector<Menu> menuBar_;
    std::vector<MenuItem> systemMenuEntries_;
    std::vector<Control*> controls_;
    std::vector<Shortcut> shortcuts_;
    std::vector<Binding> bindings_;
    Window* window_ = nullptr;
    Control* focus_ = nullptr;
    Size openingSize_;  // at this resolution
    Size clientSize_;
    uint32_t dpi_ = 96;
    // By how much whoever sized the window last made it larger, and at which resolution. Reckoned from there,
    // the size is the same again when the window comes back to a monitor.
    Size growth_;
    uint32_t growthDpi_ = 96;
};

// What controls are called by a screen reader, which looks for a caption and then for the text right before
// the control. Where there is none to be seen, or it does not read well, the window puts an invisible one: a
// name plate.

// Whether the control of the dialog can get the focus, has no caption, and no label right before it that says
// its name.
bool NeedsAccessibleLabel(const Dialog& dialog, const Control& control);

// Empty: the user hears nothing but the kind of the control.
std::wstring AccessibleName(const Dialog& dialog, const Control& control);

}  // namespace ui
