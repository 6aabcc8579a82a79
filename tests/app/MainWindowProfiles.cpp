#include "tests/app/MainWindowProfiles.h"

namespace tests {

void MainWindowProfilesTest::SeedProfiles(const Texts& names) {
    for (const std::wstring& wideName : names) {
        const std::string name(wideName.begin(), wideName.end());
        const std::string key = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice\\" + name;
        Seed(key + "]\nZCSProfile = { \"Office\" }\n\n" + key +
             "\\rules\\Rule 0]\nOperation = \"DELE\"\nDescryption = \"of " + name + "\"\n");
    }
}

void MainWindowProfilesTest::ExpectProfileCommands(const app::CBrisgateDlg& dialog, bool enabled) {
    for (const int control : id::NeedProfile) EXPECT_EQ(dialog.Find(control).IsEnabled(), enabled) << control;
    for (const ui::Menu& menu : dialog.MenuBar())
        for (const ui::MenuItem& item : menu.items) {
            const bool always = menu.title == L"File" || item.command == command::AddProfile;
            EXPECT_EQ(item.enabled, always || enabled) << item.command;
        }
}

void MainWindowProfilesTest::DeleteOffice() {
    ExpectQuestion(
        L"Rule(s) '1' of profile 'Alpha' are using sertificates of CS profile 'Office'.\r\n"
        L"Validation of these rules will be nessesary for proper work.\r\n"
        L"Delete CS profile 'Office' from list?",
        ui::IdYes);
    user_.Click(profileid::Delete);
}

void MainWindowProfilesTest::ExpectNaming(const std::wstring& name) {
    ExpectEditor([this, name](editors::CAddProfile&) {
        user_.Type(profileid::Name, name);
        user_.Click(ui::IdOk);
    });
}

}  // namespace tests
