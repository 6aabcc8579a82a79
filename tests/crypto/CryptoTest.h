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

// Notes to whom boxes belong, and which dialog opened without taking over.
class OwnersScreen final : public ui::Screen {
  public:
    explicit OwnersScreen(ui::Screen& real) : real_(real) {}

    std::vector<const ui::Dialog*> boxOwners;
    const ui::Dialog* modeless = nullptr;  // the last one
    int modelessCount = 0;

    int RunModal(ui::Dialog& dialog) override { return real_.RunModal(dialog); }
    void OpenModeless(ui::Dialog& dialog) override {
        modeless = &dialog;
        ++modelessCount;
        real_.OpenModeless(dialog);
    }
    int ShowMessageBox(const ui::Dialog* owner, const std::wstring& text, const std::wstring& caption,
                       uint32_t flags) override {
        boxOwners.push_back(owner);
        return real_.ShowMessageBox(owner, text, caption, flags);
    }
    std::optional<std::wstring> PickFolder(const ui::Dialog* owner, const std::wstring& folder) override {
        return real_.PickFolder(owner, folder);
    }
    std::optional<std::wstring> PickFile(const ui::Dialog* owner, const ui::FilePicker& picker) override {
        return real_.PickFile(owner, picker);
    }
    void ShowWaitCursor(bool shown) override { real_.ShowWaitCursor(shown); }
    const platform::ScreenMetrics& Metrics() const override { return real_.Metrics(); }

  private:
    ui::Screen& real_;
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
            EXPECT_EQ(user_.Text(1160), text);
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
    const platform::Machine machine_{world_->Machine().Registry,
                                     world_->Machine().Files,
                                     codePage_,
                                     systemMessages_,
                                     clock_,
                                     world_->Machine().InstanceLock,
                                     world_->Machine().ScreenMetrics,
                                     memory_,
                                     world_->CryptoLibrary()};
    OwnersScreen screen_{world_->Screen()};
    const errors::ErrorReporter reporter_{machine_, screen_};
    config::RegistryStore store_{machine_, reporter_};
    const config::Services services_{machine_, screen_, reporter_, store_};
    Opener opener_{screen_};
};

}  // namespace tests
