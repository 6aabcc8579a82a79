// The whole way of a rule: made by hand in the main window, saved, loaded again, and carried to another
// profile.
#include "app/RuleTexts.h"
#include "config/Load.h"
#include "tests/app/MainWindowRules.h"
#include "tests/editors/RuleByHand.h"

namespace tests {
namespace {

using config::Rule;

class RuleJourney : public RuleByHandTest {
  protected:
    void SetUp() override {
        Seed(R"([HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles\1]
ProfileName = "Bank"
BasePath = "C:\Keys"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules]

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Beta\rules]
)");
        for (const wchar_t* name : {L"Alpha", L"Beta"}) {
            ASSERT_TRUE(store_.Open(platform::RootKey::LocalMachine,
                                    std::wstring(L"SOFTWARE\\TALVERON\\morcelservice\\") + name, {}));
            ASSERT_TRUE(store_.WriteTextList(L"ZCSProfile", profile_.ZCSProfile, {}));
        }
        files_.AddFolder(realFiles_->Folder());
    }

    void AddByHand(const Rule& rule) {
        user_.Expect<editors::CAddRule>([this, rule](editors::CAddRule&) {
            PutIn(rule);
            user_.Click(ui::IdOk);
        });
        user_.Click(id::AddRule);
    }
    void Export(const std::wstring& path) {
        user_.ExpectFilePicker(ui::FilePickerKind::Save, path);
        user_.Click(id::ExportRules);
    }
    void ExportAndImportIntoTheOtherProfile() {
        const std::wstring path = Exported(L"first");
        Export(path);
        // The picker looks for it on the real disk, the program among the test's files.
        platform::FileHandle file{};
        ASSERT_EQ(realFiles_->Files().Create(path, file), 0U);
        ASSERT_EQ(realFiles_->Files().Close(file), 0U);
        user_.ClickRow(id::Profiles, 1);
        user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
        user_.Click(id::ImportRules);
    }

    std::wstring Exported(const std::wstring& name) const { return realFiles_->Folder() + L"\\" + name + L".prx"; }
    // The opened profile has these rules, to be seen in the list, in the editor and in an exported file.
    void ExpectRules(const std::vector<Rule>& expected) {
        ASSERT_EQ(user_.RowCount(id::Rules), expected.size());
        for (size_t row = 0; row < expected.size(); ++row) {
            std::vector<std::wstring> cells;
            for (size_t column = 0; column < app::RuleColumnHeaders().size(); ++column)
                cells.push_back(app::RuleCell(expected[row], row, static_cast<app::RuleColumn>(column)));
            EXPECT_EQ(user_.Row(id::Rules, row), cells);
            EXPECT_TRUE(user_.Get<ui::ListView>(id::Rules).IsChecked(row));
            user_.Expect<editors::CAddRule>([&](editors::CAddRule&) {
                EXPECT_EQ(user_.Text(ruleid::Description), expected[row].Descryption);
                EXPECT_EQ(ShownMasks(), expected[row].Masks);
                user_.Press(Key::Escape);
            });
            user_.DoubleClickRow(id::Rules, row);
        }
        Export(Exported(L"again"));
        EXPECT_EQ(files_.Content(Exported(L"again")), files_.Content(Exported(L"first")));
    }

    const std::unique_ptr<TestFiles> realFiles_ = MakeTestFiles();
};

TEST_F(RuleJourney, RulesOfEveryOperationSurviveSavingLoadingAndTheExchangeFile) {
    std::vector<Rule> expected;
    for (const std::wstring& code : OperationCodes()) {
        expected.push_back(Expected(code));
        expected.back().Descryption = L"Rule for " + code;  // the exchange file carries single lines only
    }
    user_.Expect<app::CBrisgateDlg>([&](app::CBrisgateDlg&) {
        for (const Rule& rule : expected) AddByHand(rule);
        ExportAndImportIntoTheOtherProfile();
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(app::CBrisgateDlg(editorServices_).DoModal(), ui::IdOk);

    user_.Expect<app::CBrisgateDlg>([&](app::CBrisgateDlg&) {
        for (const size_t profile : {0U, 1U}) {
            user_.ClickRow(id::Profiles, profile);
            ExpectRules(expected);
        }
        user_.PressCloseBox();  // nothing has changed
    });
    EXPECT_EQ(app::CBrisgateDlg(editorServices_).DoModal(), ui::IdCancel);

    const auto loaded = config::LoadConfiguration(store_, nullptr);
    ASSERT_TRUE(loaded);
    ASSERT_EQ(loaded->Profiles.size(), 2U);
    EXPECT_EQ(loaded->Profiles[0].Rules, expected);
    EXPECT_EQ(loaded->Profiles[1].Rules, expected);
}

}  // namespace
}  // namespace tests
