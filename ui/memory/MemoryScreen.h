// A desktop without windows. It runs the same dialogs as the real one; in place of a person at keyboard and
// mouse, a user object is notified of every window that opens and acts through the dialog's own functions.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/Screen.h"
#include "ui/memory/MemoryWindow.h"

namespace ui::memory {

class User {
  public:
    virtual ~User() = default;
    // A modal dialog has opened and has the focus. When this returns, it is closed.
    virtual void DialogOpened(Dialog& dialog) = 0;
    // Returns the button pressed.
    virtual int BoxOpened(const std::wstring& text, const std::wstring& caption, uint32_t flags) = 0;
    // The full path chosen, or nothing.
    virtual std::optional<std::wstring> FolderPickerOpened() = 0;
    virtual std::optional<std::wstring> FilePickerOpened(FilePickerKind kind) = 0;
};

class MemoryScreen final : public Screen {
  public:
    // The metrics must outlive the screen; so must the user, without whom no window can open.
    explicit MemoryScreen(const platform::ScreenMetrics& metrics) : metrics_(metrics) {}
    MemoryScreen(const platform::ScreenMetrics& metrics, User& user) : metrics_(metrics), user_(&user) {}
    void SetUser(User& user) { user_ = &user; }

    // The resolution of the monitor: dialogs that are open move to it, others open with it.
    void SetDpi(uint32_t dpi);

    int RunModal(Dialog& dialog) override;
    void OpenModeless(Dialog& dialog) override;
    int ShowMessageBox(const Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override;
    std::optional<std::wstring> PickFolder(const Dialog* owner, const std::wstring& folder) override;
    std::optional<std::wstring> PickFile(const Dialog* owner, const FilePicker& picker) override;
    void ShowWaitCursor(bool shown) override;
    const platform::ScreenMetrics& Metrics() const override { return metrics_; }

    // Windows that open from now on remember what they were told to show. That takes memory, which is not the
    // program's.
    void RememberShown() { rememberShown_ = true; }

    // What the user does while the program is too busy to look: to the dialog that opens next, unless the
    // program throws it away before.
    void UserActsAhead(std::function<void(Dialog&)> gesture) { ahead_.push_back(std::move(gesture)); }
    size_t GesturesAhead() const { return ahead_.size(); }

    // What there is to be seen. None: the dialog is not open.
    MemoryWindow* WindowOf(const Dialog& dialog) const;
    size_t OpenDialogs() const { return windows_.size(); }
    // Shown and not yet taken away; none while the user is being asked something.
    int WaitCursors() const { return waitCursors_; }
    // Of the message box or picker opened last; none when that dialog was not open.
    const Dialog* LastOwner() const { return lastOwner_; }
    const FilePicker& LastFilePicker() const { return lastFilePicker_; }
    // Where the folder picker opened last was to start.
    const std::wstring& LastFolder() const { return lastFolder_; }

  private:
    class OpenWindow;
    class Interruption;
    class Asking;
    User& RequireUser() const;
    void Activate(MemoryWindow* window);
    void Remove(MemoryWindow& window);
    void CloseModeless(Dialog& dialog);

    const platform::ScreenMetrics& metrics_;
    User* user_ = nullptr;
    uint32_t dpi_ = 96;
    int waitCursors_ = 0;
    std::vector<std::function<void(Dialog&)>> ahead_;
    const Dialog* lastOwner_ = nullptr;
    FilePicker lastFilePicker_;
    std::wstring lastFolder_;
    std::vector<MemoryWindow*> windows_;  // in the order of opening
    MemoryWindow* active_ = nullptr;      // the one in front, unless a box or picker is
    std::vector<std::unique_ptr<MemoryWindow>> modeless_;
    bool rememberShown_ = false;
};

}  // namespace ui::memory
