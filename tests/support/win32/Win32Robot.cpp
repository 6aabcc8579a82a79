#include "tests/support/win32/Win32Robot.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/win32/Input.h"
#include "tests/support/win32/WindowChecks.h"
#include "ui/win32/DialogWindow.h"

namespace tests {
namespace {

using ui::win32::DialogWindow;

// Looks for the window of one dialog among those of the thread.
struct Search {
    const ui::Dialog* dialog = nullptr;
    HWND found = nullptr;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    const DialogWindow* const ours = DialogWindow::Of(window);
    if (ours != nullptr && &ours->Mirrored() == search.dialog) search.found = window;
    return search.found == nullptr;
}

bool IsAvailable(UINT menuState) {
    constexpr UINT Missing = static_cast<UINT>(-1);
    return menuState != Missing && (menuState & (MF_GRAYED | MF_DISABLED)) == 0;
}

bool HasStyle(HWND window, LONG_PTR style) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & style) == style;
}

}  // namespace

HWND WindowOf(const ui::Dialog& dialog) {
    Search search{&dialog, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), Look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

Win32Robot::Win32Robot(RecordingScreen& screen) : screen_(screen), opened_([this](HWND window) { Opened(window); }) {}

void Win32Robot::Opened(HWND window) {
    const DialogWindow* const ours = DialogWindow::Of(window);
    if (ours == nullptr) {
        SystemDialogOpened(window);
    } else if (ours->IsModal()) {
        ui::Dialog& dialog = ours->Mirrored();
        DialogOpened(dialog, [&dialog] { dialog.Close(); });
    }
}

void Win32Robot::SystemDialogOpened(HWND window) {
    SystemDialogRequest* const request = screen_.Current();
    if (request == nullptr || request->met) {
        // A picker asks whether to replace a file, or complains of the path that it was given.
        PressButton(window, GetDlgItem(window, IDYES) != nullptr ? IDYES : IDOK);
        return;
    }
    request->met = true;
    switch (request->kind) {
        case SystemDialogRequest::Kind::Box:
            CheckBox(window, *request);
            PressButton(window, BoxOpened(request->owner, request->text, request->caption, request->flags));
            break;
        case SystemDialogRequest::Kind::FolderPicker:
            AnswerPicker(window, FolderPickerOpened(request->owner, request->text));
            break;
        case SystemDialogRequest::Kind::FilePicker:
            lastPicker_ = LookAtPicker(window);
            AnswerPicker(window, FilePickerOpened(request->owner, request->picker));
            break;
    }
}

HWND Win32Robot::Window() const {
    return WindowOf(Top());
}

bool Win32Robot::IsUsable(const ui::Control& control, HWND window) const {
    return control.IsVisible() && control.IsEnabled() && IsWindowVisible(window) != FALSE &&
           IsWindowEnabled(window) != FALSE && !Top().HasEnded();
}

void Win32Robot::Act(const std::function<void(HWND)>& gesture) {
    ui::Dialog& dialog = Top();
    const HWND window = Window();
    if (window == nullptr || dialog.HasEnded()) {
        ADD_FAILURE() << "the dialog has ended and cannot be used";
        return;
    }
    gesture(window);
    input::Settle();
    if (dialog.HasEnded()) return;
    // When a window goes, a display without a window manager now and then leaves the keyboard to nobody.
    if (GetFocus() == nullptr && IsIconic(window) == FALSE) {
        SetForegroundWindow(window);
        input::Settle();
    }
    CheckWindows(dialog);
}

void Win32Robot::Use(int id, const std::function<void(ui::Control&, HWND)>& gesture) {
    Act([this, id, &gesture](HWND dialog) {
        const HWND window = GetDlgItem(dialog, id);
        if (!Top().Has(id) || window == nullptr) {
            ADD_FAILURE() << "the dialog has no such control " << id;
        } else if (!IsUsable(Top().Find(id), window) || IsIconic(dialog) != FALSE) {
            ADD_FAILURE() << "control " << id << " is hidden or disabled";
        } else {
            gesture(Top().Find(id), window);
        }
    });
}

void Win32Robot::Press(Key key, Held held) {
    Act([key, held](HWND dialog) { input::Press(dialog, key, held); });
}

void Win32Robot::ChooseMenu(int command) {
    Act([command](HWND dialog) {
        const HMENU bar = GetMenu(dialog);
        const auto id = static_cast<UINT>(command);
        if (bar == nullptr || !IsAvailable(GetMenuState(bar, id, MF_BYCOMMAND))) {
            ADD_FAILURE() << "menu item " << command << " is missing or disabled";
        } else {
            PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, 0), 0);
        }
    });
}

void Win32Robot::ChooseSystemMenu(int command) {
    if (command == SC_MINIMIZE) return Minimize();
    if (command == SC_RESTORE) return Restore();
    Act([command](HWND dialog) {
        const HMENU menu = GetSystemMenu(dialog, FALSE);
        const auto id = static_cast<UINT>(command);
        if (menu == nullptr || !IsAvailable(GetMenuState(menu, id, MF_BYCOMMAND))) {
            ADD_FAILURE() << "system menu entry " << command << " is missing or disabled";
        } else {
            PostMessageW(dialog, WM_SYSCOMMAND, id, 0);
        }
    });
}

void Win32Robot::PressCloseBox() {
    Act([](HWND dialog) {
        if (HasStyle(dialog, WS_SYSMENU)) {
            PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
        } else {
            ADD_FAILURE() << "the dialog has no close box";
        }
    });
}

void Win32Robot::Resize(ui::Size outerGrowth) {
    Act([outerGrowth](HWND dialog) {
        if (!HasStyle(dialog, WS_THICKFRAME) || IsIconic(dialog) != FALSE) {
            ADD_FAILURE() << "the dialog cannot be resized";
            return;
        }
        RECT outer{};
        GetWindowRect(dialog, &outer);
        MINMAXINFO limits{};
        limits.ptMinTrackSize = {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
        SendMessageW(dialog, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        const LONG width = std::max(outer.right - outer.left + outerGrowth.width, limits.ptMinTrackSize.x);
        const LONG height = std::max(outer.bottom - outer.top + outerGrowth.height, limits.ptMinTrackSize.y);
        SetWindowPos(dialog, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    });
}

void Win32Robot::Minimize() {
    Act([](HWND dialog) {
        if (HasStyle(dialog, WS_MINIMIZEBOX) && IsIconic(dialog) == FALSE) {
            ShowWindow(dialog, SW_MINIMIZE);
        } else {
            ADD_FAILURE() << "the dialog cannot be minimised";
        }
    });
}

void Win32Robot::Restore() {
    Act([](HWND dialog) {
        if (IsIconic(dialog) != FALSE) {
            ShowWindow(dialog, SW_RESTORE);
        } else {
            ADD_FAILURE() << "the dialog is not minimised";
        }
    });
}

ui::Size Win32Robot::OuterSize() {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(Window(), &placement);
    const RECT& normal = placement.rcNormalPosition;
    return {normal.right - normal.left, normal.bottom - normal.top};
}

void Win32Robot::CheckWindows(ui::Dialog& dialog) {
    CheckDialog(WindowOf(dialog), dialog);
}

}  // namespace tests
