// The editor's main window, with nothing between it and the system: the same controls, menus and pictures, as many
// tooltips, the same place, the configuration read value by value from the registry and kept by nobody. What the start
// of the editor is measured against beside the empty dialog. Built with the same flags.
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bench/win32/EmptyDialog.h"
#include "ui/Icons.h"

namespace {

constexpr int columns = 9;
constexpr int rows = 11;
constexpr int iconSide = 32;  // pixels

struct Item {
    const wchar_t* kind;
    DWORD style;
    int x, y, width, height;  // dialog units
    int id;
    const wchar_t* text;
};

constexpr DWORD iconButton = BS_PUSHBUTTON | BS_ICON | BS_NOTIFY | WS_TABSTOP | WS_VISIBLE;
constexpr DWORD edit = WS_BORDER | ES_AUTOHSCROLL | WS_TABSTOP | WS_VISIBLE;
constexpr DWORD button = BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP;
constexpr DWORD list = WS_BORDER | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | WS_TABSTOP;

constexpr std::array items{
    Item{WC_BUTTONW, iconButton, 7, 9, 32, 32, 1021, L"Save"},
    Item{WC_BUTTONW, iconButton, 39, 9, 32, 32, 1022, L"Log path"},
    Item{WC_BUTTONW, iconButton, 76, 9, 32, 32, 1023, L"Add rule"},
    Item{WC_BUTTONW, iconButton, 108, 9, 32, 32, 1037, L"Copy rule"},
    Item{WC_BUTTONW, iconButton, 140, 9, 32, 32, 1024, L"Edit rule"},
    Item{WC_BUTTONW, iconButton, 172, 9, 32, 32, 1025, L"Delete rule"},
    Item{WC_BUTTONW, iconButton, 204, 9, 32, 32, 1026, L"Make first"},
    Item{WC_BUTTONW, iconButton, 236, 9, 32, 32, 1027, L"Move up"},
    Item{WC_BUTTONW, iconButton, 268, 9, 32, 32, 1028, L"Move down"},
    Item{WC_BUTTONW, iconButton, 300, 9, 32, 32, 1029, L"Make last"},
    Item{WC_BUTTONW, iconButton, 337, 9, 32, 32, 1031, L"Add profile"},
    Item{WC_BUTTONW, iconButton, 369, 9, 32, 32, 1032, L"Edit profile"},
    Item{WC_BUTTONW, iconButton, 401, 9, 32, 32, 1033, L"Delete profile"},
    Item{WC_BUTTONW, iconButton, 433, 9, 32, 32, 1034, L"Export profile rules"},
    Item{WC_BUTTONW, iconButton, 465, 9, 32, 32, 1035, L"Import profile rules"},
    Item{WC_STATICW, SS_LEFT | WS_VISIBLE, 506, 9, 107, 16, 1120, L"Search by field \"Description\""},
    Item{WC_EDITW, edit, 506, 26, 100, 14, 1079, L""},
    Item{WC_STATICW, SS_LEFT, 0, 0, 0, 0, 0x7001, L"Opened profile"},
    Item{WC_EDITW, edit | ES_READONLY, 8, 43, 112, 14, 1041, L"Profile: Default"},
    Item{WC_STATICW, SS_LEFT, 0, 0, 0, 0, 0x7002, L"Number of CS profiles"},
    Item{WC_EDITW, edit | ES_READONLY, 133, 43, 473, 14, 1042, L"CS profile's num: 2"},
    Item{WC_STATICW, SS_LEFT, 0, 0, 0, 0, 0x7003, L"Profiles"},
    Item{WC_LISTVIEWW, list | LVS_SINGLESEL | WS_VISIBLE, 8, 60, 112, 90, 1001, L"Profiles"},
    Item{WC_STATICW, SS_LEFT, 0, 0, 0, 0, 0x7004, L"Rules"},
    Item{WC_LISTVIEWW, list | WS_VISIBLE, 133, 60, 473, 90, 1030, L"Rules"},
    Item{WC_BUTTONW, button | WS_DISABLED, 21, 151, 12, 11, 1036, L"Configurations"},
    Item{WC_BUTTONW, button | WS_DISABLED, 7, 152, 12, 8, 1053, L"Open profile"},
    Item{WC_BUTTONW, button | WS_VISIBLE, 426, 167, 50, 19, 1000, L"Save"},
    Item{WC_BUTTONW, button | BS_DEFPUSHBUTTON | WS_VISIBLE, 482, 167, 50, 19, IDOK, L"Save and exit"},
    Item{WC_BUTTONW, button | WS_VISIBLE, 538, 167, 68, 19, IDCANCEL, L"Exit without saving"},
};

constexpr size_t iconButtons = 15;  // the first of the items, in the order of the pictures

struct MenuShape {
    const wchar_t* title;
    UINT_PTR items;
};
constexpr std::array menus{MenuShape{L"File", 4}, MenuShape{L"Profiles", 5}, MenuShape{L"Rules", 8}};

class Template {
  public:
    Template() {
        for (const int word : {1, 0xFFFF, 0, 0, 0, 0}) AddWord(word);
        AddLong(DS_SHELLFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_THICKFRAME | WS_CLIPCHILDREN);
        for (const int word : {static_cast<int>(items.size()), 0, 0, 613, 193, 0, 0, 0, 8, FW_NORMAL}) AddWord(word);
        AddWord(DEFAULT_CHARSET << 8);
        AddText(L"MS Shell Dlg");
        for (const Item& item : items) Add(item);
    }
    const DLGTEMPLATE* Data() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    void AddWord(int word) { words_.push_back(static_cast<WORD>(word)); }
    void AddLong(DWORD bits) {
        AddWord(static_cast<int>(bits & 0xFFFF));
        AddWord(static_cast<int>(bits >> 16));
    }
    void AddText(std::wstring_view text) {
        for (const wchar_t unit : text) AddWord(unit);
        AddWord(0);
    }
    void Add(const Item& item) {
        if (words_.size() % 2 != 0) AddWord(0);
        AddLong(0);
        AddLong(0);
        AddLong(item.style | WS_CHILD);
        for (const int length : {item.x, item.y, item.width, item.height}) AddWord(length);
        AddLong(static_cast<DWORD>(item.id));
        AddText(item.kind);
        AddText(item.text);
        AddWord(0);
    }

    std::vector<WORD> words_;
};

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

LPARAM Picture(ui::Icon icon, int side) {
    return reinterpret_cast<LPARAM>(
        LoadImageW(GetModuleHandleW(nullptr), ui::NameOf(icon), IMAGE_ICON, side, side, LR_DEFAULTCOLOR));
}

void AddMenus(HWND dialog) {
    const HMENU bar = CreateMenu();
    for (const MenuShape& shape : menus) {
        const HMENU menu = CreatePopupMenu();
        for (UINT_PTR item = 0; item < shape.items; ++item) AppendMenuW(menu, MF_STRING, 2000 + item, L"Command");
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), shape.title);
    }
    SetMenu(dialog, bar);
    AppendMenuW(GetSystemMenu(dialog, FALSE), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(GetSystemMenu(dialog, FALSE), MF_STRING, 16, L"About...");
}

void AddPictures(HWND dialog) {
    SendMessageW(dialog, WM_SETICON, ICON_BIG, Picture(ui::Icon::App, 32));
    SendMessageW(dialog, WM_SETICON, ICON_SMALL, Picture(ui::Icon::App, 16));
    const HWND tooltips =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
                        dialog, nullptr, nullptr, nullptr);
    for (size_t i = 0; i < iconButtons; ++i) {
        const HWND control = GetDlgItem(dialog, items[i].id);
        const auto icon = static_cast<ui::Icon>(static_cast<size_t>(ui::Icon::Save) + i);
        SendMessageW(control, BM_SETIMAGE, IMAGE_ICON, Picture(icon, iconSide));
        std::wstring text = items[i].text;
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = dialog;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = text.data();
        SendMessageW(tooltips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void FillList(HWND dialog, int id, DWORD style, int columnCount, int rowCount) {
    const HWND window = GetDlgItem(dialog, id);
    SendMessageW(window, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 static_cast<LPARAM>(style | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER));
    for (int column = 0; column < columnCount; ++column) {
        std::wstring header = L"Column";
        LVCOLUMNW shape{};
        shape.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        shape.cx = 85;
        shape.iSubItem = column;
        shape.pszText = header.data();
        SendMessageW(window, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&shape));
    }
    SendMessageW(window, LVM_SETITEMCOUNT, static_cast<WPARAM>(rowCount), 0);
}

// Where the demo configuration has the window, whose lower part is as much lower.
void Place(HWND dialog) {
    RECT before{};
    GetClientRect(dialog, &before);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(dialog, &placement);
    placement.rcNormalPosition = {60, 60, 1180, 560};
    placement.showCmd = SW_HIDE;
    SetWindowPlacement(dialog, &placement);
    RECT after{};
    GetClientRect(dialog, &after);
    const int wider = static_cast<int>(after.right - before.right);
    const int lower = static_cast<int>(after.bottom - before.bottom);
    const auto grow = [dialog](int id, int right, int down, int width, int height) {
        const HWND control = GetDlgItem(dialog, id);
        RECT bounds{};
        GetWindowRect(control, &bounds);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&bounds), 2);
        SetWindowPos(control, nullptr, bounds.left + right, bounds.top + down, bounds.right - bounds.left + width,
                     bounds.bottom - bounds.top + height, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    for (const int id : {1120, 1079, 1042}) grow(id, 0, 0, wider, 0);
    grow(1001, 0, 0, 0, lower);
    grow(1030, 0, 0, wider, lower);
    for (const int id : {1000, IDOK, IDCANCEL}) grow(id, wider, lower, 0, 0);
}

LRESULT Answer(HWND window, NMHDR& question) {
    if (question.code != static_cast<UINT>(LVN_GETDISPINFOW)) return FALSE;
    LVITEMW& cell = reinterpret_cast<NMLVDISPINFOW&>(question).item;
    static std::wstring text = L"Text of a cell";
    if ((cell.mask & LVIF_TEXT) != 0) cell.pszText = text.data();
    if ((cell.mask & LVIF_STATE) != 0) cell.state = INDEXTOSTATEIMAGEMASK(2);
    SetWindowLongPtrW(window, DWLP_MSGRESULT, 0);
    return TRUE;
}

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM parameter, LPARAM notification) {
    if (message == WM_NOTIFY) return Answer(window, *reinterpret_cast<NMHDR*>(notification));
    if (message != WM_INITDIALOG) return bench::EndOnCancel(window, message, parameter);
    AddMenus(window);
    AddPictures(window);
    SendDlgItemMessageW(window, 1079, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Description"));
    ReadKey(HKEY_CURRENT_USER, L"SOFTWARE\\TALVERON\\morcel");
    ReadKey(HKEY_LOCAL_MACHINE, L"SOFTWARE\\TALVERON\\morcelservice");
    Place(window);
    FillList(window, 1001, 0, 1, 3);
    SendDlgItemMessageW(window, 1030, LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK, 0);
    FillList(window, 1030, LVS_EX_CHECKBOXES, columns, rows);
    SetWindowTextW(window, L"Bare window");
    SetFocus(GetDlgItem(window, 1001));
    return FALSE;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, wchar_t* /*commandLine*/, int /*show*/) {
    InitCommonControls();
    DialogBoxIndirectParamW(instance, Template().Data(), nullptr, Procedure, 0);
    return 0;
}
