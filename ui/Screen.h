// The desktop: it runs dialogs, shows message boxes and offers the folder and file pickers.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace platform {
class ScreenMetrics;
}

namespace ui {

class Dialog;

// Flags of a message box, with the system's values.
namespace box {
inline constexpr uint32_t Ok = 0x0;
inline constexpr uint32_t OkCancel = 0x1;
inline constexpr uint32_t YesNo = 0x4;
inline constexpr uint32_t ErrorIcon = 0x10;
inline constexpr uint32_t QuestionIcon = 0x20;
inline constexpr uint32_t ExclamationIcon = 0x30;
inline constexpr uint32_t InformationIcon = 0x40;
inline constexpr uint32_t SecondIsDefault = 0x100;
inline constexpr uint32_t Buttons = 0xF;  // mask
inline constexpr uint32_t Icons = 0xF0;   // mask
}  // namespace box

// Buttons that end a message box or a dialog, with the system's values.
inline constexpr int IdOk = 1;
inline constexpr int IdCancel = 2;
inline constexpr int IdYes = 6;
inline constexpr int IdNo = 7;

enum class FilePickerKind { Open, Save };

struct FileFilter {
    std::wstring name;     // "All files (*.*)"
    std::wstring pattern;  // "*.*"
};

// A file to be opened has to exist; the user is asked before a file is replaced.
struct FilePicker {
    FilePickerKind kind = FilePickerKind::Open;
    std::wstring filterName;     // "All files (*.*)"
    std::wstring filterPattern;  // "*.*"
    std::wstring defaultExtension;
    std::wstring initialPath;                  // shown at first, or only a file name; may be empty
    std::vector<FileFilter> furtherFilters{};  // offered below the first one
    std::wstring initialFolder{};              // where to start without an initial path; may be empty
};

// A window or a dialog of the system that does not come up.
class ScreenError : public std::runtime_error {
  public:
    // code: of the system. operation: what was being done.
    ScreenError(uint32_t code, std::wstring operation);

    uint32_t Code() const { return code_; }
    const std::wstring& Operation() const { return operation_; }

  private:
    uint32_t code_;
    std::wstring operation_;
};

class Screen {
  public:
    virtual ~Screen() = default;

    // Opens the dialog's window, lets the user work with it and returns the result that ended it. An
    // exception of a handler ends the dialog and leaves here. This and the next throw ScreenError when there
    // can be no window.
    virtual int RunModal(Dialog& dialog) = 0;
    // Opens the window, paints it and returns; Window::End closes it.
    virtual void OpenModeless(Dialog& dialog) = 0;

    // owner: none, or a dialog; one that is not open counts as none. Returns the button pressed.
    virtual int ShowMessageBox(const Dialog* owner, const std::wstring& text, const std::wstring& caption,
                               uint32_t flags) = 0;
    // The full path chosen, or nothing when the user gave up. The folder picker starts in the folder given,
    // where there is one. Both throw ScreenError when they cannot open.
    virtual std::optional<std::wstring> PickFolder(const Dialog* owner, const std::wstring& folder) = 0;
    virtual std::optional<std::wstring> PickFile(const Dialog* owner, const FilePicker& picker) = 0;

    // Calls come in pairs and may be nested. While the user is asked something meanwhile, in a box or a modal
    // dialog, the cursor is the usual one. What he types and clicks while it is the wait cursor is thrown
    // away: he cannot know yet what it would meet.
    virtual void ShowWaitCursor(bool shown) = 0;
    virtual const platform::ScreenMetrics& Metrics() const = 0;

    // Reports to the user that a command has ended because memory ran out or a window did not come up (null:
    // memory ran out), and in which dialog. It should need no memory for the former. Without it such a
    // command ends its dialog, as one does that throws anything else.
    using FailureHandler = std::function<void(const Dialog& dialog, const ScreenError* failure)>;
    void SetFailureHandler(FailureHandler handler) { failureHandler_ = std::move(handler); }
    // False: nothing could be reported.
    [[nodiscard]] bool ReportFailure(const Dialog& dialog, const ScreenError* failure);

    // Shows the page of the guide that explains the dialog. Without a handler nothing happens.
    using GuideHandler = std::function<void(const Dialog& dialog)>;
    void SetGuideHandler(GuideHandler handler) { guideHandler_ = std::move(handler); }
    void ShowGuide(const Dialog& dialog) const {
        if (guideHandler_) guideHandler_(dialog);
    }

  private:
    FailureHandler failureHandler_;
    GuideHandler guideHandler_;
    bool isReporting_ = false;
};

// Shows the wait cursor for as long as it lives, and keeps what the user does meanwhile from having an
// effect.
class WaitCursor {
  public:
    explicit WaitCursor(Screen& screen) : screen_(screen) { screen_.ShowWaitCursor(true); }
    ~WaitCursor() { screen_.ShowWaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

  private:
    Screen& screen_;
};

}  // namespace ui
