// The real screen, with a note of what the program asked of it: a window does not tell which flags it was
// made with.
#pragma once

#include <string>
#include <vector>

#include "ui/Dialog.h"
#include "ui/Screen.h"

namespace tests {

// A message box or picker of the system that the program is waiting for.
struct SystemDialogRequest {
    enum class Kind { Box, FolderPicker, FilePicker };
    Kind kind = Kind::Box;
    std::wstring text{};  // of a box; where a folder picker starts
    std::wstring caption{};
    uint32_t flags = 0;
    bool met = false;                   // its window has opened
    const ui::Dialog* owner = nullptr;  // none, or a dialog that is open
    ui::FilePicker picker{};            // of a file picker
};

class RecordingScreen final : public ui::Screen {
  public:
    explicit RecordingScreen(ui::Screen& real) : real_(real) {}

    // The innermost request, none when the program waits for no such window.
    SystemDialogRequest* Current() { return requests_.empty() ? nullptr : &requests_.back(); }

    int RunModal(ui::Dialog& dialog) override { return real_.RunModal(dialog); }
    void OpenModeless(ui::Dialog& dialog) override { real_.OpenModeless(dialog); }
    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override;
    std::optional<std::wstring> PickFolder(const ui::Dialog* owner, const std::wstring& folder) override;
    std::optional<std::wstring> PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) override;
    void ShowWaitCursor(bool shown) override { real_.ShowWaitCursor(shown); }
    const platform::ScreenMetrics& Metrics() const override { return real_.Metrics(); }

  private:
    class Waiting;

    ui::Screen& real_;
    std::vector<SystemDialogRequest> requests_;
};

}  // namespace tests
