// A list whose cells cannot be had for lack of memory stays empty where it is asked for them: no box, which
// would come up with each painting, and no end of the dialog.
#include "tests/support/win32/Win32Robot.h"

#include <commctrl.h>

#include <array>
#include <new>

#include "tests/ui/Gallery.h"

namespace tests {
namespace {

TEST_F(GalleryTest, CellsWithoutMemoryStayEmpty) {
    bool failing = false;
    int failures = 0;
    Run([&] {
        gallery_.FillRows(3);
        gallery_.rows.SetCells([&](size_t, size_t) -> std::wstring {
            if (!failing) return L"cell";
            ++failures;
            throw std::bad_alloc();
        });
        const HWND list = GetDlgItem(WindowOf(gallery_), gallery::Rows);
        ASSERT_NE(list, nullptr);
        ASSERT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 3);
        std::array<wchar_t, 20> text{};
        LVITEMW cell{};
        cell.pszText = text.data();
        cell.cchTextMax = static_cast<int>(text.size());
        failing = true;
        SendMessageW(list, LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&cell));
        failing = false;
        EXPECT_EQ(failures, 1);
        EXPECT_FALSE(gallery_.HasEnded());
    });
}

}  // namespace
}  // namespace tests
