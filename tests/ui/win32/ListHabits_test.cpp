// What lists do, or leave to the program, on one system or another.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/win32/Input.h"
#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

class ListHabits : public GalleryTest {
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
TEST_F(ListHabits, APlaceInAListMaySayMoreThanThePlace) {
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
TEST_F(ListHabits, SpaceAndDeleteActOnWhatTheListShows) {
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

// From the selection mark on the system selects when the user holds Shift.
TEST_F(ListHabits, ARowThatTheProgramSelectsIsWhereARangeBegins) {
    Run([this] {
        const auto mark = [this] { return SendMessageW(Window(gallery::Rows), LVM_GETSELECTIONMARK, 0, 0); };
        gallery_.rows.SelectOnly(3);
        EXPECT_EQ(mark(), 3);
        gallery_.FillRows(10);
        EXPECT_EQ(mark(), -1);
    });
}

// How the list of one system tells of what the user takes back with Shift held.
TEST_F(ListHabits, ARangeOfRowsIsTakenBack) {
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

TEST_F(ListHabits, ALetterThatNoRowBeginsWithFindsNone) {
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

TEST_F(ListHabits, ARightClickTurnsNoCheckMark) {
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

TEST_F(ListHabits, AListBoxThatIsFilledAnewStaysWhereTheUserHasScrolledIt) {
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
TEST_F(ListHabits, CheckMarksThatTheProgramChangesAreDrawn) {
    Run([this] {
        UpdateWindow(Window(gallery::Rows));
        gallery_.rows.SetChecks(std::vector<bool>(20, true));
        EXPECT_NE(GetUpdateRect(Window(gallery::Rows), nullptr, FALSE), FALSE);
        gallery_.rows.SetChecks(std::vector<bool>(20));
    });
}

TEST_F(ListHabits, AListOfOneRowMayBecomeEmptyAndOneThatIsFilledAnewForgets) {
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

}  // namespace
}  // namespace tests
