#include "tests/support/win32/RecordingScreen.h"

#include <utility>

namespace tests {

using Kind = SystemDialogRequest::Kind;

class RecordingScreen::Waiting {
  public:
    Waiting(RecordingScreen& screen, const ui::Dialog* owner, SystemDialogRequest request) : screen_(screen) {
        if (owner != nullptr && owner->IsOpen()) request.owner = owner;
        screen_.requests_.push_back(std::move(request));
    }
    ~Waiting() { screen_.requests_.pop_back(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

  private:
    RecordingScreen& screen_;
};

int RecordingScreen::ShowMessageBox(const ui::Dialog* owner, const std::wstring& text,
                                    const std::wstring& caption, uint32_t flags) {
    const Waiting waiting(*this, owner,
                          {.kind = Kind::Box, .text = text, .caption = caption, .flags = flags});
    return real_.ShowMessageBox(owner, text, caption, flags);
}

std::optional<std::wstring> RecordingScreen::PickFolder(const ui::Dialog* owner, const std::wstring& folder) {
    const Waiting waiting(*this, owner, {.kind = Kind::FolderPicker, .text = folder});
    return real_.PickFolder(owner, folder);
}

std::optional<std::wstring> RecordingScreen::PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) {
    const Waiting waiting(*this, owner, {.kind = Kind::FilePicker, .picker = picker});
    return real_.PickFile(owner, picker);
}

}  // namespace tests
