// Functions of the system that are looked up while the program runs: those that older systems lack, and those
// of DLLs that are not among the ones which the system always loads from its own folder.
#pragma once

#include <windows.h>

#include <cstdint>

namespace ui::win32 {

// A function that a DLL in the system's own folder exports; none where there is none of that name. The DLL
// stays loaded for the life of the process.
void* FindSystemFunction(const wchar_t* dll, const char* name);
template <class Function>
Function* SystemFunction(const wchar_t* dll, const char* name) {
    return reinterpret_cast<Function*>(FindSystemFunction(dll, name));
}

// Makes list views, tooltips, up-down controls and their like known to the system. Call once before the first
// dialog.
void RegisterControlClasses();

// Of the monitor that shows the window; 96 where there is no scaling.
uint32_t DpiOf(HWND window);
// Pixels of a window part (SM_...) at a resolution.
int SystemMetric(int index, uint32_t dpi);
// Leaves it to the dialog to follow a change of the monitor's resolution.
void KeepSystemFromRescaling(HWND dialog);

}  // namespace ui::win32
