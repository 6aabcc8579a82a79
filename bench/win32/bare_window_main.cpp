// A window like the editor's main one, with nothing between it and the system: as many controls of the same
// kinds, the same pictures, as many tooltips, the configuration read value by value from the registry and
// kept by nobody. What the start of the editor is measured against beside the empty dialog. Built with the
// same flags.
#include <windows.h>

#include <commctrl.h>

#include <array>

#include "bench/win32/EmptyDialog.h"

namespace {

constexpr int iconSide = 32;
constexpr int columns = 9;
constexpr int rows = 11;

constexpr std::array pictures{L"SAVE",        L"LOG_SETTINGS", L"RULE_ADD",       L"RULE_COPY",    L"RULE_EDIT",
                              L"RULE_DELETE", L"RULE_FIRST",   L"RULE_UP",        L"RULE_DOWN",    L"RULE_LAST",
                              L"PROFILE_ADD", L"PROFILE_EDIT", L"PROFILE_DELETE", L"RULES_EXPORT", L"RULES_IMPORT"};

// Every value below the key, once.
void ReadKey(HKEY parent, const wchar_t* path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    std::array<wchar_t, 256> name{};
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        std::array<BYTE, 1024> data{};
        auto size = static_cast<DWORD>(data.size());
        if (RegEnumValueW(key, index, name.data(), &length, nullptr, nullptr, data.data(), &size) != ERROR_SUCCESS)
            break;
    }
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        ReadKey(key, name.data());
    }
    RegCloseKey(key);
}

class Controls {
  public:
    explicit Controls(HWND dialog)
        : dialog_(dialog),
          tooltips_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 0, 0, dialog, nullptr,
                                    nullptr, nullptr)) {}

    void AddPictures() const {
        for (size_t i = 0; i < pictures.size(); ++i) {
            const HWND button = Add(WC_BUTTONW, BS_ICON | WS_TABSTOP, static_cast<int>(i) * 2 * iconSide, 0, 60, 60);
            SendMessageW(button, BM_SETIMAGE, IMAGE_ICON,
                         reinterpret_cast<LPARAM>(LoadImageW(GetModuleHandleW(nullptr), pictures[i], IMAGE_ICON,
                                                             iconSide, iconSide, LR_DEFAULTCOLOR)));
            std::array<wchar_t, 8> text{L"Tooltip"};
            TTTOOLINFOW tool{};
            tool.cbSize = sizeof tool;
            tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
            tool.hwnd = dialog_;
            tool.uId = reinterpret_cast<UINT_PTR>(button);
            tool.lpszText = text.data();
            SendMessageW(tooltips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        }
    }

    void AddList(int columnCount, int rowCount, int x) const {
        const HWND list = Add(WC_LISTVIEWW, LVS_REPORT | LVS_OWNERDATA | WS_BORDER | WS_TABSTOP, x, 70, 500, 200);
        for (int column = 0; column < columnCount; ++column) {
            std::array<wchar_t, 8> header{L"Column"};
            LVCOLUMNW shape{};
            shape.mask = LVCF_TEXT | LVCF_WIDTH;
            shape.cx = 50;
            shape.pszText = header.data();
            SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&shape));
        }
        SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(rowCount), 0);
    }

    void AddTexts() const {
        Add(WC_STATICW, SS_LEFT, 0, 280, 90, 16);
        Add(WC_EDITW, WS_BORDER | WS_TABSTOP, 100, 280, 90, 20);
        for (int i = 0; i < 2; ++i) Add(WC_EDITW, ES_READONLY | WS_BORDER, 200 + i * 100, 280, 90, 20);
        for (int i = 0; i < 3; ++i) Add(WC_BUTTONW, BS_PUSHBUTTON | WS_TABSTOP, 500 + i * 100, 280, 90, 24);
        for (int i = 0; i < 2; ++i) ShowWindow(Add(WC_BUTTONW, BS_PUSHBUTTON, 0, 300, 90, 24), SW_HIDE);
    }

  private:
    HWND Add(const wchar_t* kind, DWORD style, int x, int y, int width, int height) const {
        const HWND control = CreateWindowExW(0, kind, L"Text", style | WS_CHILD | WS_VISIBLE, x, y, width, height,
                                             dialog_, nullptr, nullptr, nullptr);
        SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(SendMessageW(dialog_, WM_GETFONT, 0, 0)), FALSE);
        return control;
    }

    HWND dialog_;
    HWND tooltips_;
};

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM parameter, LPARAM /*unused*/) {
    if (message == WM_INITDIALOG) {
        const Controls controls(window);
        controls.AddPictures();
        controls.AddList(1, 3, 0);
        controls.AddList(columns, rows, 510);
        controls.AddTexts();
        ReadKey(HKEY_CURRENT_USER, L"SOFTWARE\\TALVERON\\morcel");
        ReadKey(HKEY_LOCAL_MACHINE, L"SOFTWARE\\TALVERON\\morcelservice");
        return SetWindowTextW(window, L"Bare window");
    }
    return bench::EndOnCancel(window, message, parameter);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, wchar_t* /*commandLine*/, int /*show*/) {
    InitCommonControls();
    bench::RunEmptyDialog(instance, Procedure);
    return 0;
}
