// The header of a list shows by which direction the user has sorted it.
#include "tests/certs/CertsTest.h"
#include "tests/support/win32/Pictures.h"
#include "tests/support/win32/Win32Robot.h"
#include "ui/win32/IconLoader.h"

#include <commctrl.h>

namespace tests {
namespace {

class SortPictures : public CertsTest {
  protected:
    struct Shown {
        int format;  // of what the header draws beside its title
        int image;
        bool operator==(const Shown&) const = default;
    };
    static constexpr Shown Nothing{0, I_IMAGENONE};
    static constexpr Shown Descending{HDF_IMAGE | HDF_BITMAP_ON_RIGHT, 0};
    static constexpr Shown Ascending{HDF_IMAGE | HDF_BITMAP_ON_RIGHT, 1};

    HWND Header(int list) const {
        const HWND window = GetDlgItem(WindowOf(user_.Top()), list);
        return reinterpret_cast<HWND>(SendMessageW(window, LVM_GETHEADER, 0, 0));
    }
    Shown In(int list) const {
        constexpr int AllPictures = HDF_IMAGE | HDF_BITMAP_ON_RIGHT | HDF_BITMAP | HDF_SORTUP | HDF_SORTDOWN;
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_IMAGE;
        SendMessageW(Header(list), HDM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        EXPECT_NE(item.fmt & HDF_STRING, 0);
        return {item.fmt & AllPictures, item.iImage};
    }
    HIMAGELIST Pictures(int list) const {
        return reinterpret_cast<HIMAGELIST>(SendMessageW(Header(list), HDM_GETIMAGELIST, 0, 0));
    }
    // The list has the two arrows in this size.
    void CheckPictures(int list, int size) const {
        const HIMAGELIST pictures = Pictures(list);
        ASSERT_NE(pictures, nullptr);
        EXPECT_EQ(ImageList_GetImageCount(pictures), 2);
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(pictures, &width, &height);
        EXPECT_EQ(width, size);
        EXPECT_EQ(height, size);
        for (const auto& [image, icon] :
             {std::pair{0, ui::Icon::SortDescending}, std::pair{1, ui::Icon::SortAscending}}) {
            const ui::win32::IconHandle shown(ImageList_GetIcon(pictures, image, ILD_NORMAL));
            EXPECT_TRUE(PointsOf(shown.get()) == DrawingOf(icon, size)) << image;
        }
    }
};

TEST_F(SortPictures, ThereIsNoneUntilTheHeaderIsClickedAndThenItSaysTheDirection) {
    PickRecipients({L"CN=2", L"CN=1"}, [this](certs::CPreEncryptDlg&) {
        AddLocal({L"CN=B", L"CN=A"});
        EXPECT_EQ(In(pickid::Candidates), Nothing);
        EXPECT_EQ(In(pickid::Chosen), Nothing);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(In(pickid::Candidates), Ascending);
        EXPECT_EQ(In(pickid::Chosen), Nothing);
        user_.ClickHeader(pickid::Candidates, 0);
        EXPECT_EQ(In(pickid::Candidates), Descending);
        user_.ClickHeader(pickid::Chosen, 0);
        EXPECT_EQ(In(pickid::Chosen), Ascending);
        EXPECT_EQ(In(pickid::Candidates), Descending);
        Leave();
    });
}

TEST_F(SortPictures, AreArrowsInASizeForTheResolutionOfTheMonitor) {
    PickRecipients({}, [this](certs::CPreEncryptDlg& picker) {
        const HWND window = WindowOf(picker);
        user_.ClickHeader(pickid::Candidates, 0);
        CheckPictures(pickid::Candidates, 16);
        CheckPictures(pickid::Chosen, 16);
        for (const auto& [dpi, size] :
             {std::pair{120, 20}, std::pair{144, 24}, std::pair{168, 24}, std::pair{192, 32}, std::pair{96, 16}}) {
            SCOPED_TRACE(dpi);
            RECT place{};
            GetWindowRect(window, &place);
            SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
            CheckPictures(pickid::Candidates, size);
            CheckPictures(pickid::Chosen, size);
            EXPECT_EQ(In(pickid::Candidates), Ascending);
        }
        Leave();
    });
}

}  // namespace
}  // namespace tests
