#include "ui/win32/Win32Screen.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/win32/Module.h"
#include "ui/win32/DialogWindow.h"
#include "ui/win32/Pickers.h"

namespace ui::win32 {
namespace {

// Keeps a window in the list of those that are open.
class Listed {
  public:
    Listed(std::vector<DialogWindow*>& list, DialogWindow& window) : list_(list) { list_.push_back(&window); }
    ~Listed() { list_.pop_back(); }
    Listed(const Listed&) = delete;
    Listed& operator=(const Listed&) = delete;

  private:
    std::vector<DialogWindow*>& list_;
};

HWND HandleOf(const DialogWindow* window) {
    return window == nullptr ? nullptr : window->Handle();
}

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

// A key that is held down is pressed again and again: F1 would open page after page.
bool AsksForHelpAgain(const MSG& message) {
    constexpr LPARAM WasDown = LPARAM{1} << 30;
    return message.wParam == VK_F1 && (message.lParam & WasDown) != 0;
}

bool IsShortcut(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    if (AsksForHelpAgain(message)) return true;
    DialogWindow* const dialog = DialogWindow::Of(GetAncestor(message.hwnd, GA_ROOT));
    return dialog != nullptr && dialog->Press({.key = static_cast<int>(message.wParam),
                                               .control = IsHeld(VK_CONTROL),
                                               .alt = IsHeld(VK_MENU),
                                               .shift = IsHeld(VK_SHIFT)});
}

LRESULT CALLBACK FilterKeys(int code, WPARAM wParam, LPARAM lParam) {
    if (code == MSGF_DIALOGBOX && IsShortcut(*reinterpret_cast<const MSG*>(lParam))) return TRUE;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

struct Messages {
    UINT first;
    UINT last;
};
constexpr std::array UserInput{Messages{WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK}, Messages{WM_KEYFIRST, WM_KEYLAST},
                               Messages{WM_MOUSEFIRST, WM_MOUSELAST}, Messages{WM_TOUCH, WM_POINTERHWHEEL}};

void DropPendingInput() {
    std::optional<WPARAM> quit;  // comes whatever is asked for
    MSG message{};
    for (const Messages& kind : UserInput)
        while (PeekMessageW(&message, nullptr, kind.first, kind.last, PM_REMOVE) != FALSE)
            if (message.message == WM_QUIT) quit = message.wParam;
    if (quit) PostQuitMessage(static_cast<int>(*quit));
}

// The library of the controls is not among those that the system always loads from its own folder, so it is
// not imported.
void RegisterControlClasses() {
    using Init = BOOL WINAPI(const INITCOMMONCONTROLSEX*);
    const auto init = platform::win32::SystemFunction<Init>(L"comctl32.dll", "InitCommonControlsEx");
    constexpr INITCOMMONCONTROLSEX BasicClasses{sizeof(INITCOMMONCONTROLSEX), 0xFF};
    if (init != nullptr) init(&BasicClasses);
}

}  // namespace

// Shows the keys that are pressed in our dialogs to the dialog, before the window that they are meant for,
// while one lives. Message boxes and the system's own dialogs are left alone.
class Win32Screen::ShortcutKeys {
  public:
    ShortcutKeys() : hook_(SetWindowsHookExW(WH_MSGFILTER, FilterKeys, nullptr, GetCurrentThreadId())) {}

  private:
    struct Unhook {
        void operator()(HHOOK hook) const { UnhookWindowsHookEx(hook); }
    };
    const std::unique_ptr<std::remove_pointer_t<HHOOK>, Unhook> hook_;
};

struct Win32Screen::Waiting {
    int count = 0;
    HCURSOR before = nullptr;
};

// While one lives, the user is asked something and finds the usual cursor.
class Win32Screen::Asking {
  public:
    explicit Asking(Waiting& waiting) : waiting_(waiting), interrupted_(std::exchange(waiting.count, 0)) {
        if (interrupted_ == 0) return;
        DropPendingInput();
        SetCursor(waiting_.before);
    }
    ~Asking() {
        waiting_.count = interrupted_;
        if (interrupted_ > 0) SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

  private:
    Waiting& waiting_;
    const int interrupted_;
};

Win32Screen::Win32Screen(const platform::ScreenMetrics& metrics)
    : metrics_(metrics),
      shortcutKeys_(std::make_unique<const ShortcutKeys>()),
      waiting_(std::make_unique<Waiting>()) {
    RegisterControlClasses();
    // The library may block for minutes, which is no reason to offer the user to end the program.
    DisableProcessWindowsGhosting();
}

Win32Screen::~Win32Screen() = default;

int Win32Screen::RunModal(Dialog& dialog) {
    CleanUp();
    DialogWindow window(dialog);
    const Asking asking(*waiting_);
    const HWND owner = HandleOf(WindowOf(dialog.Parent()));
    const Listed listed(modal_, window);
    return window.RunModal(owner);
}

void Win32Screen::OpenModeless(Dialog& dialog) {
    CleanUp();
    auto window =
        std::make_unique<DialogWindow>(dialog, [this](std::exception_ptr e) { DeferException(std::move(e)); });
    DialogWindow& opened = *window;
    modeless_.push_back(std::move(window));
    opened.OpenModeless(HandleOf(WindowOf(dialog.Parent())));
}

DialogWindow* Win32Screen::WindowOf(const Dialog* dialog) const {
    for (DialogWindow* window : modal_)
        if (&window->Mirrored() == dialog) return window;
    for (const auto& window : modeless_)
        if (window->Handle() != nullptr && &window->Mirrored() == dialog) return window.get();
    return nullptr;
}

void Win32Screen::CleanUp() {
    if (stray_) std::rethrow_exception(std::exchange(stray_, nullptr));
    std::erase_if(modeless_, [](const auto& window) { return window->IsOver(); });
}

void Win32Screen::DeferException(std::exception_ptr exception) {
    if (!modal_.empty()) {
        modal_.back()->Fail(std::move(exception));
    } else if (!stray_) {
        stray_ = std::move(exception);
    }
}

int Win32Screen::ShowMessageBox(const Dialog* owner, const std::wstring& text, const std::wstring& caption,
                                uint32_t flags) {
    const Asking asking(*waiting_);
    const HWND window = HandleOf(WindowOf(owner));
    return MessageBoxW(window, text.c_str(), caption.c_str(), window == nullptr ? flags | MB_TASKMODAL : flags);
}

std::optional<std::wstring> Win32Screen::PickFolder(const Dialog* owner, const std::wstring& folder) {
    const Asking asking(*waiting_);
    return ui::win32::PickFolder(HandleOf(WindowOf(owner)), folder);
}

std::optional<std::wstring> Win32Screen::PickFile(const Dialog* owner, const FilePicker& picker) {
    const Asking asking(*waiting_);
    return ui::win32::PickFile(HandleOf(WindowOf(owner)), picker);
}

void Win32Screen::ShowWaitCursor(bool shown) {
    if (shown) {
        if (waiting_->count++ == 0) waiting_->before = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    } else if (--waiting_->count == 0) {
        DropPendingInput();
        SetCursor(waiting_->before);
    }
}

}  // namespace ui::win32
