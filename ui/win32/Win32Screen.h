// The desktop of Windows.
#pragma once

#include <exception>
#include <memory>
#include <vector>

#include "ui/Screen.h"

namespace ui::win32 {

class DialogWindow;

class Win32Screen : public ui::Screen {
  public:
    // Makes list views, tooltips, up-down controls and their like known to the system, and keeps it from ending a
    // program that does not answer for long.
    explicit Win32Screen(const platform::ScreenMetrics& metrics);
    ~Win32Screen() override;
    Win32Screen(const Win32Screen&) = delete;
    Win32Screen& operator=(const Win32Screen&) = delete;

    int RunModal(Dialog& dialog) override;
    void OpenModeless(Dialog& dialog) override;
    int ShowMessageBox(const Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override;
    std::optional<std::wstring> PickFolder(const Dialog* owner, const std::wstring& folder) override;
    std::optional<std::wstring> PickFile(const Dialog* owner, const FilePicker& picker) override;
    void ShowWaitCursor(bool shown) override;
    const platform::ScreenMetrics& Metrics() const override { return metrics_; }

  private:
    struct Waiting;
    class Asking;
    class ShortcutKeys;

    DialogWindow* WindowOf(const Dialog* dialog) const;  // none when the dialog is not open
    void DeferException(std::exception_ptr exception);
    // To be called before a window opens: throws what was deferred, and gives up the windows that are over.
    void CleanUp();

    const platform::ScreenMetrics& metrics_;
    const std::unique_ptr<const ShortcutKeys> shortcutKeys_;
    std::vector<DialogWindow*> modal_;  // the innermost last
    std::vector<std::unique_ptr<DialogWindow>> modeless_;
    std::unique_ptr<Waiting> waiting_;
    std::exception_ptr stray_;  // thrown by a modeless dialog while no modal one was open
};

}  // namespace ui::win32
