// The cursor that the user sees while the program works and while it asks.
#include <gtest/gtest.h>
#include <windows.h>

#include "errors/MessageBoxes.h"
#include "tests/support/World.h"
#include "tests/support/win32/ImportHook.h"

namespace tests {
namespace {

bool IsWaiting() {
    return GetCursor() == LoadCursorW(nullptr, IDC_WAIT);
}

TEST(WaitCursorOfWindows, MakesWayWhileTheUserIsAsked) {
    const auto world = World::Make();
    {
        const ui::WaitCursor wait(world->Screen());
        EXPECT_TRUE(IsWaiting());
        world->User().Expect<errors::ErrBox>([&world](errors::ErrBox&) {
            EXPECT_FALSE(IsWaiting());
            world->User().Click(ui::IdOk);
        });
        errors::ErrBox(world->Screen(), nullptr, L"Wait", ui::Icon::Error).DoModal();
        EXPECT_TRUE(IsWaiting());
    }
    EXPECT_FALSE(IsWaiting());
}

bool offersToEndPrograms = true;

void WINAPI NoteThatNoneIsOffered() {
    offersToEndPrograms = false;
}

// A search may take minutes: the user must not be talked into giving up what he has changed.
TEST(WaitCursorOfWindows, NobodyIsOfferedToEndAProgramThatTakesLong) {
    const ImportHook disable("DisableProcessWindowsGhosting", NoteThatNoneIsOffered);
    const auto world = World::Make();
    EXPECT_FALSE(offersToEndPrograms);
}

}  // namespace
}  // namespace tests
