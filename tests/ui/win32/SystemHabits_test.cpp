// What the system may do, and one of the systems that the tests run on does not: the windows have to be right
// all the same.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <optional>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/Input.h"
#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

class SystemHabits : public GalleryTest {
  protected:
    HWND Window(int id) { return GetDlgItem(WindowOf(gallery_), id); }
};

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
        gallery_.SetMenuBar({});
        EXPECT_EQ(shown(), nullptr);
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

// The guide opens by F1: to the system no control has help of its own.
TEST_F(SystemHabits, NoControlHasAHelpTopicOfTheSystems) {
    Run([this] {
        const HWND window = WindowOf(gallery_);
        EXPECT_EQ(GetWindowContextHelpId(window), 0U);
        for (const ui::Control* control : gallery_.Controls())
            EXPECT_EQ(GetWindowContextHelpId(Window(control->Id())), 0U) << control->Id();
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

// Moving it, if only to where it is, would end what an input method has begun.
TEST_F(SystemHabits, TheCaretIsLeftAloneWhereAllThatIsTypedIsTaken) {
    Run([this] {
        int moved = 0;
        const HWND name = Window(gallery::Name);
        const Subclass edit(name, [&moved](UINT message, WPARAM, LPARAM) {
            moved += message == EM_SETSEL ? 1 : 0;
            return std::optional<LRESULT>();
        });
        input::Type(name, L'a');
        EXPECT_EQ(gallery_.name.Text(), L"a");
        EXPECT_EQ(moved, 0);
    });
}

// By the numbers that stand for the whole text.
TEST_F(SystemHabits, WhatTheProgramPutsIntoAnEmptiedEditIsSelected) {
    Run([this] {
        std::vector<std::pair<WPARAM, LPARAM>> selected;
        const HWND name = Window(gallery::Name);
        input::Focus(WindowOf(gallery_), name);
        const Subclass edit(name, [&selected](UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == EM_SETSEL) selected.emplace_back(wParam, lParam);
            return std::optional<LRESULT>();
        });
        gallery_.name.SetText(L"400");
        EXPECT_EQ(selected, (std::vector<std::pair<WPARAM, LPARAM>>{{0, -1}}));
    });
}

TEST_F(SystemHabits, AListWithTheFocusKeepsItWhateverTheProgramChanges) {
    Run([this] {
        user_.ClickRow(gallery::Rows, 2);
        gallery_.TakeHeard();
        gallery_.save.Enable(false);
        gallery_.tick.Show(false);
        gallery_.rows.SelectOnly(3);
        EXPECT_EQ(gallery_.TakeHeard(), Heard());
    });
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

TEST_F(SystemHabits, WhatAModelessDialogsHandlerThrowsMeetsTheNextThatOpens) {
    Gallery first(world_->Screen());
    first.onHear = [](const std::wstring&) { throw std::out_of_range("handler"); };
    first.OpenModeless();
    SendMessageW(GetDlgItem(WindowOf(first), gallery::Apply), BM_CLICK, 0, 0);
    EXPECT_TRUE(first.HasEnded());
    Gallery second(world_->Screen());
    EXPECT_THROW(second.OpenModeless(), std::out_of_range);
    second.OpenModeless();
    EXPECT_NE(IsWindow(WindowOf(second)), FALSE);
}

TEST_F(SystemHabits, ADialogBelongsToItsOwnerWhateverElseIsOpen) {
    Gallery first(world_->Screen());
    Gallery second(world_->Screen());
    Gallery above(world_->Screen(), &second);
    first.OpenModeless();
    second.OpenModeless();
    above.OpenModeless();
    EXPECT_EQ(GetWindow(WindowOf(above), GW_OWNER), WindowOf(second));
    EXPECT_EQ(GetWindow(WindowOf(second), GW_OWNER), nullptr);
}

// Whatever else buttons notify of may look alike.
TEST_F(SystemHabits, OnlyADisabledButtonPaintsItsPictureItself) {
    Run([this] {
        const auto answer = [this](UINT code, DWORD stage) {
            NMCUSTOMDRAW drawing{};
            drawing.hdr = {Window(gallery::Save), gallery::Save, code};
            drawing.dwDrawStage = stage;
            const auto parameter = reinterpret_cast<LPARAM>(&drawing);
            return SendMessageW(WindowOf(gallery_), WM_NOTIFY, gallery::Save, parameter);
        };
        constexpr auto Drawing = static_cast<UINT>(NM_CUSTOMDRAW);
        EXPECT_EQ(answer(Drawing, CDDS_PREPAINT), CDRF_DODEFAULT);
        gallery_.save.Enable(false);
        EXPECT_EQ(answer(Drawing, CDDS_PREPAINT), CDRF_NOTIFYPOSTPAINT);
        EXPECT_EQ(answer(Drawing, CDDS_PREERASE), CDRF_DODEFAULT);
        EXPECT_EQ(answer(static_cast<UINT>(BCN_HOTITEMCHANGE), CDDS_PREPAINT), 0);
    });
}

TEST_F(SystemHabits, ArrowsStepOnlyWhenTheySaySo) {
    Run([this] {
        gallery_.digits.SetText(L"7");
        NMUPDOWN step{};
        step.iDelta = 5;
        const auto tell = [&](UINT code) {
            step.hdr = {Window(gallery::Arrows), gallery::Arrows, code};
            SendMessageW(WindowOf(gallery_), WM_NOTIFY, gallery::Arrows, reinterpret_cast<LPARAM>(&step));
        };
        tell(static_cast<UINT>(NM_RELEASEDCAPTURE));
        EXPECT_EQ(gallery_.digits.Text(), L"7");
        tell(static_cast<UINT>(UDN_DELTAPOS));
        EXPECT_EQ(gallery_.digits.Text(), L"12");
    });
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
