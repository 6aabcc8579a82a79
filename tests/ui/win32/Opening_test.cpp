// A dialog initialises itself before its window is shown: the window is made what the dialog has become, once. Of the
// columns of a list only those are touched, then and later, that have changed.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

using Opening = GalleryTest;

int enabled = 0;
int shownOrHidden = 0;
int texts = 0;
int pictures = 0;
int columns = 0;

// The system's own, which are counted.
template <class Function>
Function* real = nullptr;

using Enable = BOOL WINAPI(HWND, BOOL);
BOOL WINAPI CountEnabled(HWND window, BOOL on) {
    ++enabled;
    return real<Enable>(window, on);
}
BOOL WINAPI CountShown(HWND, int) {
    ++shownOrHidden;
    return FALSE;
}
using SetText = BOOL WINAPI(HWND, const wchar_t*);
BOOL WINAPI CountText(HWND window, const wchar_t* text) {
    ++texts;
    return real<SetText>(window, text);
}
using LoadOne = HANDLE WINAPI(HINSTANCE, const wchar_t*, UINT, int, int, UINT);
HANDLE WINAPI CountPicture(HINSTANCE program, const wchar_t* name, UINT kind, int width, int height, UINT flags) {
    ++pictures;
    return real<LoadOne>(program, name, kind, width, height, flags);
}
using SendOne = LRESULT WINAPI(HWND, UINT, WPARAM, LPARAM);
LRESULT WINAPI CountColumn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == LVM_INSERTCOLUMNW || message == LVM_SETCOLUMNW || message == LVM_SETCOLUMNWIDTH) ++columns;
    return real<SendOne>(window, message, wParam, lParam);
}

// Whatever happens on the way: each step would be laid out, drawn and reported by itself.
TEST_F(Opening, WhatADialogHasBecomeWhenItOpensIsShownOnce) {
    // The first window of a process may be told of the system's colours, and load its pictures anew.
    Run([this] { gallery_.fixed.Enable(true); });
    enabled = shownOrHidden = texts = pictures = columns = 0;
    gallery_.onInit = [this] {
        for (int i = 0; i < 3; ++i) {
            for (ui::Control* control :
                 {static_cast<ui::Control*>(&gallery_.save), static_cast<ui::Control*>(&gallery_.tick)}) {
                control->Enable(i % 2 != 0);
                control->Enable(i % 2 == 0);
                control->Show(false);
                control->Show(true);
            }
            gallery_.name.SetText(std::to_wstring(i));
            gallery_.SetCaption(std::to_wstring(i));
            gallery_.SetIcon(ui::Icon::App);
            gallery_.rows.SetColumnWidths({10 + i, 20, 30});
        }
    };
    const ImportHook enable("EnableWindow", CountEnabled);
    const ImportHook show("ShowWindow", CountShown);
    const ImportHook text("SetWindowTextW", CountText);
    const ImportHook picture("LoadImageW", CountPicture);
    const ImportHook column("SendMessageW", CountColumn);
    real<Enable> = enable.Real<Enable>();
    real<SetText> = text.Real<SetText>();
    real<LoadOne> = picture.Real<LoadOne>();
    real<SendOne> = column.Real<SendOne>();
    Run([this] {
        EXPECT_EQ(enabled, 1);  // the edit that was made enabled
        EXPECT_EQ(shownOrHidden, 0);
        EXPECT_EQ(texts, 5);     // the caption, two edits, and the names of two lists
        EXPECT_EQ(pictures, 6);  // of the window, two; of a button, of a sign, and of a header, two
        EXPECT_EQ(columns, 3);
        EXPECT_EQ(user_.Text(gallery::Name), L"2");
    });
}

// Whether drawing was switched off (0) or on (1) by each message that did, and what is to be drawn in the end.
std::vector<WPARAM> SwitchesWhile(HWND window, const std::function<void()>& change) {
    std::vector<WPARAM> switches;
    const Subclass hearing(window, [&switches](UINT message, WPARAM wParam, LPARAM) {
        if (message == WM_SETREDRAW) switches.push_back(wParam);
        return std::optional<LRESULT>();
    });
    UpdateWindow(window);
    change();
    return switches;
}

TEST_F(Opening, AListThatIsChangedInManyStepsDrawsOnce) {
    Run([this] {
        const std::vector<std::pair<ui::Control*, std::function<void()>>> changes{
            {&gallery_.rows,
             [this] {
                 gallery_.rows.SetColumns({{L"Only", 90}});
             }},
            {&gallery_.names, [this] {
                 gallery_.names.Replace({L"one", L"two"});
             }}};
        for (const auto& [control, change] : changes) {
            const HWND window = GetDlgItem(WindowOf(gallery_), control->Id());
            EXPECT_EQ(SwitchesWhile(window, change), (std::vector<WPARAM>{FALSE, TRUE}));
            EXPECT_NE(GetUpdateRect(window, nullptr, FALSE), FALSE);
            control->Show(false);
            EXPECT_EQ(SwitchesWhile(window, change), std::vector<WPARAM>());  // it would appear
            EXPECT_EQ(IsWindowVisible(window), FALSE);
        }
    });
}

std::vector<std::wstring> HeadersOf(HWND list) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    std::vector<std::wstring> headers;
    const auto count = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        std::array<wchar_t, 64> text{};
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
        headers.emplace_back(text.data());
    }
    return headers;
}

TEST_F(Opening, AListShowsTheColumnsThatItIsGivenInPlaceOfOthers) {
    Run([this] {
        const HWND list = GetDlgItem(WindowOf(gallery_), gallery::Rows);
        EXPECT_EQ(HeadersOf(list), (std::vector<std::wstring>{L"", L"First", L"Second"}));
        gallery_.rows.SetColumns({{L"Only", 90}});
        EXPECT_EQ(HeadersOf(list), std::vector<std::wstring>{L"Only"});
        gallery_.rows.SetColumns({{L"One", 90}, {L"Two", 40}});
        EXPECT_EQ(HeadersOf(list), (std::vector<std::wstring>{L"One", L"Two"}));
    });
}

}  // namespace
}  // namespace tests
