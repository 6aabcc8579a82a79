// The base of scenarios that work with the whole program: a world, the services of the dialogs, and the
// registry as text.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "config/Services.h"
#include "demo/RegistryText.h"
#include "tests/support/Boxes.h"
#include "tests/support/World.h"
#include "text/Numbers.h"

namespace tests {

class WorldTest : public ::testing::Test {
  protected:
    void Seed(const std::string& text) { demo::ApplyRegistryText(text, world_->Machine().Registry); }
    // The service's tree.
    std::string Dump() {
        return demo::DumpRegistryKey(world_->Machine().Registry, platform::RootKey::LocalMachine,
                                     L"SOFTWARE\\TALVERON\\morcelservice");
    }

    // The user works in the dialog by the script and has to leave; the result that ended it.
    template <class D>
    int Show(D& dialog, const std::function<void()>& script) {
        user_.Expect<D>([&script](D&) { script(); });
        return dialog.DoModal();
    }

    // The next box, under the program's title.
    void ExpectHint(const std::wstring& text) { user_.ExpectBox(text, boxes::Hint, ui::IdOk, boxes::Title); }
    void ExpectQuestion(const std::wstring& text, int answer) {
        user_.ExpectBox(text, boxes::Question, answer, boxes::Title);
    }
    void ExpectLeaveQuestion(int answer) { ExpectQuestion(boxes::LeaveText, answer); }
    // The report of a failed call; the description comes from the system.
    void ExpectReport(const std::wstring& operation, platform::Win32Code code) {
        user_.ExpectBoxBeginning(operation + L".\r\nError 0x" + text::Hexadecimal(code) + L" - ", boxes::Report,
                                 ui::IdOk);
    }
    // The user leaves the main window.
    void LeaveUnchanged() { user_.PressCloseBox(); }
    void LeaveChanged() {
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    }

    const std::unique_ptr<World> world_ = World::Make();
    Robot& user_ = world_->User();
    const errors::ErrorReporter reporter_{world_->Machine(), world_->Screen()};
    config::RegistryStore store_{world_->Machine(), reporter_};
    const config::Services services_{world_->Machine(), world_->Screen(), reporter_, store_};
};

}  // namespace tests
