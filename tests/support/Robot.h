// The hands and eyes of a user. Scenarios are written against this one interface; behind it stands either the
// in-memory screen or real windows. What the user does in a window that opens next is queued beforehand with
// Expect; a window that nobody expected, and an expectation that no window met, fail the test.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <typeinfo>
#include <vector>

#include "ui/Dialog.h"
#include "ui/Screen.h"

namespace tests {

enum class Key { Tab, Enter, Escape, Space, Delete, Up, Down, Home, End, Insert, Menu, F1, F2, F10, A, D, F, S };
enum class Held { Nothing, Shift, Control, Alt, AltGr };
// The key's code, as the system has it.
int CodeOf(Key key);

class Robot {
  public:
    Robot();
    virtual ~Robot();  // fails the test when an expectation was not met
    Robot(const Robot&) = delete;
    Robot& operator=(const Robot&) = delete;

    // Queues what the user does in the next window, which must be a dialog of class D. The script has to end
    // the dialog; expectations queued while it runs belong to the windows opened from it.
    template <class D>
    void Expect(std::function<void(D&)> script) {
        ExpectDialog(typeid(D).name(), [script](ui::Dialog& dialog) {
            auto* expected = dynamic_cast<D*>(&dialog);
            if (expected == nullptr) return false;
            script(*expected);
            return true;
        });
    }
    // The same for a dialog that belongs to no other: the program shows a few reports that way.
    template <class D>
    void ExpectOwnerless(std::function<void(D&)> script) {
        Expect<D>(std::move(script));
        queues_.back().back().isOwnerless = true;
    }
    // The next window must be a message box with this text and these flags (and caption); the user presses a
    // button.
    void ExpectBox(const std::wstring& text, uint32_t flags, int answer);
    void ExpectBox(const std::wstring& text, uint32_t flags, int answer, const std::wstring& caption);
    // The same where only the beginning of the text is fixed (the rest comes from the system).
    void ExpectBoxBeginning(const std::wstring& beginning, uint32_t flags, int answer);
    void ExpectFolderPicker(std::optional<std::wstring> answer);
    void ExpectFilePicker(ui::FilePickerKind kind, std::optional<std::wstring> answer);

    // The hands. Each acts on the dialog whose script is running, as a user could: using a control that is
    // hidden or disabled fails the test (use CannotUse to state it).
    virtual void Click(int id) = 0;  // a button, a check box, or any control to focus it
    virtual void ClickRow(int id, size_t row, Held held = Held::Nothing) = 0;
    virtual void DoubleClickRow(int id, size_t row) = 0;
    virtual void RightClickCell(int id, size_t row, size_t column) = 0;
    virtual void ClickBelowRows(int id) = 0;
    virtual void RightClickBelowRows(int id) = 0;
    virtual void ClickCheckBox(int id, size_t row) = 0;
    virtual void DoubleClickCheckBox(int id, size_t row) = 0;
    virtual void ClickHeader(int id, size_t column) = 0;
    // Replaces the content, key by key; "\b" is the Backspace key, which deletes all when it comes first.
    virtual void Type(int id, std::wstring_view text) = 0;
    virtual void Paste(int id, const std::wstring& text) = 0;  // replaces the content at once
    // Another program, a screen reader say, replaces the content; the field does not choose what it takes.
    virtual void SetFromOutside(int id, const std::wstring& text) = 0;
    virtual void Drop(int id, const std::wstring& path) = 0;  // a file or folder dragged from elsewhere
    virtual void Choose(int id, int index) = 0;               // an item of a combo or list box
    virtual void Step(int id, int steps) = 0;                 // an up-down control: positive is up
    virtual void Press(Key key,
                       Held held = Held::Nothing) = 0;  // goes to the focused control, by the dialog's rules
    virtual void ChooseMenu(int command) = 0;
    virtual void ChooseSystemMenu(int command) = 0;
    virtual void PressCloseBox() = 0;
    virtual void Resize(ui::Size outerGrowth) = 0;  // drags the lower right corner by so many pixels
    virtual void Minimize() = 0;
    virtual void Restore() = 0;

    // The eyes. Beyond these, scenarios read the controls' own state.
    virtual ui::Size OuterSize() = 0;  // of the dialog's window, in pixels
    ui::Dialog& Top() const;           // the dialog whose script is running
    template <class C>
    C& Get(int id) const {
        return dynamic_cast<C&>(Top().Find(id));
    }
    std::wstring Text(int id) const { return Top().Find(id).Text(); }
    bool CanUse(int id) const;  // shown and enabled
    // The cells of a row of a list view.
    std::vector<std::wstring> Row(int id, size_t row) const;
    size_t RowCount(int id) const;
    // The cells of a column of a list view, top to bottom.
    std::vector<std::wstring> Column(int id, size_t column) const;
    // The controls at which the Tab key stops, once round, from the one that has the focus.
    std::vector<int> TabOrder();

    // For the screens: what the user does in a window that has just opened. owner: the dialog in front of
    // which it stays, which has to be the one that the user is working with, or one that is being opened from
    // there.
    void DialogOpened(ui::Dialog& dialog, const std::function<void()>& closeByForce);
    int BoxOpened(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption, uint32_t flags);
    std::optional<std::wstring> FolderPickerOpened(const ui::Dialog* owner, const std::wstring& folder);
    std::optional<std::wstring> FilePickerOpened(const ui::Dialog* owner, const ui::FilePicker& picker);
    // As the program asked for it last.
    const ui::FilePicker& LastFilePicker() const { return lastFilePicker_; }
    const std::wstring& LastPickedFrom() const { return lastPickedFrom_; }  // where a folder picker started

  protected:
    // After each gesture: the windows must show what the controls' state says.
    virtual void CheckWindows(ui::Dialog& dialog) = 0;

  private:
    class Running;
    struct Expectation {
        std::string what;  // for messages
        std::function<bool(ui::Dialog&)> dialog;
        std::function<std::optional<int>(const std::wstring&, const std::wstring&, uint32_t)> box;
        bool isFolderPicker = false;
        bool isOwnerless = false;
        std::optional<ui::FilePickerKind> filePicker;
        std::optional<std::wstring> pickerAnswer;
    };
    void ExpectDialog(std::string what, std::function<bool(ui::Dialog&)> script);
    void Queue(Expectation expectation);
    std::optional<Expectation> Next(const std::string& opened);
    void CheckOwner(const ui::Dialog* owner, const std::string& opened) const;
    void ReportUnmet(const std::deque<Expectation>& expectations);

    // One queue for the test itself and one for each script that is running, the innermost last.
    std::vector<std::deque<Expectation>> queues_;
    std::vector<ui::Dialog*> open_;
    ui::FilePicker lastFilePicker_;
    std::wstring lastPickedFrom_;
};

}  // namespace tests
