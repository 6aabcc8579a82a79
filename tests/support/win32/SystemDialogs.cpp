#include "tests/support/win32/SystemDialogs.h"

#include <dlgs.h>
#include <gtest/gtest.h>

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

void AnswerPicker(HWND picker, const std::optional<std::wstring>& answer) {
    const HWND edit = PathEdit(picker);
    if (answer && edit == nullptr) ADD_FAILURE() << "the picker takes no path";
    if (answer && edit != nullptr)
        SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(answer->c_str()));
    PressButton(picker, answer && edit != nullptr ? IDOK : IDCANCEL);
}

}  // namespace tests
