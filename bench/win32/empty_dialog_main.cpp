// The least that a program with a dialog can be: what the start and the idle memory of the editor are
// measured against. Built with the same flags.
#include "bench/win32/EmptyDialog.h"

namespace {

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM parameter, LPARAM /*unused*/) {
    if (message == WM_INITDIALOG) return SetWindowTextW(window, L"Empty dialog");
    return bench::EndOnCancel(window, message, parameter);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, wchar_t* /*commandLine*/, int /*show*/) {
    bench::RunEmptyDialog(instance, Procedure);
    return 0;
}
