// The system's own dialogs for choosing a folder or a file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "ui/Screen.h"

namespace ui::win32 {

// Both throw ScreenError when the dialog cannot open. The thread has to be a single-threaded apartment.
// folder: where to start, if it exists; may be empty.
std::optional<std::wstring> PickFolder(HWND owner, const std::wstring& folder);
std::optional<std::wstring> PickFile(HWND owner, const FilePicker& picker);

}  // namespace ui::win32
