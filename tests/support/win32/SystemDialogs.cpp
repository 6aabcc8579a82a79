#include "tests/support/win32/SystemDialogs.h"

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "tests/support/win32/Input.h"
#include "ui/win32/ControlMirror.h"

namespace tests {
namespace {

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

// The text of a message box: the only label of it that has one.
BOOL CALLBACK FindLabel(HWND child, LPARAM found) {
    if (ClassOf(child) != L"Static" || GetWindowTextLengthW(child) == 0) return TRUE;
    *reinterpret_cast<HWND*>(found) = child;
    return FALSE;
}

void ExpectButtons(HWND box, uint32_t flags) {
    const uint32_t set = flags & ui::box::Buttons;
    EXPECT_EQ(set != ui::box::YesNo, GetDlgItem(box, IDOK) != nullptr);
    EXPECT_EQ(set == ui::box::YesNo, GetDlgItem(box, IDYES) != nullptr);
    EXPECT_EQ(set == ui::box::YesNo, GetDlgItem(box, IDNO) != nullptr);
}

// The edit in which pickers take a path.
HWND PathEdit(HWND picker) {
    for (const int id : {cmb13, edt1}) {
        const HWND control = GetDlgItem(picker, id);
        if (control == nullptr) continue;
        if (ClassOf(control) == L"Edit") return control;
        std::array<HWND, 1> edit{};
        EnumChildWindows(
            control,
            [](HWND child, LPARAM found) -> BOOL {
                if (ClassOf(child) != L"Edit") return TRUE;
                *reinterpret_cast<HWND*>(found) = child;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(edit.data()));
        if (edit[0] != nullptr) return edit[0];
    }
    return nullptr;
}

std::wstring ItemOf(HWND combo, WPARAM item) {
    std::array<wchar_t, 256> text{};
    if (item >= static_cast<WPARAM>(SendMessageW(combo, CB_GETCOUNT, 0, 0))) return {};
    SendMessageW(combo, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

std::wstring FolderOf(HWND picker) {
    std::array<wchar_t, MAX_PATH> path{};
    SendMessageW(picker, CDM_GETFOLDERPATH, path.size(), reinterpret_cast<LPARAM>(path.data()));
    return path.data();
}

BOOL CALLBACK FindList(HWND child, LPARAM found) {
    if (ClassOf(child) != WC_LISTVIEWW) return TRUE;
    *reinterpret_cast<HWND*>(found) = child;
    return FALSE;
}

std::vector<std::wstring> FilesIn(HWND picker) {
    HWND list = nullptr;
    EnumChildWindows(picker, FindList, reinterpret_cast<LPARAM>(&list));
    std::vector<std::wstring> files;
    if (list == nullptr) return files;
    const int count = ListView_GetItemCount(list);
    for (int row = 0; row < count; ++row) {
        std::array<wchar_t, MAX_PATH> name{};
        LVITEMW item{};
        item.pszText = name.data();
        item.cchTextMax = static_cast<int>(name.size());
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        files.emplace_back(name.data());
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

void CheckBox(HWND box, const SystemDialogRequest& request) {
    HWND label = nullptr;
    EnumChildWindows(box, FindLabel, reinterpret_cast<LPARAM>(&label));
    EXPECT_EQ(request.text, label == nullptr ? std::wstring() : ui::win32::TextOf(label));
    EXPECT_EQ(request.caption, ui::win32::TextOf(box));
    ExpectButtons(box, request.flags);
}

void PressButton(HWND dialog, int id) {
    const HWND button = GetDlgItem(dialog, id);
    if (button == nullptr) {
        ADD_FAILURE() << "the window has no button " << id;
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    } else {
        input::Click(button, input::CenterOf(button));
    }
}

SeenPicker LookAtPicker(HWND picker) {
    SeenPicker seen;
    const HWND filters = GetDlgItem(picker, cmb1);
    const auto count = static_cast<WPARAM>(SendMessageW(filters, CB_GETCOUNT, 0, 0));
    for (WPARAM item = 0; item < count; ++item) seen.filters.push_back(ItemOf(filters, item));
    seen.filter = ItemOf(filters, static_cast<WPARAM>(SendMessageW(filters, CB_GETCURSEL, 0, 0)));
    if (const HWND edit = PathEdit(picker)) seen.name = ui::win32::TextOf(edit);
    seen.folder = FolderOf(picker);
    const HWND readOnly = GetDlgItem(picker, chx1);
    seen.hasReadOnlyBox = readOnly != nullptr && IsWindowVisible(readOnly) != FALSE;
    seen.files = FilesIn(picker);
    return seen;
}

void ChooseFilter(HWND picker, int filter) {
    const HWND filters = GetDlgItem(picker, cmb1);
    SendMessageW(filters, CB_SETCURSEL, static_cast<WPARAM>(filter), 0);
    SendMessageW(picker, WM_COMMAND, MAKEWPARAM(cmb1, CBN_SELENDOK), reinterpret_cast<LPARAM>(filters));
    input::Settle();
}

void AnswerPicker(HWND picker, const std::optional<std::wstring>& answer) {
    const HWND edit = PathEdit(picker);
    if (answer && edit == nullptr) ADD_FAILURE() << "the picker takes no path";
    if (answer && edit != nullptr) SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(answer->c_str()));
    PressButton(picker, answer && edit != nullptr ? IDOK : IDCANCEL);
}

}  // namespace tests
