#include "tests/app/MainWindowRules.h"

#include "config/Load.h"
#include "config/Save.h"
#include "editors/MaskList.h"

namespace tests {
namespace {

constexpr int HashFile = 2;  // in the list of operations

}  // namespace

void MainWindowRulesTest::SetUp() {
    Seed(OfficeAndBank);
    configuration_.Profiles.resize(1);
    configuration_.Profiles[0].Name = L"Alpha";
    configuration_.Profiles[0].ZCSProfile = {L"Office", L"Bank"};
    for (const wchar_t* description : {L"a", L"b", L"c", L"d", L"e"}) rules_.push_back(RuleNamed(description));
}

config::Rule MainWindowRulesTest::RuleNamed(const std::wstring& description) const {
    config::Rule rule;
    rule.Operation = L"HASH";
    rule.ZCSProfile = L"Office";
    rule.PathIn = rule.PathOut = rule.PathError = files_->Folder();
    rule.Masks = {L"*.dat"};
    rule.IsOn = 1;
    rule.Descryption = description;
    return rule;
}

void MainWindowRulesTest::Store() {
    std::string withoutOperation;  // saving leaves them out
    configuration_.Profiles[0].Rules = rules_;
    for (size_t i = 0; i < rules_.size(); ++i) {
        if (!rules_[i].Operation.empty()) continue;
        configuration_.Profiles[0].Rules[i].Operation = L"HASH";
        withoutOperation += "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\Alpha\\rules\\Rule " +
                            std::to_string(i) + "]\nOperation = \"\"\n\n";
    }
    ASSERT_TRUE(config::SaveConfiguration(store_, nullptr, configuration_));
    Seed(withoutOperation);
}

int MainWindowRulesTest::Run(const std::function<void()>& script) {
    Store();
    user_.Expect<app::CBrisgateDlg>([&script](app::CBrisgateDlg&) { script(); });
    return app::CBrisgateDlg(filesAndAll_).DoModal();
}

std::vector<config::Rule> MainWindowRulesTest::StoredRules() {
    const auto loaded = config::LoadConfiguration(store_, nullptr);
    return loaded && !loaded->Profiles.empty() ? loaded->Profiles[0].Rules : std::vector<config::Rule>();
}

void MainWindowRulesTest::Select(const Rows& rows) {
    for (const size_t row : rows) user_.ClickRow(id::Rules, row, row == rows[0] ? Held::Nothing : Held::Control);
}

void MainWindowRulesTest::SaveChanged() {
    ExpectLeaveQuestion(ui::IdNo);
    user_.PressCloseBox();
    user_.Click(ui::IdOk);
}

void MainWindowRulesTest::ExpectShown(size_t row, size_t rowInView) {
    EXPECT_EQ(List().SelectedRows(), Rows{row});
    EXPECT_EQ(List().ScrollTarget(), rowInView);
    EXPECT_TRUE(List().HasFocus());
}

void MainWindowRulesTest::ExpectNoneSelected() {
    EXPECT_EQ(List().SelectedRows(), Rows());
    EXPECT_EQ(List().ScrollTarget(), 0U);
    EXPECT_TRUE(List().HasFocus());
}

void MainWindowRulesTest::ExpectRenaming(const std::wstring& from, const std::wstring& to) {
    ExpectEditor([this, from, to](editors::CAddRule& editor) {
        EXPECT_EQ(editor.Caption(), L"Edit rule");
        EXPECT_EQ(user_.Text(ruleid::Description), from);
        user_.Type(ruleid::Description, to);
        user_.Click(ui::IdOk);
    });
}

void MainWindowRulesTest::ExpectNewRule(const std::wstring& description) {
    ExpectEditor([this, description](editors::CAddRule& editor) {
        EXPECT_EQ(editor.Caption(), L"Add rule");
        user_.Choose(ruleid::Operation, HashFile);
        user_.Type(ruleid::Description, description);
        for (const int field : {ruleid::PathIn, ruleid::PathOut, ruleid::PathError})
            user_.Paste(field, files_->Folder());
        user_.Expect<editors::AddMask>([this](editors::AddMask&) {
            user_.Type(ruleid::MaskCombo, L"*.dat");
            user_.Click(ui::IdOk);
        });
        user_.Click(ruleid::AddMask);
        user_.Click(ui::IdOk);
    });
}

std::wstring MainWindowRulesTest::Put(const std::wstring& name, std::string_view bytes) {
    files_->Put(files_->Path(name), bytes);
    return files_->Path(name);
}

}  // namespace tests
