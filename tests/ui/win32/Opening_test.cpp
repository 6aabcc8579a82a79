// A dialog initialises itself before its window is shown: the window is made what the dialog has become, once. Of the
// columns of a list only those are touched, then and later, that have changed.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <bit>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
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
    gallery_.hint.Show(false);
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

INT_PTR WINAPI NoModal(HINSTANCE, const DLGTEMPLATE*, HWND, DLGPROC, LPARAM) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return -1;
}
HWND WINAPI NoModeless(HINSTANCE, const DLGTEMPLATE*, HWND, DLGPROC, LPARAM) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

TEST_F(Opening, ADialogThatTheSystemDoesNotOpenIsReported) {
    const ImportHook modal("DialogBoxIndirectParamW", NoModal);
    const ImportHook modeless("CreateDialogIndirectParamW", NoModeless);
    for (const bool isModal : {true, false}) {
        try {
            isModal ? static_cast<void>(gallery_.DoModal()) : gallery_.OpenModeless();
            FAIL() << "it has opened";
        } catch (const ui::ScreenError& error) {
            EXPECT_EQ(error.Operation(), L"Opening a window");
            EXPECT_EQ(error.Code(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
        }
    }
}

using Peek = BOOL WINAPI(MSG*, HWND, UINT, UINT, UINT);
bool isQueueLookedAt = false;
BOOL WINAPI NoteLook(MSG* message, HWND window, UINT first, UINT last, UINT options) {
    isQueueLookedAt = true;
    return real<Peek>(message, window, first, last, options);
}

// The command that has opened it may keep the thread busy for long. The system may keep drawings back until the
// thread looks for messages.
TEST_F(Opening, AModelessDialogIsPaintedBeforeTheCommandGoesOn) {
    const ImportHook peek("PeekMessageW", NoteLook);
    real<Peek> = peek.Real<Peek>();
    Gallery other(world_->Screen());
    other.onInit = [&other] { other.EndDialog(ui::IdCancel); };
    other.OpenModeless();
    EXPECT_TRUE(other.HasEnded());
    other.onInit = nullptr;
    isQueueLookedAt = false;
    other.OpenModeless();
    EXPECT_TRUE(isQueueLookedAt);
    EXPECT_FALSE(other.HasEnded());
    const HWND window = WindowOf(other);
    EXPECT_NE(IsWindowVisible(window), FALSE);
    EXPECT_EQ(GetUpdateRect(window, nullptr, FALSE), FALSE);
    for (const ui::Control* control : other.Controls())
        EXPECT_EQ(GetUpdateRect(GetDlgItem(window, control->Id()), nullptr, FALSE), FALSE) << control->Id();
    other.Close();
}

TEST_F(Opening, ADialogUsesTheFontOfTheSystemsDialogs) {
    Run([this] {
        LOGFONTW font{};
        const LRESULT handle = SendMessageW(GetDlgItem(WindowOf(gallery_), gallery::Hint), WM_GETFONT, 0, 0);
        ASSERT_NE(GetObjectW(reinterpret_cast<HFONT>(handle), sizeof font, &font), 0);
        EXPECT_STREQ(font.lfFaceName, L"MS Shell Dlg");
        EXPECT_EQ(font.lfHeight, -MulDiv(8, static_cast<int>(gallery_.Dpi()), 72));
        EXPECT_EQ(font.lfWidth, 0);
        EXPECT_EQ(font.lfWeight, FW_NORMAL);
        EXPECT_EQ(font.lfItalic, FALSE);
        EXPECT_EQ(font.lfCharSet, DEFAULT_CHARSET);
    });
}

TEST_F(Opening, AnEditMayBecomeOneForReadingOnTheWay) {
    gallery_.onInit = [this] { gallery_.name.SetReadOnly(true); };
    Run([this] {
        const HWND edit = GetDlgItem(WindowOf(gallery_), gallery::Name);
        EXPECT_NE(GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY, 0);
    });
}

TEST_F(Opening, ARowThatTheProgramScrollsToOnTheWayIsInView) {
    gallery_.onInit = [this] {
        gallery_.FillRows(100);
        gallery_.rows.EnsureVisible(99);
    };
    Run([this] {
        const HWND list = GetDlgItem(WindowOf(gallery_), gallery::Rows);
        const LRESULT top = SendMessageW(list, LVM_GETTOPINDEX, 0, 0);
        EXPECT_EQ(top + SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0), 100);
    });
}

// One with a list that the user cannot sort.
class Plain : public ui::Dialog {
  public:
    explicit Plain(ui::Screen& screen) : Dialog(screen, nullptr, {.size = {100, 60}}, L"Plain") {}
    ui::ListView rows{*this, gallery::Rows, {7, 7, 80, 40}};

  protected:
    void OnInitDialog() override { rows.SetColumns({{L"Only", 60}}); }
};

TEST_F(Opening, OnlyHeadersThatSortHavePictures) {
    const auto headerPictures = [](const ui::Dialog& dialog) {
        const HWND list = GetDlgItem(WindowOf(dialog), gallery::Rows);
        const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
        return SendMessageW(header, HDM_GETIMAGELIST, HDSIL_NORMAL, 0);
    };
    Plain plain(world_->Screen());
    plain.OpenModeless();
    EXPECT_EQ(headerPictures(plain), 0);
    plain.Close();
    Run([&] { EXPECT_NE(headerPictures(gallery_), 0); });
}

using LookUp = FARPROC WINAPI(HMODULE, const char*);
DWORD madeKnown = 0;

BOOL WINAPI NoteClasses(const INITCOMMONCONTROLSEX* classes) {
    madeKnown = classes->dwSize == sizeof *classes ? classes->dwICC : 0;
    return TRUE;
}
FARPROC WINAPI FindNotingClasses(HMODULE module, const char* name) {
    const bool isIt = std::string_view(name) == "InitCommonControlsEx";
    return isIt ? std::bit_cast<FARPROC>(&NoteClasses) : real<LookUp>(module, name);
}

TEST_F(Opening, TheControlsAreMadeKnownToTheSystemBeforeTheFirstDialog) {
    const ImportHook find("GetProcAddress", FindNotingClasses);
    real<LookUp> = find.Real<LookUp>();
    const auto world = World::Make();
    constexpr DWORD Needed = ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_UPDOWN_CLASS;
    EXPECT_EQ(madeKnown & Needed, Needed);
}

TEST_F(Opening, ADropDownListHasRoomBelowItsField) {
    Run([this] {
        for (const int id : {gallery::Kinds, gallery::Mask}) {
            RECT list{0, 0, 0, 150};
            MapDialogRect(WindowOf(gallery_), &list);
            const HWND combo = GetDlgItem(WindowOf(gallery_), id);
            RECT field{};
            RECT open{};
            GetWindowRect(combo, &field);
            SendMessageW(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&open));
            EXPECT_GT(open.bottom - field.bottom, list.bottom / 2);
        }
    });
}

TEST_F(Opening, AControlHasTheStyleOfItsKindAndNoOther) {
    Run([this] {
        const auto kind = [this](int id) {
            constexpr LONG_PTR OfTheClass = 0xFFFF;
            return GetWindowLongPtrW(GetDlgItem(WindowOf(gallery_), id), GWL_STYLE) & OfTheClass;
        };
        EXPECT_EQ(kind(gallery::Hint), SS_LEFT);
        EXPECT_EQ(kind(gallery::Name), ES_AUTOHSCROLL);
        EXPECT_EQ(kind(gallery::Digits), ES_AUTOHSCROLL | ES_NUMBER);
        EXPECT_EQ(kind(gallery::Notes), ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN);
        EXPECT_EQ(kind(gallery::Fixed), ES_AUTOHSCROLL | ES_READONLY);
        EXPECT_EQ(kind(gallery::Tick), BS_CHECKBOX | BS_NOTIFY);
        EXPECT_EQ(kind(gallery::Frame), BS_GROUPBOX);
        EXPECT_EQ(kind(gallery::Apply), BS_PUSHBUTTON | BS_NOTIFY);
        EXPECT_EQ(kind(ui::IdOk), BS_DEFPUSHBUTTON | BS_NOTIFY);
        const HWND window = WindowOf(gallery_);
        EXPECT_EQ(GetWindowLongPtrW(window, GWL_EXSTYLE) & (WS_EX_TOPMOST | WS_EX_DLGMODALFRAME), 0);
        for (const ui::Control* control : gallery_.Controls())
            EXPECT_EQ(GetWindowLongPtrW(GetDlgItem(window, control->Id()), GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0);
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

TEST_F(Opening, AColumnThatStaysAsItIsIsLeftAlone) {
    Run([this] {
        const ImportHook column("SendMessageW", CountColumn);
        real<SendOne> = column.Real<SendOne>();
        columns = 0;
        gallery_.rows.SetColumnWidths({90, 100, 120});
        EXPECT_EQ(columns, 0);
        gallery_.rows.SetColumnWidths({90, 110, 120});
        EXPECT_EQ(columns, 1);
    });
}

TEST_F(Opening, AModelessDialogGoesWithTheScreen) {
    auto world = World::Make();
    Gallery other(world->Screen());
    other.OpenModeless();
    const HWND window = WindowOf(other);
    EXPECT_NE(IsWindow(window), FALSE);
    world.reset();
    EXPECT_EQ(IsWindow(window), FALSE);
    EXPECT_TRUE(other.HasEnded());
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
        LVCOLUMNW column{};
        column.mask = LVCF_SUBITEM;
        SendMessageW(list, LVM_GETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
        EXPECT_EQ(column.iSubItem, 0);  // whose cells it shows
        gallery_.rows.SetColumns({{L"One", 90}, {L"Two", 40}});
        EXPECT_EQ(HeadersOf(list), (std::vector<std::wstring>{L"One", L"Two"}));
    });
}

}  // namespace
}  // namespace tests
