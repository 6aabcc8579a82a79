// The system's own dialogs for choosing a folder or a file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "ui/Screen.h"

namespace ui::win32 {

std::optional<std::wstring> PickFolder(HWND owner);
std::optional<std::wstring> PickFile(HWND owner, const FilePicker& picker);

}  // namespace ui::win32
