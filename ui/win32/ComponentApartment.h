// Where the system's components live, of which its file and folder dialogs are made.
#pragma once

#include <windows.h>

#include <objbase.h>

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

}  // namespace ui::win32
