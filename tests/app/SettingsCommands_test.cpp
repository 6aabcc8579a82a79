// The commands of the main window that open the settings dialogs, and what becomes of their results.
#include <gtest/gtest.h>

#include "settings/ConfigPage.h"
#include "tests/settings/SettingsTest.h"

namespace tests {
namespace {

using app::CBrisgateDlg;
using settings::CConfigPage;
using settings::CConflictDlg;

class SettingsCommandsTest : public SettingsTest {
  protected:
    void SetUp() override { SeedSmallConfiguration(); }

    void ExpectLogSettings(const std::function<void(CConflictDlg&)>& script) { user_.Expect<CConflictDlg>(script); }
    void ExpectExtensions(const std::function<void(CConfigPage&)>& script) { user_.Expect<CConfigPage>(script); }
    void AddExtension(const std::wstring& text) {
        user_.Expect<settings::CAddExtDlg>([this, text](settings::CAddExtDlg&) {
            user_.Type(extid::Asked, text);
            user_.Click(ui::IdOk);
        });
        user_.Click(extid::Add);
    }
    std::wstring Stored(const std::wstring& name) {
        std::wstring text;
        EXPECT_TRUE(store_.Open(platform::RootKey::LocalMachine, ServiceRoot, {}));
        EXPECT_EQ(store_.ReadString(name, text, {}), config::ReadOutcome::Value);
        return text;
    }
    Texts StoredList(const std::wstring& name) {
        Texts texts;
        EXPECT_TRUE(store_.Open(platform::RootKey::LocalMachine, ServiceRoot, {}));
        EXPECT_TRUE(store_.ReadStringList(name, texts, {}));
        return texts;
    }
};

TEST_F(SettingsCommandsTest, LogSettingsAreTakenOverSavedAndLoadedAgain) {
    for (const bool byMenu : {false, true}) {
        const std::wstring folder = byMenu ? L"C:\\windows" : L"C:\\Logs\\\x0436";
        const std::wstring size = byMenu ? L"401" : L"5000";
        files_.AddFolder(folder);
        RunMain([&](CBrisgateDlg& dialog) {
            ExpectLogSettings([&](CConflictDlg& opened) {
                EXPECT_EQ(opened.Parent(), &dialog);
                user_.Type(logid::Path, folder);
                user_.Paste(logid::Size, size);
                user_.Press(Key::Enter);
            });
            byMenu ? user_.ChooseMenu(command::LogPath) : user_.Click(id::LogPath);
            user_.Click(id::Save);
            user_.PressCloseBox();
        });
        EXPECT_EQ(Stored(L"LogPath"), folder);
        EXPECT_EQ(StoredInteger(ServiceRoot, L"Log filesize"), byMenu ? 401 : 5000);
        RunMain([&](CBrisgateDlg&) {
            ExpectLogSettings([&](CConflictDlg&) {
                EXPECT_EQ(user_.Text(logid::Path), folder);
                EXPECT_EQ(user_.Text(logid::Size), size);
                user_.Press(Key::Escape);
            });
            user_.Click(id::LogPath);
            user_.PressCloseBox();
        });
    }
}

TEST_F(SettingsCommandsTest, OkInTheLogSettingsCountsAsAChangeEvenWithoutOne) {
    RunMain([&](CBrisgateDlg&) {
        ExpectLogSettings([&](CConflictDlg&) { user_.Click(ui::IdOk); });
        user_.Click(id::LogPath);
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

TEST_F(SettingsCommandsTest, GivenUpLogSettingsLeaveEverythingAsItWas) {
    RunMain([&](CBrisgateDlg&) {
        for (const int leave : {0, 1}) {
            ExpectLogSettings([&](CConflictDlg&) {
                EXPECT_EQ(user_.Text(logid::Path), L"C:\\Logs");
                EXPECT_EQ(user_.Text(logid::Size), L"4000");
                user_.Type(logid::Path, L"C:\\windows");
                user_.Paste(logid::Size, L"500");
                leave == 0 ? user_.Click(ui::IdCancel) : user_.PressCloseBox();
            });
            user_.ChooseMenu(command::LogPath);
        }
        user_.PressCloseBox();  // without a question
    });
}

TEST_F(SettingsCommandsTest, TheDialogOpensWithTheValuesTakenOverLast) {
    RunMain([&](CBrisgateDlg&) {
        ExpectLogSettings([&](CConflictDlg&) {
            user_.Paste(logid::Size, L"900");
            user_.Click(ui::IdOk);
        });
        user_.Click(id::LogPath);
        ExpectLogSettings([&](CConflictDlg&) {
            EXPECT_EQ(user_.Text(logid::Size), L"900");
            user_.Click(ui::IdCancel);
        });
        user_.Click(id::LogPath);
        ExpectLeaveQuestion(ui::IdYes);  // giving up later does not undo what was taken over
        user_.PressCloseBox();
    });
}

TEST_F(SettingsCommandsTest, AStoredSizeThatIsTooSmallOpensAs400) {
    Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nLog filesize = 100\n");
    RunMain([&](CBrisgateDlg&) {
        ExpectLogSettings([&](CConflictDlg&) {
            EXPECT_EQ(user_.Text(logid::Size), L"400");
            user_.Click(ui::IdOk);
        });
        user_.Click(id::LogPath);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(StoredInteger(ServiceRoot, L"Log filesize"), 400);
}

TEST_F(SettingsCommandsTest, ExtensionsAreTakenOverSavedAndLoadedAgain) {
    Seed("[HKEY_LOCAL_MACHINE\\SOFTWARE\\TALVERON\\morcelservice]\nExtExt = { \"zz\", \"edi\" }\n");
    const std::vector<std::pair<int, std::wstring>> names{
        {extid::Signed, L"SigExt"},     {extid::Detached, L"DsigExt"},   {extid::Encrypted, L"EncExt"},
        {extid::Base64, L"B64Ext"},     {extid::Hash, L"HashExt"},       {extid::Report, L"VerifyFileExt"},
        {extid::Zip, L"ZIPArchiveExt"}, {extid::Gzip, L"GZIPArchiveExt"}};
    const auto newText = [](int edit) { return L"\x0436" + std::to_wstring(edit); };
    RunMain([&](CBrisgateDlg& dialog) {
        ExpectExtensions([&](CConfigPage& opened) {
            EXPECT_EQ(opened.Parent(), &dialog);
            for (const auto& [edit, name] : names) user_.Type(edit, newText(edit));
            AddExtension(L"\x4E2D");
            user_.Click(extid::Apply);
            user_.Click(ui::IdOk);
        });
        user_.ChooseMenu(command::Configurations);
        user_.Click(id::Save);
        user_.PressCloseBox();
    });
    for (const auto& [edit, name] : names) EXPECT_EQ(Stored(name), newText(edit));
    EXPECT_EQ(StoredList(L"ExtExt"), (Texts{L"edi", L"zz", L"\x4E2D"}));
    EXPECT_EQ(Stored(L"LogPath"), L"C:\\Logs");
    RunMain([&](CBrisgateDlg&) {
        ExpectExtensions([&](CConfigPage&) {
            for (const auto& [edit, name] : names) EXPECT_EQ(user_.Text(edit), newText(edit));
            EXPECT_EQ(user_.Get<ui::ListBox>(extid::Additional).Items(), (Texts{L"edi", L"zz", L"\x4E2D"}));
            user_.Click(ui::IdCancel);
        });
        user_.ChooseMenu(command::Configurations);
        user_.PressCloseBox();
    });
}

TEST_F(SettingsCommandsTest, AnEmptyExtensionTakenOverByOkIsSaved) {
    RunMain([&](CBrisgateDlg&) {
        ExpectExtensions([&](CConfigPage&) {
            user_.Type(extid::Signed, L"");
            AddExtension(L"lost");
            ExpectLeaveQuestion(ui::IdYes);
            user_.Click(ui::IdOk);
        });
        user_.ChooseMenu(command::Configurations);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(Stored(L"SigExt"), L"");
    EXPECT_EQ(StoredList(L"ExtExt"), Texts());
}

TEST_F(SettingsCommandsTest, OkInTheExtensionsCountsAsAChangeEvenWithoutOne) {
    RunMain([&](CBrisgateDlg&) {
        ExpectExtensions([&](CConfigPage&) { user_.Click(ui::IdOk); });
        user_.ChooseMenu(command::Configurations);
        ExpectLeaveQuestion(ui::IdYes);
        user_.PressCloseBox();
    });
}

TEST_F(SettingsCommandsTest, GivenUpExtensionsLeaveEverythingAsItWas) {
    RunMain([&](CBrisgateDlg&) {
        for (int round = 0; round < 2; ++round) {
            ExpectExtensions([&](CConfigPage&) {
                EXPECT_EQ(user_.Text(extid::Signed), L"p7s");
                EXPECT_TRUE(user_.Get<ui::ListBox>(extid::Additional).Items().empty());
                user_.Type(extid::Signed, L"x");
                AddExtension(L"lost");
                user_.Click(extid::Apply);
                user_.Press(Key::Escape);
            });
            user_.ChooseMenu(command::Configurations);
        }
        user_.PressCloseBox();  // without a question
    });
}

}  // namespace
}  // namespace tests
