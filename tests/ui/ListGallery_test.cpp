// Lists in report view: what clicks and keys select, check and tell.
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

using namespace gallery;
using Indexes = std::vector<size_t>;

class ListGalleryTest : public GalleryTest {
  protected:
    ui::ListView& rows_ = gallery_.rows;
};

TEST_F(ListGalleryTest, ClicksSelect) {
    Run([this] {
        user_.ClickRow(Rows, 2);
        EXPECT_EQ(Heard{L"click 2,0"}, gallery_.TakeHeard());
        EXPECT_EQ(Indexes{2}, rows_.SelectedRows());
        EXPECT_EQ(size_t{2}, rows_.FocusedRow());
        EXPECT_TRUE(rows_.HasFocus());
        user_.ClickRow(Rows, 5, Held::Shift);
        EXPECT_EQ((Indexes{2, 3, 4, 5}), rows_.SelectedRows());
        user_.ClickRow(Rows, 3, Held::Control);
        EXPECT_EQ((Indexes{2, 4, 5}), rows_.SelectedRows());
        user_.ClickRow(Rows, 7, Held::Control);
        EXPECT_EQ((Indexes{2, 4, 5, 7}), rows_.SelectedRows());
        user_.ClickRow(Rows, 1);
        EXPECT_EQ(Indexes{1}, rows_.SelectedRows());
        gallery_.TakeHeard();
        gallery_.FillRows(3);
        user_.ClickRow(Rows, 1);
        user_.ClickBelowRows(Rows);
        EXPECT_EQ((Heard{L"click 1,0", L"click nowhere"}), gallery_.TakeHeard());
        EXPECT_EQ(Indexes{}, rows_.SelectedRows());
    });
}

TEST_F(ListGalleryTest, TheHandlerFindsTheRowSelected) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what == L"click 4,0" && rows_.FirstSelected() == size_t{4}) gallery_.Hear(L"found");
    };
    Run([this] {
        user_.ClickRow(Rows, 4);
        EXPECT_EQ((Heard{L"click 4,0", L"found"}), gallery_.TakeHeard());
    });
}

TEST_F(ListGalleryTest, KeysSelect) {
    Run([this] {
        user_.ClickRow(Rows, 2);
        user_.Press(Key::Down);
        EXPECT_EQ(Indexes{3}, rows_.SelectedRows());
        user_.Press(Key::Down, Held::Shift);
        EXPECT_EQ((Indexes{3, 4}), rows_.SelectedRows());
        user_.Press(Key::End);
        EXPECT_EQ(Indexes{19}, rows_.SelectedRows());
        user_.Press(Key::Home);
        EXPECT_EQ(Indexes{0}, rows_.SelectedRows());
        user_.Press(Key::End, Held::Shift);
        EXPECT_EQ(20U, rows_.SelectedRows().size());
    });
}

TEST_F(ListGalleryTest, BoxAndSpaceCheck) {
    Run([this] {
        user_.ClickCheckBox(Rows, 3);
        EXPECT_TRUE(rows_.IsChecked(3));
        EXPECT_EQ(Heard{L"click 3,0"}, gallery_.TakeHeard());
        EXPECT_TRUE(rows_.HasFocus());
        user_.ClickCheckBox(Rows, 3);
        EXPECT_FALSE(rows_.IsChecked(3));
        user_.ClickRow(Rows, 1);
        user_.Press(Key::Space);
        EXPECT_TRUE(rows_.IsChecked(1));
        std::vector<bool> checks(20);
        checks[0] = true;
        rows_.SetChecks(checks);
        user_.Click(Apply);
        EXPECT_EQ(checks, rows_.Checks());
    });
}

TEST_F(ListGalleryTest, ADoubleClickOnABoxTurnsItTwiceAndIsNoDoubleClick) {
    Run([this] {
        user_.ClickCheckBox(Rows, 3);
        gallery_.TakeHeard();
        user_.DoubleClickCheckBox(Rows, 3);
        EXPECT_TRUE(rows_.IsChecked(3));
        EXPECT_EQ((Heard{L"click 3,0", L"click 3,0"}), gallery_.TakeHeard());
    });
}

TEST_F(ListGalleryTest, OtherClicksAreHeard) {
    Run([this] {
        user_.DoubleClickRow(Rows, 4);
        EXPECT_EQ((Heard{L"click 4,0", L"double click 4,0"}), gallery_.TakeHeard());
        user_.RightClickCell(Rows, 6, 2);
        EXPECT_EQ(Heard{L"right click 6,2"}, gallery_.TakeHeard());
        EXPECT_EQ(Indexes{6}, rows_.SelectedRows());
        user_.ClickHeader(Rows, 1);
        EXPECT_EQ(Heard{L"header 1"}, gallery_.TakeHeard());
        user_.Press(Key::Delete);
        EXPECT_EQ(Heard{L"key 46"}, gallery_.TakeHeard());
        rows_.SetSortArrow(1, ui::SortArrow::Up);
        rows_.SetSortArrow(2, ui::SortArrow::Down);
        rows_.SetColumnWidths({50, 60, 70});
        user_.ClickHeader(Rows, 2);
        EXPECT_EQ(70, rows_.Columns()[2].width);
    });
}

TEST_F(ListGalleryTest, ManyRowsAreSelectedAndFoundAgain) {
    Run([this] {
        constexpr size_t Many = 100'000;
        gallery_.FillRows(Many);
        rows_.SelectOnly(99'000);
        rows_.EnsureVisible(99'000);
        user_.Click(Rows);
        EXPECT_EQ(Indexes{99'000}, rows_.SelectedRows());
        EXPECT_EQ((std::vector<std::wstring>{L"row 99000", L"first 99000", L"second 99000"}), user_.Row(Rows, 99'000));
        rows_.SelectOnly(5);
        user_.Click(Rows);
        EXPECT_EQ(Indexes{5}, rows_.SelectedRows());
        gallery_.FillRows(2'000);
        user_.ClickRow(Rows, 1'999);
        user_.ClickRow(Rows, 10, Held::Shift);
        EXPECT_EQ(1'990U, rows_.SelectedRows().size());
        rows_.SelectOnly(7);
        user_.Click(Rows);
        EXPECT_EQ(Indexes{7}, rows_.SelectedRows());
        gallery_.FillRows(5);
        user_.Click(Rows);
        EXPECT_EQ(Indexes{}, rows_.SelectedRows());
        EXPECT_EQ(5U, user_.RowCount(Rows));
    });
}

TEST_F(ListGalleryTest, RowsMayChangeWhileTheyAreHeard) {
    gallery_.onHear = [this](const std::wstring& what) {
        if (what == L"key 46") gallery_.FillRows(rows_.RowCount() - rows_.SelectedRows().size());
        if (what.starts_with(L"double click")) gallery_.FillRows(1);
    };
    Run([this] {
        user_.ClickRow(Rows, 3);
        user_.ClickRow(Rows, 6, Held::Shift);
        user_.Press(Key::Delete);
        EXPECT_EQ(16U, user_.RowCount(Rows));
        user_.DoubleClickRow(Rows, 5);
        EXPECT_EQ(1U, user_.RowCount(Rows));
        EXPECT_EQ(Indexes{}, rows_.SelectedRows());
    });
}

TEST_F(ListGalleryTest, LeavingTheListIsHeard) {
    Run([this] {
        user_.ClickCheckBox(Rows, 0);
        gallery_.TakeHeard();
        user_.Click(Name);
        EXPECT_EQ(Heard{L"rows left"}, gallery_.TakeHeard());
        user_.Click(Rows);
        user_.Click(Apply);
        EXPECT_EQ((Heard{L"rows left", L"apply"}), gallery_.TakeHeard());
    });
}

TEST_F(ListGalleryTest, RowsThatChangePlacesKeepTheirMarks) {
    Run([this] {
        gallery_.FillRows(5);
        rows_.SetChecks({true, false, false, true, false});
        user_.ClickRow(Rows, 3);
        user_.ClickRow(Rows, 1, Held::Control);
        gallery_.TakeHeard();
        const std::vector<uint32_t> order{4, 3, 2, 1, 0};
        rows_.Reorder(order);
        EXPECT_EQ((std::vector{false, true, false, false, true}), rows_.Checks());
        EXPECT_EQ((Indexes{1, 3}), rows_.SelectedRows());
        EXPECT_EQ(size_t{3}, rows_.FocusedRow());
        EXPECT_EQ(Heard{}, gallery_.TakeHeard());
        user_.Press(Key::Down);  // the window's own marks moved, too
        EXPECT_EQ(Indexes{4}, rows_.SelectedRows());
        user_.ClickBelowRows(Rows);
        rows_.Reorder(order);
        EXPECT_EQ(Indexes{}, rows_.SelectedRows());
    });
}

}  // namespace
}  // namespace tests
