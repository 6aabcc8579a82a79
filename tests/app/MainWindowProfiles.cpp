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

MainWindowProfilesTest::Texts MainWindowProfilesTest::Profiles() const {
    Texts names;
    for (size_t row = 0; row < user_.RowCount(id::Profiles); ++row)
        names.push_back(user_.Row(id::Profiles, row).at(0));
    return names;
}

void MainWindowProfilesTest::ExpectProfileCommands(const app::CBrisgateDlg& dialog, bool enabled) {
    for (const int control :
         {1023, 1037, 1024, 1025, 1026, 1027, 1028, 1029, 1032, 1033, 1034, 1035, 1041, 1042, 1030})
        EXPECT_EQ(dialog.Find(control).IsEnabled(), enabled) << control;
    for (const ui::Menu& menu : dialog.MenuBar())
        for (const ui::MenuItem& item : menu.items) {
            const bool always = menu.title == L"File" || item.command == command::AddProfile;
            EXPECT_EQ(item.enabled, always || enabled) << item.command;
        }
}

void MainWindowProfilesTest::LeaveChanged() {
    user_.ExpectBox(boxes::LeaveText, boxes::Question, ui::IdYes, boxes::Title);
    user_.PressCloseBox();
}

void MainWindowProfilesTest::ExpectNaming(const std::wstring& name) {
    ExpectEditor([this, name](editors::CAddProfile&) {
        user_.Type(NameField, name);
        user_.Click(ui::IdOk);
    });
}

}  // namespace tests
