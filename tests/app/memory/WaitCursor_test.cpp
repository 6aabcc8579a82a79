// Whatever may take long is done under the wait cursor: reading and writing the registry and files, and the
// cryptographic library. What the user does meanwhile has no effect.
#include <gtest/gtest.h>

#include "platform/memory/MemoryFiles.h"
#include "tests/app/CertificateJourney.h"
#include "ui/memory/MemoryScreen.h"

namespace tests {
namespace {

class WaitCursorTest : public CertificateJourney {
  protected:
    using FileCall = platform::memory::FileCall;

    WaitCursorTest() { SeedEncryptingRule(); }
    ~WaitCursorTest() override {
        world_->Registry().NoFaults();
        Files().NoFaults();
    }

    // From now on; the calls that are made are counted.
    void Watch() {
        world_->Registry().SetFault([this](size_t, const auto& call) {
            CheckShown(testing::PrintToString(call.target));
            ++registryCalls_;
            return 0;
        });
        Files().SetFault([this](size_t, const auto& call) {
            CheckShown(testing::PrintToString(call.path));
            ++fileCalls_;
            return 0;
        });
        library_.OnCall([this](const std::string& call) {
            CheckShown(call);
            ++libraryCalls_;
        });
    }
    void CheckShown(const std::string& call) { EXPECT_GT(Screen().WaitCursors(), 0) << call; }
    ui::memory::MemoryScreen& Screen() { return dynamic_cast<ui::memory::MemoryScreen&>(world_->Screen().Real()); }
    // Enter, during each call of the library.
    void PressEnterAhead() {
        library_.OnCall(
            [this](const std::string&) { Screen().UserActsAhead([](ui::Dialog& dialog) { dialog.UserPressedOk(); }); });
    }
    platform::memory::MemoryFiles& Files() { return dynamic_cast<platform::memory::MemoryFiles&>(files_->Files()); }

    size_t registryCalls_ = 0;
    size_t fileCalls_ = 0;
    size_t libraryCalls_ = 0;
};

TEST_F(WaitCursorTest, LoadingAndSaving) {
    Watch();
    RunProgram([this] {
        EXPECT_GT(registryCalls_, 0U);
        registryCalls_ = 0;
        SaveAndLeave();
        EXPECT_GT(registryCalls_, 0U);
    });
}

TEST_F(WaitCursorTest, ExportAndImport) {
    Watch();
    RunProgram([this] {
        user_.ExpectFilePicker(ui::FilePickerKind::Save, Path(L"rules.prx"));
        user_.Click(id::ExportRules);
        EXPECT_GT(fileCalls_, 0U);
        fileCalls_ = 0;
        user_.ExpectFilePicker(ui::FilePickerKind::Open, Path(L"rules.prx"));
        user_.Click(id::ImportRules);
        EXPECT_GT(fileCalls_, 0U);
        SaveAndLeave();
    });
}

TEST_F(WaitCursorTest, EverySourceOfCertificates) {
    Watch();
    WithTheRule([this] {
        OpenPicker([this] {
            EXPECT_GT(libraryCalls_, 2U);  // opening, the network store, the revocation lists
            AddFromLocalStore();
            SearchLdap(0, L"ivan*");
            user_.Click(pickid::SelectAll);
            SaveGroup(Path(L"all.grx"));
            EXPECT_GT(fileCalls_, 0U);
            fileCalls_ = 0;
            OpenGroup(Path(L"all.grx"));
            EXPECT_GT(fileCalls_, 0U);
            libraryCalls_ = 0;
            user_.Click(ui::IdOk);
            EXPECT_GT(libraryCalls_, 0U);
        });
    });
}

TEST_F(WaitCursorTest, IsNotShownWhileTheUserWorksOrReadsAReport) {
    const ui::memory::MemoryScreen& screen = Screen();
    library_.SetAnswer(demo::StandInCall::Initialize, failed);
    WithTheRule([&] {
        user_.Expect<errors::WarningBox>([&](errors::WarningBox&) {
            EXPECT_EQ(screen.WaitCursors(), 0);
            user_.Click(ui::IdCancel);
        });
        user_.Click(ruleid::ActionButton);
        EXPECT_EQ(screen.WaitCursors(), 0);
    });
}

TEST_F(WaitCursorTest, EnterPressedMeanwhileDoesNotAcceptThePicker) {
    PressEnterAhead();
    WithTheRule([&] {
        OpenPicker([&] {
            EXPECT_FALSE(user_.Top().HasEnded());
            AddFromLocalStore();
            EXPECT_EQ(Screen().GesturesAhead(), 0U);
            user_.Click(ui::IdCancel);
        });
        EXPECT_EQ(Screen().GesturesAhead(), 0U);  // those of closing
    });
}

TEST_F(WaitCursorTest, EnterPressedMeanwhileDoesNotCloseTheBoxAboutAFailure) {
    PressEnterAhead();
    library_.SetAnswer(demo::StandInCall::Initialize, failed);
    WithTheRule([&] {
        user_.Expect<errors::WarningBox>([&](errors::WarningBox& box) {
            EXPECT_FALSE(box.HasEnded());
            user_.Click(ui::IdCancel);
        });
        user_.Click(ruleid::ActionButton);
    });
}

}  // namespace
}  // namespace tests
