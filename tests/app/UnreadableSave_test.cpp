// A save of what could not be read back: the question before it.
#include <functional>
#include <string>

#include "demo/RegistryTool.h"
#include "tests/app/MainWindowRules.h"
#include "tests/config/ExchangeText.h"
#include "tests/config/RecordTree.h"

namespace tests {
namespace {

constexpr wchar_t Question[] =
    L"Some texts cannot be read back once they are saved:\r\n"
    L"\r\nProfile 'Alpha', rule 6, Description: longer than 519 characters"
    L"\r\nProfile 'Alpha', rule 6, Signer list 'x\\y': holds a backslash"
    L"\r\n\r\nSave anyway?";

class UnreadableSave : public MainWindowRulesTest {
  protected:
    using Call = platform::memory::RegistryCall;

    void ExpectQuestion(int answer) {
        user_.ExpectBox(Question, boxes::Risk, answer, L"ZEMA AC QLD Service - configuration");
    }
    // Behind the five rules comes one with two texts that could not be read back.
    void Import() {
        const std::wstring path = Put(L"long.prx", Record({{field::Operation, "HASH"},
                                                           {field::Descryption, std::string(520, 'd')},
                                                           {field::SignerLists, "x\\y;;CN=Anna"}}));
        user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
        user_.Click(id::ImportRules);
        before_ = demo::DumpRegistry(world_->Registry());
        world_->Registry().ForgetCalls();
    }
    // Not even the record of a save.
    void ExpectNothingWritten() {
        EXPECT_EQ(world_->Registry().CountOf(Call::Set), 0U);
        EXPECT_EQ(world_->Registry().CountOf(Call::Create), 0U);
        EXPECT_EQ(world_->Registry().CountOf(Call::DeleteSubkey), 0U);
        EXPECT_EQ(demo::DumpRegistry(world_->Registry()), before_);
    }

    std::string before_;
};

TEST_F(UnreadableSave, NoSavesNothingAndTheChangesStayUnsaved) {
    for (const auto& save : {std::function<void()>([&] { user_.Click(id::Save); }),
                             std::function<void()>([&] { user_.Click(id::SaveIcon); }),
                             std::function<void()>([&] { user_.ChooseMenu(command::Save); })}) {
        Run([&] {
            Import();
            ExpectQuestion(ui::IdNo);
            save();
            ExpectNothingWritten();
            EXPECT_EQ(Descriptions().size(), 6U);
            LeaveChanged();
        });
        EXPECT_EQ(StoredRules(), rules_);
    }
}

TEST_F(UnreadableSave, NoKeepsSaveAndExitInTheEditorWithoutAFurtherQuestion) {
    Run([&] {
        Import();
        ExpectQuestion(ui::IdNo);
        user_.Click(ui::IdOk);
        EXPECT_FALSE(user_.Top().HasEnded());
        ExpectNothingWritten();
        user_.Click(id::Search);
        ExpectQuestion(ui::IdNo);
        user_.Press(Key::Enter);
        EXPECT_FALSE(user_.Top().HasEnded());
        LeaveChanged();
    });
}

TEST_F(UnreadableSave, YesSavesAsEver) {
    const int result = Run([&] {
        Import();
        ExpectQuestion(ui::IdYes);
        user_.Click(id::Save);
        EXPECT_NE(Dump().find("dddd"), std::string::npos);
        EXPECT_FALSE(HasRecordKey(world_->Registry()));
        ExpectQuestion(ui::IdYes);
        user_.Click(ui::IdOk);
        EXPECT_TRUE(user_.Top().HasEnded());
    });
    EXPECT_EQ(result, ui::IdOk);
}

TEST_F(UnreadableSave, TheQuestionComesOncePerSaveAndNotForWhatCanBeReadBack) {
    const std::wstring path = Put(L"good.prx", Record({{field::Operation, "HASH"},
                                                       {field::Descryption, std::string(519, 'd')},
                                                       {field::SignerLists, "x/y;;CN=Anna"}}));
    Run([&] {
        user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
        user_.Click(id::ImportRules);
        user_.Click(id::Save);
        LeaveUnchanged();
    });
    ASSERT_EQ(StoredRules().size(), 6U);
    EXPECT_EQ(std::wstring(StoredRules()[5].Descryption).size(), 519U);
}

// A tick that was just made is a change like any other, and stays one.
TEST_F(UnreadableSave, ATickMadeBeforeIsKept) {
    Run([&] {
        Import();
        user_.ClickCheckBox(id::Rules, 0);
        ExpectQuestion(ui::IdNo);
        user_.ChooseMenu(command::Save);
        EXPECT_FALSE(List().IsChecked(0));
        ExpectQuestion(ui::IdYes);
        user_.ChooseMenu(command::Save);
        LeaveUnchanged();
    });
    EXPECT_NE(Dump().find("Is on = 0"), std::string::npos);
}

}  // namespace
}  // namespace tests
