// The desktop without windows lays out, focuses, resizes and ends dialogs as a real one does.
#include "ui/memory/MemoryScreen.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/MemoryParts.h"
#include "tests/support/ScriptedUser.h"
#include "ui/Controls.h"
#include "ui/ListView.h"

namespace {

using ui::memory::MemoryScreen;
using ui::memory::MemoryWindow;

class SampleDialog : public ui::Dialog {
  public:
    explicit SampleDialog(ui::Screen& screen, Dialog* owner = nullptr)
        : Dialog(screen, owner, {.size = {100, 80}, .resizable = true, .minimizeBox = true}) {}

    ui::Size MinimumTrackSize() const override { return smallest; }
    using Dialog::EndDialog;
    using Dialog::NormalRect;
    using Dialog::SetMenuBar;
    using Dialog::SetNormalRect;

    std::function<void()> onInit = [] {};
    std::function<void()> onOk = [this] { EndDialog(ui::IdOk); };
    std::vector<ui::Size> sizes;
    ui::Size smallest{120, 90};

    ui::Label label{*this, 10, {7, 7, 30, 8}, L"Label"};
    ui::Edit hidden{*this, 11, {7, 20, 30, 8}};
    ui::Edit disabled{*this, 12, {7, 20, 30, 8}};
    ui::Edit first{*this, 13, {7, 20, 31, 9, ui::GrowX}};
    ui::Edit second{*this, 14, {7, 30, 30, 8, ui::MoveBoth}};
    ui::ListView list{*this, 15, {7, 40, 80, 40}};
    ui::Button ok{*this, ui::IdOk, {7, 70, 30, 8}, L"OK"};

  private:
    void OnInitDialog() override {
        hidden.Show(false);
        disabled.Enable(false);
        onInit();
    }
    void OnOK() override { onOk(); }
    void OnResized() override { sizes.push_back(ClientSize()); }
};

class MemoryScreenTest : public testing::Test {
  protected:
    // Runs the dialog; the user does this with it, and presses OK when the dialog is still open.
    int Run(const std::function<void()>& script) {
        user.onDialog = [this, script](ui::Dialog&) {
            script();
            if (!dialog.HasEnded()) dialog.EndDialog(ui::IdOk);
        };
        return dialog.DoModal();
    }
    MemoryWindow& Window() { return *screen.WindowOf(dialog); }

    platform::memory::MemoryScreenMetrics metrics;
    tests::ScriptedUser user;
    MemoryScreen screen{metrics, user};
    SampleDialog dialog{screen};
};

TEST_F(MemoryScreenTest, LaysOutInDialogUnits) {
    const int result = Run([this] {
        EXPECT_EQ((ui::Size{150, 130}), dialog.ClientSize());
        EXPECT_EQ((ui::Rect{11, 33, 47, 15}), dialog.first.Bounds());  // 10.5, 32.5, 46.5 and 14.625 rounded
        EXPECT_EQ((ui::Size{166, 169}), Window().OuterSize());
        EXPECT_EQ((ui::Rect{100, 100, 166, 169}), dialog.NormalRect());
        dialog.SetMenuBar({{L"File", {}}});
        EXPECT_EQ((ui::Size{166, 189}), Window().OuterSize());
    });
    EXPECT_EQ(ui::IdOk, result);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(nullptr, screen.WindowOf(dialog));
    EXPECT_EQ(ui::Rect{}, dialog.NormalRect());
}

TEST_F(MemoryScreenTest, ScalesWithTheMonitor) {
    screen.SetDpi(192);
    Run([this] {
        EXPECT_EQ(192U, dialog.Dpi());
        EXPECT_EQ((ui::Size{300, 260}), dialog.ClientSize());
        EXPECT_EQ((ui::Rect{21, 65, 93, 29}), dialog.first.Bounds());
        EXPECT_EQ((ui::Size{332, 338}), Window().OuterSize());
        screen.SetDpi(96);
        EXPECT_EQ(96U, dialog.Dpi());
        EXPECT_EQ((ui::Size{150, 130}), dialog.ClientSize());
        EXPECT_EQ((ui::Rect{11, 33, 47, 15}), dialog.first.Bounds());  // as if it had opened here
    });
}

TEST_F(MemoryScreenTest, ComesBackFromAnotherMonitorAsTheUserMadeIt) {
    Run([this] {
        dialog.list.SetColumns({{L"One", 37}, {L"Two", 41}});
        Window().UserDraggedCorner({37, 23});
        const ui::Rect first = dialog.first.Bounds();
        const ui::Rect second = dialog.second.Bounds();
        EXPECT_EQ((ui::Size{187, 153}), dialog.ClientSize());
        screen.SetDpi(192);
        EXPECT_EQ((ui::Size{300 + 74, 260 + 46}), dialog.ClientSize());
        EXPECT_EQ((ui::Rect{21, 65, 93 + 74, 29}), dialog.first.Bounds());
        EXPECT_EQ(74, dialog.list.Columns()[0].width);
        for (const uint32_t dpi : {120U, 72U, 168U, 96U}) screen.SetDpi(dpi);
        EXPECT_EQ((ui::Size{187, 153}), dialog.ClientSize());
        EXPECT_EQ(first, dialog.first.Bounds());
        EXPECT_EQ(second, dialog.second.Bounds());
        EXPECT_EQ(37, dialog.list.Columns()[0].width);
        EXPECT_EQ(41, dialog.list.Columns()[1].width);
    });
}

TEST_F(MemoryScreenTest, WhatTheUserDoesOnOneMonitorIsScaledForTheOthers) {
    screen.SetDpi(144);
    Run([this] {
        dialog.list.SetColumns({{L"One", 37}, {L"Two", 41}});
        screen.SetDpi(96);
        Window().UserDraggedCorner({11, 13});
        dialog.list.UserResizedColumn(1, 55);
        screen.SetDpi(144);
        // 150 x 130 at 96 dpi are 225 x 200 here: the font is 9 x 20.
        EXPECT_EQ((ui::Size{225 + 17, 200 + 20}), dialog.ClientSize());
        EXPECT_EQ(83, dialog.list.Columns()[1].width);  // 82.5
        screen.SetDpi(96);
        EXPECT_EQ((ui::Size{161, 143}), dialog.ClientSize());
        EXPECT_EQ(55, dialog.list.Columns()[1].width);
        EXPECT_EQ(25, dialog.list.Columns()[0].width);  // 24.7
    });
}

TEST_F(MemoryScreenTest, FocusesTheFirstUsableControl) {
    Run([this] { EXPECT_EQ(&dialog.first, dialog.Focus()); });
    EXPECT_EQ(nullptr, dialog.Focus());
}

TEST_F(MemoryScreenTest, LeavesTheFocusWhereTheProgramPutIt) {
    dialog.onInit = [this] { dialog.second.SetFocus(); };
    Run([this] { EXPECT_EQ(&dialog.second, dialog.Focus()); });
}

TEST_F(MemoryScreenTest, TheFocusLeavesAControlThatIsTakenFromTheUser) {
    Run([this] {
        dialog.first.Enable(false);
        EXPECT_EQ(&dialog.second, dialog.Focus());
        dialog.second.Show(false);
        EXPECT_EQ(&dialog.list, dialog.Focus());
        for (ui::Control* control : dialog.Controls()) control->Enable(false);
        EXPECT_EQ(nullptr, dialog.Focus());
    });
}

TEST_F(MemoryScreenTest, AsksNobodyAboutADialogThatEndsWhileItOpens) {
    dialog.onInit = [this] { dialog.EndDialog(7); };
    EXPECT_EQ(7, dialog.DoModal());
}

TEST_F(MemoryScreenTest, TheFirstResultCounts) {
    dialog.onOk = [this] {
        dialog.EndDialog(5);
        dialog.EndDialog(6);
    };
    EXPECT_EQ(5, Run([this] { dialog.UserPressedOk(); }));
}

TEST_F(MemoryScreenTest, ADialogLeftOpenIsCancelled) {
    user.onDialog = [](ui::Dialog&) {};
    EXPECT_EQ(ui::IdCancel, dialog.DoModal());
}

TEST_F(MemoryScreenTest, FailuresOfHandlersLeaveWhenTheWindowIsGone) {
    dialog.onInit = [] { throw std::runtime_error("init"); };
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    EXPECT_FALSE(dialog.IsOpen());

    dialog.onInit = [] {};
    EXPECT_THROW(Run([this] { Window().Fail(std::make_exception_ptr(std::out_of_range("script"))); }),
                 std::out_of_range);
    EXPECT_FALSE(dialog.IsOpen());
}

TEST_F(MemoryScreenTest, WithoutAUserNothingOpens) {
    MemoryScreen empty(metrics);
    SampleDialog unseen(empty);
    EXPECT_THROW(unseen.DoModal(), std::logic_error);
    EXPECT_THROW(empty.PickFolder(nullptr, L""), std::logic_error);
}

TEST_F(MemoryScreenTest, WindowsInFrontTakeTheFocusAndGiveItBack) {
    int losses = 0;
    dialog.second.OnFocusLost([&losses] { ++losses; });
    dialog.onInit = [this] { dialog.second.SetFocus(); };
    const auto expectAway = [this] {
        EXPECT_EQ(nullptr, dialog.Focus());
        return ui::IdYes;
    };
    user.onBox = expectAway;
    std::optional<std::wstring> picked(L"C:\\In");
    user.onPicker = [&] {
        expectAway();
        return std::exchange(picked, std::nullopt);
    };
    Run([&] {
        EXPECT_EQ(ui::IdYes, screen.ShowMessageBox(&dialog, L"text", L"caption", ui::box::YesNo));
        EXPECT_EQ(&dialog.second, dialog.Focus());
        EXPECT_EQ(L"C:\\In", screen.PickFolder(&dialog, L""));
        EXPECT_EQ(std::nullopt, screen.PickFile(&dialog, {ui::FilePickerKind::Save, L"All", L"*.*", L"prx", L"a.prx"}));
        EXPECT_EQ(L"a.prx", screen.LastFilePicker().initialPath);
        SampleDialog upper(screen, &dialog);
        user.onDialog = [&](ui::Dialog& opened) {
            expectAway();
            dialog.first.SetFocus();  // of a window behind: it will have it
            expectAway();
            opened.UserPressedOk();
        };
        EXPECT_EQ(ui::IdOk, upper.DoModal());
        EXPECT_EQ(&dialog.first, dialog.Focus());
    });
    EXPECT_EQ(4, losses);
}

TEST_F(MemoryScreenTest, AFocusHandlerThatFailsEndsItsDialog) {
    dialog.first.OnFocusLost([] { throw std::runtime_error("lost"); });
    EXPECT_THROW(Run([this] { screen.ShowMessageBox(&dialog, L"text", L"caption", 0); }), std::runtime_error);
}

TEST_F(MemoryScreenTest, RemembersTheOwnerOfABox) {
    screen.ShowMessageBox(&dialog, L"text", L"caption", 0);
    EXPECT_EQ(nullptr, screen.LastOwner());
    Run([this] {
        screen.ShowMessageBox(&dialog, L"text", L"caption", 0);
        EXPECT_EQ(&dialog, screen.LastOwner());
        screen.ShowMessageBox(nullptr, L"text", L"caption", 0);
        EXPECT_EQ(nullptr, screen.LastOwner());
    });
}

TEST_F(MemoryScreenTest, AModelessDialogStaysUntilItIsClosedOrDestroyed) {
    Run([this] {
        {
            SampleDialog modeless(screen, &dialog);
            modeless.OpenModeless();
            EXPECT_TRUE(modeless.IsOpen());
            EXPECT_EQ(&modeless.first, modeless.Focus());
            EXPECT_EQ(nullptr, dialog.Focus());
            screen.ShowMessageBox(&dialog, L"text", L"caption", 0);
            EXPECT_EQ(&modeless.first, modeless.Focus());
            modeless.Close();
            EXPECT_FALSE(modeless.IsOpen());
            EXPECT_EQ(&dialog.first, dialog.Focus());
            modeless.OpenModeless();
        }
        EXPECT_EQ(&dialog.first, dialog.Focus());
    });
}

TEST_F(MemoryScreenTest, AModelessDialogThatFailsOrEndsAtOnceIsGone) {
    SampleDialog modeless(screen);
    modeless.onInit = [] { throw std::runtime_error("init"); };
    EXPECT_THROW(modeless.OpenModeless(), std::runtime_error);
    EXPECT_FALSE(modeless.IsOpen());
    modeless.onInit = [&modeless] { modeless.EndDialog(ui::IdOk); };
    modeless.OpenModeless();
    EXPECT_FALSE(modeless.IsOpen());
}

TEST_F(MemoryScreenTest, ControlsFollowTheCorner) {
    Run([this] {
        Window().UserDraggedCorner({20, 10});
        EXPECT_EQ((ui::Size{170, 140}), dialog.ClientSize());
        EXPECT_EQ((ui::Rect{11, 33, 67, 15}), dialog.first.Bounds());
        EXPECT_EQ((ui::Rect{31, 59, 45, 13}), dialog.second.Bounds());
        Window().UserDraggedCorner({-500, -500});
        EXPECT_EQ((ui::Size{120, 90}), Window().OuterSize());
        Window().UserDraggedCorner({-1, -1});
        dialog.smallest = {};
        Window().UserDraggedCorner({-500, -500});
        EXPECT_EQ((ui::Size{120, 0}), dialog.ClientSize());
    });
    EXPECT_EQ((std::vector<ui::Size>{{170, 140}, {104, 51}, {120, 0}}), dialog.sizes);
}

TEST_F(MemoryScreenTest, TakesAPlacementWhileItOpens) {
    dialog.onInit = [this] { dialog.SetNormalRect({5, 6, 400, 300}); };
    Run([this] {
        EXPECT_EQ((ui::Size{384, 261}), dialog.ClientSize());
        EXPECT_EQ((ui::Rect{5, 6, 400, 300}), dialog.NormalRect());
        dialog.SetNormalRect({7, 8, 400, 300});
    });
    EXPECT_EQ((std::vector<ui::Size>{{384, 261}}), dialog.sizes);
}

TEST_F(MemoryScreenTest, AMinimisedDialogKeepsItsSizeAndHasNoFocus) {
    Run([this] {
        Window().UserMinimized();
        EXPECT_EQ(nullptr, dialog.Focus());
        EXPECT_EQ((ui::Rect{100, 100, 166, 169}), dialog.NormalRect());
        dialog.SetNormalRect({100, 100, 200, 200});
        EXPECT_TRUE(dialog.sizes.empty());
        Window().UserRestored();
        EXPECT_EQ((std::vector<ui::Size>{{184, 161}}), dialog.sizes);
        EXPECT_EQ(&dialog.first, dialog.Focus());
    });
}

TEST_F(MemoryScreenTest, AListIsAsWideAsItsBorderAndScrollBarLeave) {
    EXPECT_EQ(0, dialog.list.ClientWidth());
    Run([this] {
        // 120 x 65 pixels: without border and header 37 are left, which two rows fit and three do not.
        dialog.list.SetRows(2);
        EXPECT_EQ(116, dialog.list.ClientWidth());
        dialog.list.SetRows(3);
        EXPECT_EQ(116 - metrics.VerticalScrollBarWidth(96), dialog.list.ClientWidth());
        dialog.list.SetRows(100'000'000);
        EXPECT_EQ(99, dialog.list.ClientWidth());
        EXPECT_EQ(dialog.first.Bounds().width, dialog.ClientWidthOf(dialog.first));
    });
}

TEST_F(MemoryScreenTest, TheCursorIsTheUsualOneWhileTheUserIsAsked) {
    const ui::WaitCursor wait(screen);
    EXPECT_EQ(1, screen.WaitCursors());
    Run([this] { EXPECT_EQ(0, screen.WaitCursors()); });
    EXPECT_EQ(1, screen.WaitCursors());
}

TEST_F(MemoryScreenTest, CountsWaitCursors) {
    {
        const ui::WaitCursor outer(screen);
        const ui::WaitCursor inner(screen);
        EXPECT_EQ(2, screen.WaitCursors());
    }
    EXPECT_EQ(0, screen.WaitCursors());
    EXPECT_EQ(&metrics, &screen.Metrics());
}

TEST_F(MemoryScreenTest, WhatTheUserDoesAheadMeetsTheNextDialogUnlessAWaitCursorWasShown) {
    const auto pressOk = [](ui::Dialog& opened) { opened.UserPressedOk(); };
    screen.UserActsAhead(pressOk);
    EXPECT_EQ(1U, screen.GesturesAhead());
    Run([this] { EXPECT_TRUE(dialog.HasEnded()); });
    {
        const ui::WaitCursor outer(screen);
        {
            const ui::WaitCursor inner(screen);
            screen.UserActsAhead(pressOk);
        }
        EXPECT_EQ(1U, screen.GesturesAhead());
    }
    EXPECT_EQ(0U, screen.GesturesAhead());
    const ui::WaitCursor wait(screen);
    screen.UserActsAhead(pressOk);
    Run([this] { EXPECT_FALSE(dialog.HasEnded()); });
}

}  // namespace
