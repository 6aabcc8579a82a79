// What the system tells screen readers of a list.
#include <windows.h>

#include <vector>

#include "tests/support/win32/Input.h"
#include "tests/support/win32/Win32Robot.h"
#include "tests/support/win32/WindowsHabits.h"
#include "tests/ui/Gallery.h"

namespace tests {
namespace {

struct ChangedRow {
    HWND list;
    LONG object;
    LONG row;  // from 1
    bool operator==(const ChangedRow&) const = default;
};
std::vector<ChangedRow> changedRows;

class ScreenReaders : public GalleryTest {
  protected:
    ScreenReaders()
        : hook_(SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_STATECHANGE, nullptr, Note,
                                GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT)) {
        changedRows.clear();
    }
    ~ScreenReaders() override { UnhookWinEvent(hook_); }

    HWND Rows() const { return GetDlgItem(WindowOf(gallery_), gallery::Rows); }
    std::vector<ChangedRow> Changed() const {
        input::Settle();
        std::vector<ChangedRow> ofTheList;
        for (const ChangedRow& row : changedRows)
            if (row.list == Rows()) ofTheList.push_back(row);
        changedRows.clear();
        return ofTheList;
    }

  private:
    static void CALLBACK Note(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
        changedRows.push_back({window, object, child});
    }
    const HWINEVENTHOOK hook_;
};

TEST_F(ScreenReaders, HearOfTheRowWhoseCheckMarkTheUserTurns) {
    Run([this] {
        user_.ClickCheckBox(gallery::Rows, 2);
        EXPECT_EQ(Changed(), (std::vector<ChangedRow>{{Rows(), OBJID_CLIENT, 3}}));
        user_.ClickRow(gallery::Rows, 4);
        EXPECT_EQ(Changed(), std::vector<ChangedRow>{});
        user_.Press(Key::Space);
        EXPECT_EQ(Changed(), (std::vector<ChangedRow>{{Rows(), OBJID_CLIENT, 5}}));
        EXPECT_TRUE(gallery_.rows.IsChecked(4));
    });
}

// The first row is marked when the user comes to the list by the keyboard: Space turns what is marked.
TEST_F(ScreenReaders, SpaceTurnsTheRowThatGotTheMarkWithTheFocus) {
    const WindowsHabits habits(96);
    Run([this] {
        user_.Click(gallery::Save);
        user_.Press(Key::Tab);
        ASSERT_TRUE(gallery_.rows.HasFocus());
        EXPECT_EQ(gallery_.rows.FocusedRow(), 0U);
        EXPECT_EQ(gallery_.rows.FirstSelected(), std::nullopt);
        user_.Press(Key::Space);
        EXPECT_TRUE(gallery_.rows.IsChecked(0));
        EXPECT_EQ(Changed(), (std::vector<ChangedRow>{{Rows(), OBJID_CLIENT, 1}}));
    });
}

TEST_F(ScreenReaders, SpaceTurnsTheRowThatGotTheMarkWhenTheProgramGaveTheFocus) {
    const WindowsHabits habits(96);
    Run([this] {
        user_.Click(gallery::Save);
        gallery_.rows.SetFocus();
        EXPECT_EQ(gallery_.rows.FocusedRow(), 0U);
        user_.Press(Key::Space);
        EXPECT_TRUE(gallery_.rows.IsChecked(0));
        EXPECT_EQ(Changed(), (std::vector<ChangedRow>{{Rows(), OBJID_CLIENT, 1}}));
    });
}

}  // namespace
}  // namespace tests
