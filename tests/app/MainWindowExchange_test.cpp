// Exporting and importing rules, as the user does it in the main window.
#include "tests/app/MainWindowRules.h"

#include "tests/config/ExchangeText.h"

namespace tests {
namespace {

class MainWindowExchange : public MainWindowRulesTest {
  protected:
    static std::string RecordNamed(const std::string& description) {
        return Record({{field::Operation, "HASH"}, {field::IsOn, "1"}, {field::Descryption, description}});
    }
    void ExpectOpening(const std::optional<std::wstring>& path) {
        user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
    }
};

TEST_F(MainWindowExchange, ImportedRulesFollowAndTheLastOneIsSelected) {
    const std::wstring path = Put(L"two.prx", RecordNamed("f") + RecordNamed("g"));
    for (const bool byMenu : {false, true}) {
        Run([&] {
            Select({1});
            ExpectOpening(path);
            Give(byMenu, command::ImportRules, id::ImportRules);
            EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"d", L"e", L"f", L"g"}));
            ExpectShown(6);
            SaveChanged();
        });
        EXPECT_EQ(StoredRules().size(), 7U);
    }
}

TEST_F(MainWindowExchange, AnImportWithoutARecordChangesNothing) {
    const std::wstring path = Put(L"none.prx", "no record\n\r");
    Run([&] {
        Select({1});
        ExpectOpening(path);
        user_.Click(id::ImportRules);
        ExpectOpening(std::nullopt);
        user_.Click(id::ImportRules);
        EXPECT_EQ(List().SelectedRows(), Rows{1});
        EXPECT_FALSE(List().HasFocus());
        EXPECT_EQ(Descriptions().size(), 5U);
        LeaveUnchanged();
    });
}

TEST_F(MainWindowExchange, AFailedImportIsReportedAndChangesNothing) {
    const std::wstring path = Put(L"busy.prx", RecordNamed("f"));
    platform::FileHandle writer{};
    ASSERT_EQ(files_->Files().Create(path, writer), 0U);
    Run([&] {
        Select({1});
        ExpectOpening(path);
        user_.ExpectBoxBeginning(L"Opening file " + path, ui::box::ErrorIcon, ui::IdOk);
        user_.Click(id::ImportRules);
        EXPECT_EQ(List().SelectedRows(), Rows{1});
        EXPECT_FALSE(List().HasFocus());
        EXPECT_EQ(Descriptions().size(), 5U);
        LeaveUnchanged();
    });
    EXPECT_EQ(files_->Files().Close(writer), 0U);
}

TEST_F(MainWindowExchange, UnderASearchTheLastRowIsSelected) {
    const std::wstring path = Put(L"two.prx", RecordNamed("d too") + RecordNamed("f"));
    Run([&] {
        user_.Type(id::Search, L"d");
        ExpectOpening(path);
        user_.Click(id::ImportRules);
        EXPECT_EQ(Descriptions(), (Texts{L"d", L"d too"}));
        ExpectShown(1);
        user_.Type(id::Search, L"nothing of this kind");
        ExpectOpening(path);
        user_.Click(id::ImportRules);
        ExpectNoneSelected();
        LeaveChanged();
    });
}

TEST_F(MainWindowExchange, ExportedRulesAreNoChange) {
    const std::wstring path = files_->Folder() + L"\\exported.prx";
    for (const bool byMenu : {false, true}) {
        Run([&] {
            user_.ExpectFilePicker(ui::FilePickerKind::Save, path);
            Give(byMenu, command::ExportRules, id::ExportRules);
            EXPECT_EQ(user_.LastFilePicker().initialPath, L"Alpha");
            LeaveUnchanged();
        });
        rules_.pop_back();
    }
    Run([&] {
        ExpectOpening(path);
        user_.Click(id::ImportRules);
        EXPECT_EQ(Descriptions(), (Texts{L"a", L"b", L"c", L"a", L"b", L"c", L"d"}));
        LeaveChanged();
    });
}

}  // namespace
}  // namespace tests
