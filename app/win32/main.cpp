// Where the program starts. The only place that knows which back ends are used.
#include <windows.h>

#include "app/BrisgateApp.h"
#include "platform/win32/Win32Machine.h"
#include "ui/win32/Pickers.h"
#include "ui/win32/Win32Screen.h"

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, wchar_t* /*commandLine*/, int /*show*/) {
    // First of all: the library may ask for another kind of apartment, in which no file dialog would open.
    const ui::win32::ComponentApartment apartment;
    platform::win32::Win32Machine machine;
    ui::win32::Win32Screen screen(machine.ScreenMetrics);
    platform::win32::Win32Guide guide;
    app::CBrisgateApp(machine.Machine, screen, guide).InitInstance();
    return 0;
}
