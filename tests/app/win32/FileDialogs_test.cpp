// The file dialogs of each command as the system shows them, and what they make of a name that the user
// types.
#include "tests/app/CertificateJourney.h"
#include "tests/support/win32/Win32Robot.h"

namespace tests {
namespace {

using Texts = std::vector<std::wstring>;

constexpr wchar_t allFiles[] = L"All files (*.*)";

class FileDialogs : public CertificateJourney {
  protected:
    // The dialog that opened last.
    const SeenPicker& Seen() const { return dynamic_cast<const Win32Robot&>(user_).LastPicker(); }
    void ExpectSeen(const std::wstring& filter, const std::wstring& name) const {
        EXPECT_EQ(Seen().filters, (Texts{filter, allFiles}));
        EXPECT_EQ(Seen().filter, filter);
        EXPECT_EQ(Seen().name, name);
        EXPECT_FALSE(Seen().hasReadOnlyBox);
    }
};

TEST_F(FileDialogs, OfExportingAndImportingRules) {
    constexpr wchar_t rulesFiles[] = L"Profiles (*.prx)";
    SeedEncryptingRule();
    RunProgram([&] {
        user_.ExpectFilePicker(ui::FilePickerKind::Save, Path(L"of alpha"));
        user_.Click(id::ExportRules);
        ExpectSeen(rulesFiles, L"Alpha");
        EXPECT_TRUE(files_->Content(Path(L"of alpha.prx")).value().starts_with("ENCR\nC:\\In\n"));

        user_.ExpectFilePicker(ui::FilePickerKind::Open, Path(L"of alpha.prx"));
        user_.Click(id::ImportRules);
        ExpectSeen(rulesFiles, L"");
        EXPECT_EQ(user_.RowCount(id::Rules), 2U);

        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

TEST_F(FileDialogs, OfUserGroups) {
    constexpr wchar_t groupFiles[] = L"User groups files (*.grx)";
    SeedEncryptingRule();
    files_->Put(Path(L"guests.grx"), "CN=Guest,O=Elsewhere\r\n");
    WithTheRule([&] {
        OpenPicker([&] {
            AddFromLocalStore();
            user_.Click(pickid::SelectAll);
            SaveGroup(Path(L"team"));
            ExpectSeen(groupFiles, L"New group.grx");
            EXPECT_FALSE(files_->Content(Path(L"team.grx")).value().empty());

            OpenGroup(Path(L"guests.grx"));
            ExpectSeen(groupFiles, L"team.grx");
            EXPECT_EQ(Seen().folder, files_->Folder());
            EXPECT_EQ(Candidates().back(), L"CN=Guest,O=Elsewhere");

            user_.Click(pickid::SelectAll);
            SaveGroup(std::nullopt);
            ExpectSeen(groupFiles, L"guests.grx");
            EXPECT_EQ(Seen().folder, files_->Folder());
            user_.Click(ui::IdCancel);
        });
    });
}

TEST_F(FileDialogs, OfTheExecutable) {
    constexpr int execute = 23;
    SeedEncryptingRule();
    files_->Put(Path(L"program"), "a program");
    WithTheRule([&] {
        user_.Choose(ruleid::Operation, execute);
        user_.ExpectFilePicker(ui::FilePickerKind::Open, Path(L"program"));
        user_.Click(ruleid::ActionButton);
        EXPECT_EQ(Seen().filters, Texts{allFiles});
        EXPECT_EQ(Seen().filter, allFiles);
        EXPECT_EQ(Seen().name, L"");
        EXPECT_FALSE(Seen().hasReadOnlyBox);
        EXPECT_EQ(ActionField(), Path(L"program"));  // with no extension put behind it
    });
}

}  // namespace
}  // namespace tests
