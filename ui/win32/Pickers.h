// The system's own dialogs for choosing a folder or a file, and where the components live of which it makes
// them.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <optional>
#include <string>

#include "ui/Screen.h"

namespace ui::win32 {

// Makes this thread a single-threaded apartment for as long as one lives. What others ask for after it, does
// not change that.
class ComponentApartment {
  public:
    ComponentApartment()
        : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
    ~ComponentApartment() {
        if (entered_) CoUninitialize();
    }
    ComponentApartment(const ComponentApartment&) = delete;
    ComponentApartment& operator=(const ComponentApartment&) = delete;

  private:
    const bool entered_;
};

// Both throw ScreenError when the dialog cannot open. The thread has to be such an apartment.
// folder: where to start, if it exists; may be empty.
std::optional<std::wstring> PickFolder(HWND owner, const std::wstring& folder);
std::optional<std::wstring> PickFile(HWND owner, const FilePicker& picker);

}  // namespace ui::win32
