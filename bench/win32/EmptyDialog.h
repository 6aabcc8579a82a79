// The dialog of the programs that the start of the editor is measured against: as large as the editor's main
// window and empty until its procedure fills it. Escape ends it.
#pragma once

#include <windows.h>

namespace bench {

// Until the procedure ends it.
inline void RunEmptyDialog(HINSTANCE program, DLGPROC procedure) {
    struct {
        DLGTEMPLATE dialog;
        WORD menu;
        WORD windowClass;
        WORD title;
    } layout{};
    layout.dialog.style = WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_MODALFRAME;
    layout.dialog.cx = 613;
    layout.dialog.cy = 193;
    DialogBoxIndirectParamW(program, &layout.dialog, nullptr, procedure, 0);
}

// What every such procedure does with messages that are not its own.
inline INT_PTR EndOnCancel(HWND window, UINT message, WPARAM parameter) {
    if (message != WM_COMMAND || LOWORD(parameter) != IDCANCEL) return FALSE;
    return EndDialog(window, 0);
}

}  // namespace bench
