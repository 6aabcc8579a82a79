#include "ui/memory/MemoryScreen.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace ui::memory {

// Keeps a modal dialog's window on the screen for as long as it lives.
class MemoryScreen::OpenWindow {
  public:
    OpenWindow(MemoryScreen& screen, MemoryWindow& window, Dialog& dialog)
        : screen_(screen),
          window_(window),
          dialog_(dialog) {
        screen_.windows_.push_back(&window_);
    }
    ~OpenWindow() {
        dialog_.Closed();
        screen_.Remove(window_);
    }
    OpenWindow(const OpenWindow&) = delete;
    OpenWindow& operator=(const OpenWindow&) = delete;

  private:
    MemoryScreen& screen_;
    MemoryWindow& window_;
    Dialog& dialog_;
};

// While one lives, the user is asked something and finds the usual cursor.
class MemoryScreen::Asking {
  public:
    explicit Asking(MemoryScreen& screen) : screen_(screen), interrupted_(std::exchange(screen.waitCursors_, 0)) {
        if (interrupted_ > 0) screen_.ahead_.clear();
    }
    ~Asking() { screen_.waitCursors_ = interrupted_; }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

  private:
    MemoryScreen& screen_;
    const int interrupted_;
};

// A message box or a picker in front of all windows.
class MemoryScreen::Interruption {
  public:
    Interruption(MemoryScreen& screen, const Dialog* owner)
        : screen_(screen),
          asking_(screen),
          interrupted_(screen.active_) {
        screen_.lastOwner_ = owner != nullptr && owner->IsOpen() ? owner : nullptr;
        screen_.Activate(nullptr);
    }
    ~Interruption() { screen_.Activate(interrupted_); }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

  private:
    MemoryScreen& screen_;
    const Asking asking_;
    MemoryWindow* const interrupted_;
};

void MemoryScreen::SetDpi(uint32_t dpi) {
    dpi_ = dpi;
    for (MemoryWindow* window : windows_) window->UserMovedToMonitor(dpi);
}

int MemoryScreen::RunModal(Dialog& dialog) {
    const Asking asking(*this);
    MemoryWindow window(dialog, metrics_, dpi_);
    if (rememberShown_) window.RememberShown();
    {
        const OpenWindow open(*this, window, dialog);
        window.Open();
        if (!window.HasEnded()) {
            Activate(&window);
            for (const auto& gesture : std::exchange(ahead_, {})) gesture(dialog);
            RequireUser().DialogOpened(dialog);
        }
    }
    return window.Result();
}

void MemoryScreen::OpenModeless(Dialog& dialog) {
    auto window = std::make_unique<MemoryWindow>(dialog, metrics_, dpi_, [this, &dialog] { CloseModeless(dialog); });
    MemoryWindow& opened = *window;
    if (rememberShown_) opened.RememberShown();
    modeless_.push_back(std::move(window));
    windows_.push_back(&opened);
    try {
        opened.Open();
    } catch (...) {
        dialog.Close();
        throw;
    }
    if (dialog.IsOpen()) Activate(&opened);
}

int MemoryScreen::ShowMessageBox(const Dialog* owner, const std::wstring& text, const std::wstring& caption,
                                 uint32_t flags) {
    const Interruption box(*this, owner);
    return RequireUser().BoxOpened(text, caption, flags);
}

std::optional<std::wstring> MemoryScreen::PickFolder(const Dialog* owner, const std::wstring& folder) {
    lastFolder_ = folder;
    const Interruption picker(*this, owner);
    return RequireUser().FolderPickerOpened();
}

std::optional<std::wstring> MemoryScreen::PickFile(const Dialog* owner, const FilePicker& picker) {
    lastFilePicker_ = picker;
    const Interruption opened(*this, owner);
    return RequireUser().FilePickerOpened(picker.kind);
}

void MemoryScreen::ShowWaitCursor(bool shown) {
    waitCursors_ += shown ? 1 : -1;
    if (waitCursors_ == 0) ahead_.clear();
}

MemoryWindow* MemoryScreen::WindowOf(const Dialog& dialog) const {
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&dialog](const MemoryWindow* window) { return &window->Owner() == &dialog; });
    return found == windows_.end() ? nullptr : *found;
}

User& MemoryScreen::RequireUser() const {
    if (user_ == nullptr) throw std::logic_error("MemoryScreen: a window opened and there is no user");
    return *user_;
}

void MemoryScreen::Activate(MemoryWindow* window) {
    MemoryWindow* const before = active_;
    active_ = window;
    if (before != nullptr && before != window) before->Deactivate();
    if (active_ == window && window != nullptr) window->Activate();
}

void MemoryScreen::Remove(MemoryWindow& window) {
    std::erase(windows_, &window);
    if (active_ != &window) return;
    active_ = nullptr;
    if (!windows_.empty()) Activate(windows_.back());
}

// The dialog may be on its way out: of its controls nothing is touched any more.
void MemoryScreen::CloseModeless(Dialog& dialog) {
    const auto found = std::find_if(modeless_.begin(), modeless_.end(),
                                    [&dialog](const auto& window) { return &window->Owner() == &dialog; });
    const std::unique_ptr<MemoryWindow> window = std::move(*found);
    modeless_.erase(found);
    dialog.Closed();
    Remove(*window);
}

}  // namespace ui::memory
