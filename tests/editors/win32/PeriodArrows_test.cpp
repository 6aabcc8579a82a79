// The arrows beside the period of revocation lists, as the system's own control.
#include <gtest/gtest.h>

#include "tests/editors/ProfileEditor.h"
#include "tests/support/win32/Win32Robot.h"

#include <commctrl.h>

namespace tests {
namespace {

using namespace profileid;

class PeriodOnWindows : public ProfileEditorTest {
  protected:
    static LRESULT Position(HWND arrows) { return SendMessageW(arrows, UDM_GETPOS32, 0, 0); }
    // The user puts this into the edit and presses the arrows.
    void Check(HWND arrows, const std::wstring& typed, int steps, const std::wstring& expected) {
        SCOPED_TRACE(testing::PrintToString(typed));
        user_.Type(Period, typed);
        EXPECT_EQ(user_.Text(Period), typed);
        user_.Step(PeriodArrows, steps);
        EXPECT_EQ(user_.Text(Period), expected);
        EXPECT_EQ(std::to_wstring(Position(arrows)), expected);
    }
};

TEST_F(PeriodOnWindows, CountFromWhatTheEditSaysWithinAYear) {
    Edit(Alpha(), [this](ui::Dialog& dialog) {
        const HWND arrows = GetDlgItem(WindowOf(dialog), PeriodArrows);
        int lowest = -1;
        int highest = -1;
        SendMessageW(arrows, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lowest), reinterpret_cast<LPARAM>(&highest));
        EXPECT_EQ(lowest, 0);
        EXPECT_EQ(highest, 8760);
        EXPECT_EQ(Position(arrows), 24);
        Check(arrows, L"8760", 1, L"8760");
        Check(arrows, L"8760", -1, L"8759");
        Check(arrows, L"8758", 3, L"8760");
        Check(arrows, L"0", -1, L"0");
        Check(arrows, L"0", 1, L"1");
        Check(arrows, L"2", -3, L"0");
        Check(arrows, L"100", 2, L"102");
        user_.Choose(profileid::CsProfiles, 1);
        EXPECT_EQ(Position(arrows), 8760);
        user_.Step(PeriodArrows, -2);
        EXPECT_EQ(user_.Text(Period), L"8758");
        Leave();
    });
}

}  // namespace
}  // namespace tests
