// What list views may notify their dialog of, on one system or another, and what the dialog makes of it.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/support/win32/Subclass.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

using Selected = std::vector<size_t>;

class ListNotifications : public GalleryTest {
  protected:
    HWND List() const { return GetDlgItem(WindowOf(gallery_), gallery::Rows); }

    template <class Notification>
    LRESULT Tell(HWND sender, UINT code, Notification& notification) const {
        notification.hdr = {sender, gallery::Rows, code};
        return SendMessageW(WindowOf(gallery_), WM_NOTIFY, gallery::Rows, reinterpret_cast<LPARAM>(&notification));
    }
    void TellOfRow(int row, UINT before, UINT now) const {
        NMLISTVIEW change{};
        change.iItem = row;
        change.uOldState = before;
        change.uNewState = now;
        EXPECT_EQ(Tell(List(), static_cast<UINT>(LVN_ITEMCHANGED), change), 0);
    }
    void TellOfRange(int from, int to, UINT before, UINT now) const {
        NMLVODSTATECHANGE change{};
        change.iFrom = from;
        change.iTo = to;
        change.uOldState = before;
        change.uNewState = now;
        Tell(List(), static_cast<UINT>(LVN_ODSTATECHANGED), change);
    }
    void TellOfHeader(int column, HDITEMW* item) const {
        NMHEADERW change{};
        change.iItem = column;
        change.pitem = item;
        const auto header = reinterpret_cast<HWND>(SendMessageW(List(), LVM_GETHEADER, 0, 0));
        Tell(header, static_cast<UINT>(HDN_ITEMCHANGEDW), change);
    }
    LVITEMW AskedFor(UINT parts, int row, int column) const {
        NMLVDISPINFOW question{};
        question.item.mask = parts;
        question.item.iItem = row;
        question.item.iSubItem = column;
        question.item.state = LVIS_FOCUSED;
        EXPECT_EQ(Tell(List(), static_cast<UINT>(LVN_GETDISPINFOW), question), 0);
        return question.item;
    }
    LRESULT Found(const wchar_t* beginning, int start, UINT how = LVFI_STRING) const {
        NMLVFINDITEMW question{};
        question.lvfi.flags = how;
        question.lvfi.psz = beginning;
        question.iStart = start;
        return Tell(List(), static_cast<UINT>(LVN_ODFINDITEMW), question);
    }
};

TEST_F(ListNotifications, OfARowSelectIt) {
    Run([this] {
        TellOfRow(4, 0, LVIS_SELECTED);
        EXPECT_EQ(gallery_.rows.SelectedRows(), Selected{4});
        TellOfRow(0, LVIS_SELECTED, LVIS_SELECTED);  // it was not told before
        EXPECT_EQ(gallery_.rows.SelectedRows(), (Selected{0, 4}));
        TellOfRow(4, LVIS_SELECTED, 0);
        TellOfRow(0, LVIS_FOCUSED, 0);
        TellOfRow(0, 0, LVIS_FOCUSED);
        EXPECT_EQ(gallery_.rows.SelectedRows(), Selected{0});
        gallery_.FillRows(20);
    });
}

TEST_F(ListNotifications, OfAllRowsAtOnceSelectThemAll) {
    constexpr int All = -1;
    Run([this] {
        for (const size_t count : {20U, 1U}) {
            gallery_.FillRows(count);
            TellOfRow(All, 0, LVIS_SELECTED);
            EXPECT_TRUE(gallery_.rows.AreAllSelected());
            TellOfRow(All, LVIS_SELECTED, 0);
            EXPECT_EQ(gallery_.rows.SelectedRows(), Selected{});
        }
        gallery_.FillRows(0);
        TellOfRow(All, LVIS_SELECTED, 0);
        EXPECT_EQ(gallery_.rows.SelectedRows(), Selected{});
        gallery_.FillRows(20);
    });
}

TEST_F(ListNotifications, OfTheFocusMarkOneRow) {
    Run([this] {
        gallery_.rows.FocusRow(7);
        TellOfRow(0, 0, LVIS_FOCUSED);
        EXPECT_EQ(gallery_.rows.FocusedRow(), size_t{0});
        TellOfRow(-1, 0, LVIS_FOCUSED);
        TellOfRow(5, LVIS_FOCUSED, 0);
        TellOfRow(6, 0, LVIS_SELECTED);
        EXPECT_EQ(gallery_.rows.FocusedRow(), size_t{0});
        TellOfRow(0, LVIS_FOCUSED, 0);
        EXPECT_EQ(gallery_.rows.FocusedRow(), std::nullopt);
        TellOfRow(3, 0, LVIS_FOCUSED);
        TellOfRow(-1, LVIS_FOCUSED, 0);
        EXPECT_EQ(gallery_.rows.FocusedRow(), std::nullopt);
        gallery_.FillRows(20);
    });
}

TEST_F(ListNotifications, OfARangeSelectItFromTheFirstRowToTheLast) {
    Run([this] {
        TellOfRange(0, 2, 0, LVIS_SELECTED);
        TellOfRange(5, 6, LVIS_SELECTED, LVIS_SELECTED);
        TellOfRange(8, 9, 0, LVIS_FOCUSED);
        TellOfRange(-1, 4, 0, LVIS_SELECTED);
        EXPECT_EQ(gallery_.rows.SelectedRows(), (Selected{0, 1, 2}));
        TellOfRange(1, 2, LVIS_SELECTED, 0);
        EXPECT_EQ(gallery_.rows.SelectedRows(), Selected{0});
        gallery_.FillRows(20);
    });
}

// A list that has not yet heard of its new rows or columns may ask for old ones.
TEST_F(ListNotifications, ThatAskForWhatIsNoLongerThereStayWithoutAnAnswer) {
    Run([this] {
        EXPECT_EQ(AskedFor(LVIF_TEXT, 20, 0).pszText, nullptr);
        EXPECT_EQ(AskedFor(LVIF_TEXT, 0, 3).pszText, nullptr);
        EXPECT_EQ(AskedFor(LVIF_STATE, 20, 0).state, UINT{LVIS_FOCUSED});
    });
}

// The list may look at several before it asks for more.
TEST_F(ListNotifications, ThatAskForTextsGetThemToKeepForAWhile) {
    Run([this] {
        const std::vector<LVITEMW> cells{AskedFor(LVIF_TEXT, 19, 0), AskedFor(LVIF_TEXT, 19, 1),
                                         AskedFor(LVIF_TEXT | LVIF_STATE, 0, 2)};
        EXPECT_STREQ(cells[0].pszText, L"row 19");
        EXPECT_STREQ(cells[1].pszText, L"first 19");
        EXPECT_STREQ(cells[2].pszText, L"second 0");
        for (const LVITEMW& cell : cells) EXPECT_EQ(cell.state, UINT{LVIS_FOCUSED});
    });
}

TEST_F(ListNotifications, ThatAskForTheStateOfARowGetItsCheckMark) {
    Run([this] {
        gallery_.rows.UserToggledCheck(2);
        for (const int row : {1, 2}) {
            const LVITEMW cell = AskedFor(LVIF_STATE, row, 0);
            EXPECT_EQ(cell.pszText, nullptr);
            EXPECT_EQ(cell.state, LVIS_FOCUSED | INDEXTOSTATEIMAGEMASK(static_cast<UINT>(row)));
            EXPECT_EQ(cell.stateMask, UINT{LVIS_STATEIMAGEMASK});
            EXPECT_EQ(AskedFor(LVIF_STATE, row, 1).state, UINT{LVIS_FOCUSED});
            EXPECT_EQ(AskedFor(LVIF_TEXT, row, 0).state, UINT{LVIS_FOCUSED});
        }
    });
}

TEST_F(ListNotifications, ThatLookForARowGoOnFromWhereTheyAreAndAround) {
    Run([this] {
        EXPECT_EQ(Found(L"row", -1), 0);
        EXPECT_EQ(Found(L"ROW 1", 3), 10);
        EXPECT_EQ(Found(L"row 1", 19, LVFI_PARTIAL), 19);
        EXPECT_EQ(Found(L"row 7", 19), 7);
        EXPECT_EQ(Found(L"row 77", 0), -1);
        EXPECT_EQ(Found(nullptr, 0, LVFI_PARAM), -1);
        gallery_.FillRows(0);
        EXPECT_EQ(Found(L"row", -1), -1);
        gallery_.FillRows(20);
    });
}

TEST_F(ListNotifications, OfAHeaderCountWhereTheyTellAWidth) {
    Run([this] {
        HDITEMW item{};
        item.cxy = 77;
        const auto widths = [this] {
            const std::vector<ui::Column>& columns = gallery_.rows.Columns();
            return std::vector<int>{columns[0].width, columns[1].width, columns[2].width};
        };
        const std::vector<int> before = widths();
        TellOfHeader(2, nullptr);
        item.mask = HDI_TEXT;
        TellOfHeader(2, &item);
        item.mask = HDI_WIDTH;
        TellOfHeader(3, &item);
        EXPECT_EQ(widths(), before);
        TellOfHeader(2, &item);
        EXPECT_EQ(widths(), (std::vector<int>{before[0], before[1], 77}));
        gallery_.rows.SetColumnWidths(before);
    });
}

// Some systems visit each row of a list that is told to change all.
TEST_F(ListNotifications, AreCausedByOneChangeWhereMostRowsAreSelectedAndElseByOneForEach) {
    Run([this] {
        for (const int count : {4, 5, 6}) {
            gallery_.FillRows(10);
            int changes = 0;
            LVITEMW item{};
            item.state = item.stateMask = LVIS_SELECTED;
            for (WPARAM row = 0; row < static_cast<WPARAM>(count); ++row)
                SendMessageW(List(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
            EXPECT_EQ(gallery_.rows.SelectedRows().size(), static_cast<size_t>(count));
            const Subclass list(List(), [&changes](UINT message, WPARAM, LPARAM lParam) {
                if (message == LVM_SETITEMSTATE)
                    changes += reinterpret_cast<const LVITEMW*>(lParam)->stateMask == LVIS_SELECTED ? 1 : 0;
                return std::optional<LRESULT>();
            });
            gallery_.rows.SelectOnly(9);
            EXPECT_EQ(changes, count > 5 ? 2 : count + 1);  // the last selects
            EXPECT_EQ(SendMessageW(List(), LVM_GETSELECTEDCOUNT, 0, 0), 1);
        }
        gallery_.FillRows(20);
    });
}

TEST_F(ListNotifications, AreNotNeededForTheRowThatIsSelectedWhenTheListOpens) {
    gallery_.onInit = [this] {
        gallery_.FillRows(1);
        gallery_.rows.SelectOnly(0);
    };
    Run([this] {
        EXPECT_EQ(SendMessageW(List(), LVM_GETITEMSTATE, 0, LVIS_SELECTED | LVIS_FOCUSED),
                  LVIS_SELECTED | LVIS_FOCUSED);
    });
}

}  // namespace
}  // namespace tests
