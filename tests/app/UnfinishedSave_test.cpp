// A save that was not completed, and the start that finds it.
#include <gtest/gtest.h>

#include <string>

#include "config/RedoRecord.h"
#include "demo/RegistryTool.h"
#include "tests/app/MainWindow.h"
#include "tests/config/RecordTree.h"

namespace {

using platform::ValueType;
using platform::memory::RegistryCall;
using tests::Key;
namespace id = tests::id;
namespace code = platform::code;

constexpr wchar_t question[] = L"The last save was not completed.\r\nComplete it now?";
constexpr uint32_t proposal = ui::box::YesNo | ui::box::QuestionIcon;
constexpr wchar_t unreadable[] =
    L"The last save was not completed, and its record cannot be read.\r\n"
    L"Please, check profiles and rules and save them again.";

class UnfinishedSave : public tests::MainWindowTest {
  protected:
    void SetUp() override { SeedSmallConfiguration(); }
    std::string Trees() { return demo::DumpRegistry(world_->Registry()); }
    void DeleteTheFirstRule() {
        user_.ClickRow(id::Rules, 0);
        ExpectQuestion(L"Delete 1 rule(s)?", ui::IdYes);
        user_.Press(Key::Delete);
    }
    // The tree as it is once the first rule has been deleted and all has been saved.
    std::string WholeTrees() {
        Run([&](app::CBrisgateDlg&) {
            DeleteTheFirstRule();
            user_.Click(id::Save);
            user_.PressCloseBox();
        });
        const std::string whole = Trees();
        demo::SeedRegistry({}, world_->Registry());
        SeedSmallConfiguration();
        return whole;
    }
    // The same, but the rules of the second profile cannot be deleted.
    void FailToSave() {
        Run([&](app::CBrisgateDlg&) {
            DeleteTheFirstRule();
            world_->Registry().FailWhere(RegistryCall::DeleteSubkey, L"Beta\\rules\\Rule 0", code::AccessDenied);
            user_.ExpectBoxBeginning(L"Delete register key ", tests::boxes::Report, ui::IdOk);
            user_.Click(id::Save);
            world_->Registry().NoFaults();
            user_.PressCloseBox();
        });
        ASSERT_TRUE(tests::HasRecordKey(world_->Registry()));
    }
    void JustLook(size_t rules) {
        Run([&](app::CBrisgateDlg&) {
            EXPECT_EQ(user_.RowCount(id::Rules), rules);
            user_.PressCloseBox();
        });
    }
    static constexpr size_t RulesLeft = 2;
};

TEST_F(UnfinishedSave, IsCompletedByTheNextStart) {
    const std::string whole = WholeTrees();
    FailToSave();
    EXPECT_NE(Trees(), whole);
    user_.ExpectBox(question, proposal, ui::IdYes);
    JustLook(RulesLeft);
    EXPECT_EQ(Trees(), whole);
    JustLook(RulesLeft);
}

TEST_F(UnfinishedSave, OneThatIsPutOffIsNotOfferedAgain) {
    FailToSave();
    user_.ExpectBox(question, proposal, ui::IdNo);
    JustLook(RulesLeft);
    EXPECT_FALSE(tests::HasRecordKey(world_->Registry()));
    JustLook(RulesLeft);
}

TEST_F(UnfinishedSave, AStartThatIsRefusedOffersItAgain) {
    const std::string whole = WholeTrees();
    FailToSave();
    world_->Registry().FailWhere(RegistryCall::Open, L"Alpha\\rules", code::AccessDenied);
    user_.ExpectBox(question, proposal, ui::IdNo);
    user_.ExpectBoxBeginning(L"Create (open) register key ", tests::boxes::Report, ui::IdOk);
    EXPECT_EQ(app::CBrisgateDlg(services_).DoModal(), ui::IdCancel);
    world_->Registry().NoFaults();
    user_.ExpectBox(question, proposal, ui::IdYes);
    JustLook(RulesLeft);
    EXPECT_EQ(Trees(), whole);
}

TEST_F(UnfinishedSave, ACompletionThatFailsIsReportedOnceAndOfferedAgain) {
    const std::string whole = WholeTrees();
    FailToSave();
    world_->Registry().FailWhere(RegistryCall::Set, L"LogPath", code::AccessDenied);
    user_.ExpectBox(question, proposal, ui::IdYes);
    user_.ExpectBoxBeginning(L"Writing string value 'LogPath' into register", tests::boxes::Report, ui::IdOk);
    JustLook(RulesLeft);
    world_->Registry().NoFaults();
    user_.ExpectBox(question, proposal, ui::IdYes);
    JustLook(RulesLeft);
    EXPECT_EQ(Trees(), whole);
}

TEST_F(UnfinishedSave, ALaterSaveThatSucceedsMakesItGo) {
    FailToSave();
    user_.ExpectBox(question, proposal, ui::IdYes);
    world_->Registry().FailWhere(RegistryCall::Set, L"LogPath", code::AccessDenied);
    user_.ExpectBoxBeginning(L"Writing string value 'LogPath' into register", tests::boxes::Report, ui::IdOk);
    Run([&](app::CBrisgateDlg&) {
        world_->Registry().NoFaults();
        user_.Click(id::Save);
        EXPECT_FALSE(tests::HasRecordKey(world_->Registry()));
        user_.PressCloseBox();
    });
}

TEST_F(UnfinishedSave, ARecordThatCannotBeReadStaysUntilTheNextSave) {
    const platform::ValueType type = ValueType::Binary;
    const std::vector<std::byte> later{std::byte{'B'}, std::byte{'R'}, std::byte{'E'}, std::byte{'D'}, std::byte{2}};
    tests::RecordKey(world_->Registry()).Set(tests::RecordName, {type, later});
    const std::string before = Trees();
    ExpectHint(unreadable);
    JustLook(3);
    EXPECT_EQ(Trees(), before);
    ExpectHint(unreadable);
    Run([&](app::CBrisgateDlg&) {
        user_.Click(id::Save);
        user_.PressCloseBox();
    });
    EXPECT_FALSE(tests::HasRecordKey(world_->Registry()));
}

// The change flag: what could not be saved at all is still unsaved.
TEST_F(UnfinishedSave, WhereTheEarlierRecordCanNeitherBeReplacedNorRemovedNothingIsSaved) {
    FailToSave();
    user_.ExpectBox(question, proposal, ui::IdYes);
    world_->Registry().FailWhere(RegistryCall::Set, L"LogPath", code::AccessDenied);
    user_.ExpectBoxBeginning(L"Writing string value 'LogPath' into register", tests::boxes::Report, ui::IdOk);
    Run([&](app::CBrisgateDlg&) {
        const std::string before = Trees();
        world_->Registry().SetFault([](size_t, const platform::memory::RecordedCall& call) {
            const bool ofRecord = call.target.find(L"morcelservice editor") != std::wstring::npos;
            return ofRecord && call.call != RegistryCall::Close ? code::AccessDenied : code::Success;
        });
        DeleteTheFirstRule();
        user_.ExpectBoxBeginning(L"Delete register key HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice editor",
                                 tests::boxes::Report, ui::IdOk);
        user_.Click(id::Save);
        world_->Registry().NoFaults();
        EXPECT_EQ(Trees(), before);
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

}  // namespace
