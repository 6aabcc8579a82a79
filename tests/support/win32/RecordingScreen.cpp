#include "tests/support/win32/RecordingScreen.h"

#include <utility>

namespace tests {

using Kind = SystemDialogRequest::Kind;

class RecordingScreen::Waiting {
  public:
    Waiting(RecordingScreen& screen, SystemDialogRequest request) : screen_(screen) {
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
    const Waiting waiting(*this, {Kind::Box, text, caption, flags});
    return real_.ShowMessageBox(owner, text, caption, flags);
}

std::optional<std::wstring> RecordingScreen::PickFolder(const ui::Dialog* owner) {
    const Waiting waiting(*this, {Kind::FolderPicker, {}, {}, 0});
    return real_.PickFolder(owner);
}

std::optional<std::wstring> RecordingScreen::PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) {
    const Kind kind = picker.kind == ui::FilePickerKind::Open ? Kind::OpenPicker : Kind::SavePicker;
    const Waiting waiting(*this, {kind, {}, {}, 0});
    return real_.PickFile(owner, picker);
}

}  // namespace tests
