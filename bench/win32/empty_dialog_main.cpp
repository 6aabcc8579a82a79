// The least that a program with a dialog can be: what the start and the idle memory of the editor are
// measured against. Built with the same flags.
#include <windows.h>

namespace {

struct EmptyDialog {
    DLGTEMPLATE dialog;
    WORD menu;
    WORD windowClass;
    WORD title;
};

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM parameter, LPARAM /*unused*/) {
    if (message == WM_INITDIALOG) return SetWindowTextW(window, L"Empty dialog");
    if (message != WM_COMMAND || LOWORD(parameter) != IDCANCEL) return FALSE;
    return EndDialog(window, 0);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, wchar_t* /*commandLine*/, int /*show*/) {
    EmptyDialog layout{};
    layout.dialog.style = WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_MODALFRAME;
    layout.dialog.cx = 613;
    layout.dialog.cy = 193;
    DialogBoxIndirectParamW(instance, &layout.dialog, nullptr, Procedure, 0);
    return 0;
}
