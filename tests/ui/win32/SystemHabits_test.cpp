// What the system may do, and one of the systems that the tests run on does not: the windows have to be right
// all the same.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <functional>
#include <optional>
#include <set>
#include <stdexcept>

#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/Input.h"
#include "tests/support/win32/OpenedWindows.h"
#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

class SystemHabits : public GalleryTest {
  protected:
    HWND Window(int id) { return GetDlgItem(WindowOf(gallery_), id); }
    static void SetState(HWND list, int row, UINT state, UINT mask) {
        LVITEMW item{};
        item.state = state;
        item.stateMask = mask;
        SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
};

// Since Vista there are more flags than a place can have.
TEST_F(SystemHabits, APlaceInAListMaySayMoreThanThePlace) {
    Run([this] {
        const Subclass list(Window(gallery::Rows),
                            [this](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
                                if (message != LVM_SUBITEMHITTEST) return std::nullopt;
                                const LRESULT row = DefSubclassProc(Window(gallery::Rows), message, wParam, lParam);
                                constexpr UINT InAnItem = 0x80000000;  // LVHT_EX_ONCONTENTS
                                reinterpret_cast<LVHITTESTINFO*>(lParam)->flags |= InAnItem;
                                return row;
                            });
        user_.ClickCheckBox(gallery::Rows, 3);
        EXPECT_TRUE(gallery_.rows.IsChecked(3));
        user_.ClickRow(gallery::Rows, 4);
        EXPECT_FALSE(gallery_.rows.IsChecked(4));
    });
}

// A list that forgot to mention a change is asked before a key acts on what is selected.
TEST_F(SystemHabits, SpaceAndDeleteActOnWhatTheListShows) {
    for (const Key key : {Key::Space, Key::Delete}) {
        Run([this, key] {
            gallery_.rows.SelectOnly(1);
            gallery_.rows.SetFocus();
            {
                const Subclass deaf(WindowOf(gallery_), [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                    return message == WM_NOTIFY ? std::optional<LRESULT>(0) : std::nullopt;
                });
                const HWND list = Window(gallery::Rows);
                SetState(list, 6, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
                SetState(list, 8, LVIS_SELECTED, LVIS_SELECTED);
                SetState(list, 0, LVIS_SELECTED, LVIS_SELECTED);
            }
            EXPECT_EQ(gallery_.rows.SelectedRows(), std::vector<size_t>{1});
            user_.Press(key);
            EXPECT_EQ(gallery_.rows.SelectedRows(), (std::vector<size_t>{0, 1, 6, 8}));
            EXPECT_EQ(gallery_.rows.FocusedRow(), size_t{6});
            EXPECT_EQ(gallery_.rows.IsChecked(6), key == Key::Space);
            EXPECT_EQ(gallery_.rows.IsChecked(1), key == Key::Space);
            gallery_.rows.SetChecks(std::vector<bool>(20));
        });
    }
}

TEST_F(SystemHabits, ADialogWithoutASmallestSizeLeavesItToTheSystem) {
    Run([this] {
        const auto smallest = [this] {
            MINMAXINFO info{};
            info.ptMinTrackSize = {136, 39};
            SendMessageW(WindowOf(gallery_), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
            return std::pair(info.ptMinTrackSize.x, info.ptMinTrackSize.y);
        };
        EXPECT_EQ(smallest(), std::pair(136L, 39L));
        gallery_.smallest = {200, 0};
        EXPECT_EQ(smallest(), std::pair(200L, 39L));
        gallery_.smallest = {0, 100};
        EXPECT_EQ(smallest(), std::pair(136L, 100L));
    });
}

// One that is open would vanish under the mouse.
TEST_F(SystemHabits, AMenuStaysTheSameWhileOnlyTheStatesOfItsItemsChange) {
    using gallery::Open;
    gallery_.onInit = [this] { gallery_.SetMenuBar({{L"File", {{Open, L"Open", true}}}}); };
    Run([this] {
        const auto shown = [this] { return GetMenu(WindowOf(gallery_)); };
        const auto isGrayed = [&] { return (GetMenuState(shown(), Open, MF_BYCOMMAND) & MF_GRAYED) != 0; };
        const HMENU first = shown();
        for (const bool enabled : {false, true}) {
            gallery_.SetMenuBar({{L"File", {{Open, L"Open", enabled}}}});
            EXPECT_EQ(shown(), first);
            EXPECT_EQ(isGrayed(), !enabled);
        }
        gallery_.SetMenuBar({{L"Other", {{Open, L"Open", true}}}});
        EXPECT_EQ(IsMenu(first), FALSE);
        std::wstring title(10, L'\0');
        title.resize(static_cast<size_t>(GetMenuStringW(shown(), 0, title.data(), 10, MF_BYPOSITION)));
        EXPECT_EQ(title, L"Other");
        gallery_.SetMenuBar({{L"Other", {{Open, L"Again", true}}}});
        title.resize(10);
        title.resize(static_cast<size_t>(GetMenuStringW(shown(), Open, title.data(), 10, MF_BYCOMMAND)));
        EXPECT_EQ(title, L"Again");
        constexpr UINT None = ~0U;
        EXPECT_EQ(GetMenuState(shown(), gallery::Print, MF_BYCOMMAND), None);
        gallery_.SetMenuBar({{L"Other", {{gallery::Print, L"Again", true}}}});
        EXPECT_NE(GetMenuState(shown(), gallery::Print, MF_BYCOMMAND), None);
    });
}

int barsDrawn = 0;

BOOL WINAPI CountBars(HWND) {
    ++barsDrawn;
    return TRUE;
}

TEST_F(SystemHabits, AMenuBarIsDrawnWhenItIsSeenAndSomethingInItHasChanged) {
    using gallery::Open;
    const ImportHook draw("DrawMenuBar", CountBars);
    barsDrawn = 0;
    gallery_.onInit = [this] { gallery_.SetMenuBar({{L"File", {{Open, L"Open", true}}}}); };
    Run([this] {
        EXPECT_EQ(barsDrawn, 0);
        gallery_.EnableMenuItems({Open}, true);
        EXPECT_EQ(barsDrawn, 0);
        gallery_.EnableMenuItems({Open}, false);
        EXPECT_EQ(barsDrawn, 1);
    });
}

// From the selection mark on the system selects when the user holds Shift.
TEST_F(SystemHabits, ARowThatTheProgramSelectsIsWhereARangeBegins) {
    Run([this] {
        const auto mark = [this] { return SendMessageW(Window(gallery::Rows), LVM_GETSELECTIONMARK, 0, 0); };
        gallery_.rows.SelectOnly(3);
        EXPECT_EQ(mark(), 3);
        gallery_.FillRows(10);
        EXPECT_EQ(mark(), -1);
    });
}

// How the list of one system tells of what the user takes back with Shift held.
TEST_F(SystemHabits, ARangeOfRowsIsTakenBack) {
    Run([this] {
        gallery_.rows.SelectAll();
        NMLVODSTATECHANGE change{};
        {
            const Subclass deaf(WindowOf(gallery_), [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                return message == WM_NOTIFY ? std::optional<LRESULT>(0) : std::nullopt;
            });
            for (int row = 3; row < 20; ++row) SetState(Window(gallery::Rows), row, 0, LVIS_SELECTED);
        }
        change.hdr = {Window(gallery::Rows), gallery::Rows, static_cast<UINT>(LVN_ODSTATECHANGED)};
        change.iFrom = 3;
        change.iTo = 19;
        change.uOldState = LVIS_SELECTED;
        SendMessageW(WindowOf(gallery_), WM_NOTIFY, gallery::Rows, reinterpret_cast<LPARAM>(&change));
        EXPECT_EQ(gallery_.rows.SelectedRows(), (std::vector<size_t>{0, 1, 2}));
    });
}

// The guide opens by F1: to the system no control has help of its own.
TEST_F(SystemHabits, NoControlHasAHelpTopicOfTheSystems) {
    Run([this] {
        const HWND window = WindowOf(gallery_);
        EXPECT_EQ(GetWindowContextHelpId(window), 0U);
        for (const ui::Control* control : gallery_.Controls())
            EXPECT_EQ(GetWindowContextHelpId(Window(control->Id())), 0U) << control->Id();
    });
}

TEST_F(SystemHabits, ALetterThatNoRowBeginsWithFindsNone) {
    Run([this] {
        const auto found = [this](const wchar_t* beginning) {
            LVFINDINFOW wanted{};
            wanted.flags = LVFI_STRING | LVFI_PARTIAL;
            wanted.psz = beginning;
            return SendMessageW(Window(gallery::Rows), LVM_FINDITEMW, static_cast<WPARAM>(-1),
                                reinterpret_cast<LPARAM>(&wanted));
        };
        EXPECT_EQ(found(L"x"), -1);
        EXPECT_EQ(found(L"ROW 12"), 12);
    });
}

HDWP WINAPI NoRoom(HDWP, HWND, HWND, int, int, int, int, UINT) {
    return nullptr;
}
HDWP WINAPI NoRoomAtAll(int) {
    return nullptr;
}
BOOL WINAPI RoomLost(HDWP) {
    return FALSE;
}

// Whether short of room at the beginning, in the middle or at the end.
TEST_F(SystemHabits, ControlsMoveWhereTheSystemCannotCollectTheMoves) {
    Run([this] {
        const auto grows = [this] {
            const int before = gallery_.ok.Bounds().x;
            user_.Resize({10, 10});  // looks at every window's place
            EXPECT_EQ(gallery_.ok.Bounds().x, before + 10);
        };
        {
            const ImportHook begin("BeginDeferWindowPos", NoRoomAtAll);
            grows();
        }
        {
            const ImportHook defer("DeferWindowPos", NoRoom);
            grows();
        }
        const ImportHook end("EndDeferWindowPos", RoomLost);
        grows();
    });
}

// The caller of a message may look at what has become of it.
TEST_F(SystemHabits, AMessageThatTheDialogHasDealtWithIsAnsweredByZero) {
    gallery_.onInit = [this] { gallery_.AppendToSystemMenu(gallery::About, L"About"); };
    Run([this] {
        EXPECT_EQ(SendMessageW(WindowOf(gallery_), WM_SYSCOMMAND, gallery::About, 0), 0);
        const HGLOBAL nothing = GlobalAlloc(GHND, sizeof(DROPFILES) + 2 * sizeof(wchar_t));
        auto* const dropped = static_cast<DROPFILES*>(GlobalLock(nothing));
        dropped->pFiles = sizeof(DROPFILES);
        dropped->fWide = TRUE;
        GlobalUnlock(nothing);
        EXPECT_EQ(SendMessageW(WindowOf(gallery_), WM_DROPFILES, reinterpret_cast<WPARAM>(nothing), 0), 0);
        EXPECT_EQ(gallery_.TakeHeard(), Heard{L"system menu 16"});
    });
}

TEST_F(SystemHabits, ARightClickTurnsNoCheckMark) {
    Run([this] {
        const HWND list = Window(gallery::Rows);
        RECT row{LVIR_BOUNDS, 0, 0, 0};
        SendMessageW(list, LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&row));
        const POINT box{row.left + 8, (row.top + row.bottom) / 2};
        input::RightClick(list, box);
        EXPECT_FALSE(gallery_.rows.IsChecked(2));
        EXPECT_EQ(gallery_.TakeHeard(), Heard{L"right click 2,0"});
        input::Click(list, box);
        EXPECT_TRUE(gallery_.rows.IsChecked(2));
    });
}

TEST_F(SystemHabits, AListBoxThatIsFilledAnewStaysWhereTheUserHasScrolledIt) {
    Run([this] {
        std::vector<std::wstring> names;
        for (int i = 10; i < 60; ++i) names.push_back(std::to_wstring(i));
        gallery_.names.Replace(names);
        SendMessageW(Window(gallery::Names), LB_SETTOPINDEX, 7, 0);
        gallery_.names.Replace(names);
        EXPECT_EQ(SendMessageW(Window(gallery::Names), LB_GETTOPINDEX, 0, 0), 7);
    });
}

// The list knows nothing of them.
TEST_F(SystemHabits, CheckMarksThatTheProgramChangesAreDrawn) {
    Run([this] {
        UpdateWindow(Window(gallery::Rows));
        gallery_.rows.SetChecks(std::vector<bool>(20, true));
        EXPECT_NE(GetUpdateRect(Window(gallery::Rows), nullptr, FALSE), FALSE);
        gallery_.rows.SetChecks(std::vector<bool>(20));
    });
}

// While the user typed, the system may have hidden the mouse.
TEST_F(SystemHabits, TheMouseIsSeenOverAListThatTheProgramDropsDown) {
    Run([this] {
        SetCursor(nullptr);
        gallery_.kinds.DropDown();
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
        SendMessageW(Window(gallery::Kinds), CB_SHOWDROPDOWN, FALSE, 0);
    });
}

// What stands on a group box would else keep pieces of what has passed over it.
TEST_F(SystemHabits, ADialogThatChangesItsSizeDrawsAllAndMovesOnlyWhatMoves) {
    Run([this] {
        int draws = 0;
        int moves = 0;
        const Subclass label(Window(gallery::Hint), [&](UINT message, WPARAM, LPARAM) {
            draws += message == WM_PAINT ? 1 : 0;
            moves += message == WM_WINDOWPOSCHANGING ? 1 : 0;
            return std::optional<LRESULT>();
        });
        UpdateWindow(Window(gallery::Hint));
        draws = 0;
        user_.Resize({10, 10});
        EXPECT_GE(draws, 1);
        EXPECT_EQ(moves, 0);
    });
}

bool PressF1(HWND window, LPARAM state = 1) {
    MSG key{};
    key.hwnd = window;
    key.message = WM_KEYDOWN;
    key.wParam = VK_F1;
    key.lParam = state;
    return CallMsgFilterW(&key, MSGF_DIALOGBOX) != FALSE;
}

// A key that is held down comes again and again.
TEST_F(SystemHabits, F1OpensOnePageHoweverLongItIsHeld) {
    int shown = 0;
    world_->Screen().SetGuideHandler([&shown](const ui::Dialog&) { ++shown; });
    Run([&] {
        const HWND edit = Window(gallery::Name);
        EXPECT_TRUE(PressF1(edit));
        EXPECT_EQ(shown, 1);
        EXPECT_TRUE(PressF1(edit, LPARAM{1} << 30 | 1));
        EXPECT_EQ(shown, 1);
        EXPECT_TRUE(PressF1(edit));
        EXPECT_EQ(shown, 2);
    });
}

TEST_F(SystemHabits, KeysAreShortcutsOnlyWhileTheDialogIsInUse) {
    int shown = 0;
    world_->Screen().SetGuideHandler([&shown](const ui::Dialog&) { ++shown; });
    gallery_.onInit = [this] { EXPECT_FALSE(PressF1(WindowOf(gallery_))); };
    Run([this] {
        EXPECT_TRUE(PressF1(WindowOf(gallery_)));
        gallery_.EndDialog(ui::IdOk);
        EXPECT_FALSE(PressF1(WindowOf(gallery_)));
    });
    EXPECT_EQ(shown, 1);
}

TEST_F(SystemHabits, AKeyWhoseShortcutFailsIsNotHeardByTheControlAsWell) {
    world_->Screen().SetGuideHandler([](const ui::Dialog&) { throw std::out_of_range("guide"); });
    EXPECT_THROW(Run([this] { EXPECT_TRUE(PressF1(WindowOf(gallery_))); }), std::out_of_range);
}

TEST_F(SystemHabits, NothingReachesADialogThatHasEnded) {
    gallery_.onOk = [this] {
        gallery_.EndDialog(7);
        gallery_.EndDialog(8);
        SendMessageW(Window(gallery::Apply), BM_CLICK, 0, 0);
    };
    EXPECT_EQ(Run([this] { user_.Click(ui::IdOk); }), 7);
    EXPECT_EQ(gallery_.TakeHeard(), Heard{L"OK"});
}

TEST_F(SystemHabits, AListOfOneRowMayBecomeEmptyAndOneThatIsFilledAnewForgets) {
    Run([this] {
        const HWND list = Window(gallery::Rows);
        gallery_.FillRows(1);
        gallery_.FillRows(0);
        EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 0);
        gallery_.FillRows(5);
        SetState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        gallery_.FillRows(5);
        EXPECT_EQ(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0), 0);
        EXPECT_EQ(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), -1);
    });
}

// A box of the system is no form of ours, and neither are its keys.
TEST_F(SystemHabits, KeysInAMessageBoxAreTheBoxesOwn) {
    int shown = 0;
    world_->Screen().SetGuideHandler([&shown](const ui::Dialog&) { ++shown; });
    Run([&] {
        const OpenedWindows opened([](HWND box) {
            MSG key{};
            key.hwnd = GetDlgItem(box, IDOK);
            key.message = WM_KEYDOWN;
            key.wParam = VK_F1;
            EXPECT_EQ(CallMsgFilterW(&key, MSGF_DIALOGBOX), FALSE);
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
        MessageBoxW(WindowOf(gallery_), L"Text", L"Caption", MB_OK);
    });
    EXPECT_EQ(shown, 0);
}

std::set<UINT> letThrough;

BOOL WINAPI NoteMessage(HWND, UINT message, DWORD action, CHANGEFILTERSTRUCT*) {
    if (action == MSGFLT_ALLOW) letThrough.insert(message);
    return TRUE;
}

// Dragged from the desktop, whose program has fewer rights than ours.
TEST_F(SystemHabits, ADropFromAProgramWithFewerRightsIsLetThrough) {
    const ImportHook filter("ChangeWindowMessageFilterEx", NoteMessage);
    Run([this] { EXPECT_NE(GetWindowLongPtrW(WindowOf(gallery_), GWL_EXSTYLE) & WS_EX_ACCEPTFILES, 0); });
    EXPECT_EQ(letThrough, (std::set<UINT>{WM_DROPFILES, WM_COPYDATA, 0x0049}));
}

}  // namespace
}  // namespace tests
