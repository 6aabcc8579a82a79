// How long the wait dialog is on the screen.
#include "crypto/OpenCryptoContext.h"

#include <gtest/gtest.h>

#include "demo/StandInLibrary.h"
#include "platform/memory/MemoryMachine.h"
#include "tests/support/ScriptedUser.h"

namespace {

class AwaitDlgTest : public testing::Test {
  protected:
    AwaitDlgTest() {
        machine_.CryptoLibrary.Install(demo::StandInLibrary::Exports());
        library_.OnCall([this](const std::string&) { duringCalls_.push_back(screen_.OpenDialogs()); });
        user_.onDialog = [this](ui::Dialog&) { duringTalks_.push_back(screen_.OpenDialogs()); };
        user_.onBox = [this] {
            duringTalks_.push_back(screen_.OpenDialogs());
            return ui::IdOk;
        };
        parent_.OpenModeless();
    }

    demo::StandInLibrary library_;
    platform::memory::MemoryMachine machine_;
    tests::ScriptedUser user_;
    ui::memory::MemoryScreen screen_{machine_.ScreenMetrics, user_};
    const errors::ErrorReporter reporter_{machine_.Machine, screen_};
    config::RegistryStore store_{machine_.Machine, reporter_};
    const config::Services services_{machine_.Machine, screen_, reporter_, store_};
    ui::Dialog parent_{screen_, nullptr, {.size = {200, 100}}};
    // How many dialogs were open then.
    std::vector<size_t> duringCalls_;  // of the library
    std::vector<size_t> duringTalks_;  // with the user
    std::wstring csProfile_ = L"Office";
    crypto::PickerSettings settings_;
};

TEST_F(AwaitDlgTest, IsThereWhileTheContextIsOpenedAndNoLonger) {
    settings_.NotUseLDAP = 0;
    settings_.NotLoadCrl = 1;
    {
        const auto context = crypto::OpenCryptoContext(services_, parent_, csProfile_, settings_);
        EXPECT_TRUE(context);
        EXPECT_EQ(screen_.OpenDialogs(), 1U);
    }
    // Opening, the probe and the release of what it found, closing.
    EXPECT_EQ(duringCalls_, (std::vector<size_t>{2, 1, 1, 1}));
}

TEST_F(AwaitDlgTest, IsGoneWhenAFailureIsShown) {
    library_.SetAnswer(demo::StandInCall::Initialize, 0x20000001);
    EXPECT_FALSE(crypto::OpenCryptoContext(services_, parent_, csProfile_, settings_));
    EXPECT_EQ(duringCalls_, (std::vector<size_t>{2}));
    EXPECT_EQ(duringTalks_, (std::vector<size_t>{2}));  // the parent and the box
}

TEST_F(AwaitDlgTest, HalvesOfPixelsAreCutOff) {
    for (const ui::Size size : {ui::Size{701, 500}, {702, 501}, {160, 60}}) {
        ui::Dialog parent(screen_, nullptr, {.size = size});
        parent.OpenModeless();
        crypto::AwaitDlg wait(screen_, parent);
        wait.OpenModeless();
        const ui::Rect around = parent.NormalRect();
        const ui::Rect own = wait.NormalRect();
        EXPECT_EQ(own.x, around.x + around.width / 2 - own.width / 2);
        EXPECT_EQ(own.y, around.y + around.height / 2 - own.height / 2);
    }
}

}  // namespace
