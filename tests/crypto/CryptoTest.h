// Scenarios that open contexts and search: a stand-in library, a clock that tests set, a known code page, and
// a dialog from which the user starts what is tested.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "crypto/CryptoContext.h"
#include "demo/StandInLibrary.h"
#include "errors/MessageBoxes.h"
#include "platform/memory/MemoryCodePage.h"
#include "platform/memory/MemoryParts.h"
#include "platform/memory/MemorySystemMessages.h"
#include "tests/support/Fixture.h"
#include "tests/support/Ids.h"
#include "tests/support/MachineWith.h"
#include "ui/Controls.h"

namespace tests {

inline constexpr int Go = 10;

class Opener : public ui::Dialog {
  public:
    explicit Opener(ui::Screen& screen) : Dialog(screen, nullptr, {.size = {260, 120}}, L"Opener") {}
    std::function<void()> go;

  private:
    ui::Button go_{*this, Go, {7, 7, 50, 14}, L"Go", [this] { go(); }};
};

class CryptoTest : public WorldTest {
  protected:
    static constexpr uint32_t failed = 0x20000010;  // a code of the library

    CryptoTest() {
        world_->CryptoLibrary().Install(demo::StandInLibrary::Exports());
        library_.SetErrorText(failed, "It failed.\r\n");
        systemMessages_.SetSystemText(5, L"Access is denied.\r\n");
        systemMessages_.SetSystemText(126, L"Module not found.\r\n");
    }
    void TearDown() override {
        EXPECT_EQ(library_.OpenContexts(), 0U) << "a context stayed open";
        EXPECT_EQ(library_.OpenResults(), 0U) << "a result was not released";
        EXPECT_EQ(library_.OpenTexts(), 0U) << "a text was not released";
        EXPECT_EQ(library_.WrongReleases(), 0U) << "something was released twice";
        EXPECT_EQ(library_.UnclearedResults(), 0U) << "a search was given a result that was not empty";
        EXPECT_EQ(world_->Registry().OpenKeys(), unclosed_) << "a key stayed open";
    }

    // Runs it as the handler of a dialog, for whose user expectations can be queued beforehand.
    void InDialog(
        const std::function<void()>& work, const std::function<void()>& expectations = [] {}) {
        opener_.go = work;
        user_.Expect<Opener>([&](Opener&) {
            expectations();
            user_.Click(Go);
            user_.PressCloseBox();
        });
        opener_.DoModal();
    }
    // The user reads a box about a failure and closes it. owner: none, or the dialog that it belongs to.
    void ExpectFailureBox(const std::wstring& text, const ui::Dialog* owner) {
        const auto read = [this, text, owner](errors::WarningBox& box) {
            EXPECT_EQ(user_.Text(boxid::WarningText), text);
            EXPECT_EQ(box.Parent(), owner);
            EXPECT_EQ(box.Icon(), ui::Icon::Error);
            EXPECT_EQ(box.Caption(), L"Warning:");
            user_.Click(ui::IdCancel);
        };
        if (owner == nullptr) {
            user_.ExpectOwnerless<errors::WarningBox>(read);
        } else {
            user_.Expect<errors::WarningBox>(read);
        }
    }
    // A context of the stand-in that belongs to the caller.
    crypto::CryptoContext OpenedContext() {
        platform::kseal::Context context = nullptr;
        demo::StandInLibrary::Exports().Initialize("test", 0, &context);
        library_.ForgetCalls();
        return {demo::StandInLibrary::Exports(), context, reporter_};
    }

    size_t unclosed_ = 0;  // keys whose closing was made to fail
    demo::StandInLibrary library_;
    platform::memory::MemoryClock clock_;
    platform::memory::MemoryCodePage codePage_;
    platform::memory::MemorySystemMessages systemMessages_;
    platform::memory::MemoryMemory memory_;
    const platform::Machine machine_ =
        MachineWith(world_->Machine(),
                    {.CodePage = &codePage_, .SystemMessages = &systemMessages_, .Clock = &clock_, .Memory = &memory_});
    RecordingScreen& screen_ = world_->Screen();
    const errors::ErrorReporter reporter_{machine_, screen_};
    config::RegistryStore store_{machine_, reporter_};
    const config::Services services_{machine_, screen_, reporter_, store_};
    Opener opener_{screen_};
};

}  // namespace tests
