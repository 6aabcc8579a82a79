// How the real main window answers the system that is about to end the session, and what it has it show.
#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "settings/ConflictDlg.h"
#include "tests/app/MainWindow.h"
#include "tests/support/win32/ImportHook.h"
#include "tests/support/win32/Win32Robot.h"

namespace tests {
namespace {

// Reasons as the system hears of them; an empty one where it is to forget.
std::vector<std::pair<HWND, std::wstring>> told;

BOOL WINAPI NoteReason(HWND window, LPCWSTR reason) {
    told.emplace_back(window, reason);
    return TRUE;
}
BOOL WINAPI NoteEnd(HWND window) {
    told.emplace_back(window, L"");
    return TRUE;
}

class SessionMessages : public MainWindowTest {
  protected:
    using Told = std::vector<std::pair<HWND, std::wstring>>;

    SessionMessages() {
        SeedSmallConfiguration();
        told.clear();
    }
    void Work(const std::function<void(HWND window)>& script) {
        Run([&](app::CBrisgateDlg& dialog) { script(WindowOf(dialog)); });
    }
    static LRESULT MayEnd(HWND window, LPARAM how = 0) { return SendMessageW(window, WM_QUERYENDSESSION, 0, how); }

    static constexpr wchar_t reason[] = L"Some changes has not been saved.";
    const ImportHook create_{"ShutdownBlockReasonCreate", NoteReason};
    const ImportHook destroy_{"ShutdownBlockReasonDestroy", NoteEnd};
};

TEST_F(SessionMessages, WithoutChangesTheSessionMayEnd) {
    Work([this](HWND window) {
        for (const LPARAM how : {LPARAM{0}, static_cast<LPARAM>(ENDSESSION_LOGOFF), LPARAM{ENDSESSION_CLOSEAPP}})
            EXPECT_EQ(MayEnd(window, how), TRUE) << how;
        user_.PressCloseBox();
    });
    EXPECT_EQ(told, Told{});
}

TEST_F(SessionMessages, ChangesHoldItUpUntilTheyAreSaved) {
    Work([this](HWND window) {
        user_.ClickCheckBox(id::Rules, 0);
        for (const LPARAM how : {LPARAM{0}, static_cast<LPARAM>(ENDSESSION_LOGOFF), LPARAM{ENDSESSION_CLOSEAPP}}) {
            told.clear();
            EXPECT_EQ(MayEnd(window, how), FALSE) << how;
            EXPECT_EQ(told, (Told{{window, reason}}));
        }
        told.clear();
        user_.Click(id::Save);
        EXPECT_EQ(told, (Told{{window, L""}}));
        EXPECT_EQ(MayEnd(window), TRUE);
        user_.PressCloseBox();
    });
    EXPECT_EQ(told.size(), 1U) << "what is forgotten is forgotten once";
}

TEST_F(SessionMessages, ACriticalEndIsNotHeldUp) {
    Work([this](HWND window) {
        user_.ClickCheckBox(id::Rules, 0);
        EXPECT_EQ(MayEnd(window, ENDSESSION_CRITICAL), TRUE);
        EXPECT_EQ(MayEnd(window, static_cast<LPARAM>(ENDSESSION_CRITICAL | ENDSESSION_LOGOFF)), TRUE);
        EXPECT_EQ(told, Told{});
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

TEST_F(SessionMessages, TheReasonGoesWithTheWindow) {
    HWND main = nullptr;
    Work([this, &main](HWND window) {
        main = window;
        user_.ClickCheckBox(id::Rules, 0);
        EXPECT_EQ(MayEnd(window), FALSE);
        told.clear();
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
    EXPECT_EQ(told, (Told{{main, L""}}));
}

TEST_F(SessionMessages, AFormHoldsItUpAndLeavesNoReasonBehind) {
    Work([this](HWND window) {
        user_.Expect<settings::CConflictDlg>([this, window](settings::CConflictDlg& form) {
            EXPECT_EQ(MayEnd(window), FALSE);
            EXPECT_EQ(MayEnd(WindowOf(form)), TRUE);
            EXPECT_EQ(told, (Told{{window, reason}}));
            user_.Click(ui::IdCancel);
        });
        user_.Click(id::LogPath);
        told.clear();
        EXPECT_EQ(MayEnd(window), TRUE);
        EXPECT_EQ(told, (Told{{window, L""}}));
        user_.PressCloseBox();
    });
}

// One that is busy until it has opened.
class Beginning : public ui::Dialog {
  public:
    explicit Beginning(ui::Screen& screen) : Dialog(screen, nullptr, {.size = {100, 50}}, L"Beginning") {}
    const wchar_t* ReasonToStay() const override { return isReady_ ? nullptr : L"Not ready yet."; }

  protected:
    void OnInitDialog() override {
        EXPECT_EQ(SendMessageW(WindowOf(*this), WM_QUERYENDSESSION, 0, 0), FALSE);
        EXPECT_EQ(std::exchange(told, {}).size(), 1U);
        isReady_ = true;
        ReasonToStayChanged();
        EXPECT_EQ(told.size(), 1U);
        EndDialog(ui::IdOk);
    }

  private:
    bool isReady_ = false;
};

TEST_F(SessionMessages, AReasonThatGoesOnTheWayIsForgotten) {
    EXPECT_EQ(Beginning(world_->Screen()).DoModal(), ui::IdOk);
}

}  // namespace
}  // namespace tests
