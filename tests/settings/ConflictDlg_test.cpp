#include "settings/ConflictDlg.h"

#include <gtest/gtest.h>

#include "tests/settings/SettingsTest.h"

namespace tests {
namespace {

using settings::CConflictDlg;

class ConflictDlgTest : public SettingsTest {
  protected:
    int Run(const std::function<void(CConflictDlg&)>& script) {
        CConflictDlg dialog(settingsServices_, nullptr, given_, givenSize_);
        user_.Expect<CConflictDlg>(script);
        const int result = dialog.DoModal();
        path_ = dialog.LogPath();
        size_ = dialog.LogFilesize();
        return result;
    }
    // The report of a path that is refused with the code.
    void ExpectReport(const std::wstring& path, platform::Win32Code code) {
        const std::wstring text = world_->Machine().SystemMessages.SystemText(code);
        const std::wstring start = L"Opening file " + path + L".\r\nError 0x" + std::to_wstring(code) + L" - ";
        const std::wstring described =
            text.empty() ? L"Error description not found" : text.substr(0, text.find_last_not_of(L".\r\n") + 1);
        user_.ExpectBox(start + described + L".Bad Log path.", ui::box::Ok | ui::box::ErrorIcon, ui::IdOk,
                        boxes::Title);
    }
    void ExpectRefused(CConflictDlg& dialog, const std::wstring& path, platform::Win32Code code) {
        user_.Type(logid::Path, path);
        ExpectReport(path, code);
        user_.Click(ui::IdOk);
        EXPECT_FALSE(dialog.HasEnded());
        EXPECT_EQ(user_.Text(logid::Path), path);
        EXPECT_EQ(dialog.Focus(), &dialog.Find(logid::Path));
    }

    std::wstring given_ = L"C:\\Logs";
    int32_t givenSize_ = 4000;
    std::wstring path_;
    int32_t size_ = 0;
};

TEST_F(ConflictDlgTest, ThePathTakesNoMoreThanTheRegistryGivesBack) {
    given_ = L"C:\\" + std::wstring(600, L'x');
    Run([&](CConflictDlg&) {
        EXPECT_EQ(user_.Text(logid::Path), given_);
        user_.Paste(logid::Path, std::wstring(600, L'x'));
        EXPECT_EQ(user_.Text(logid::Path), std::wstring(519, L'x'));
        user_.Click(ui::IdCancel);
    });
}

TEST_F(ConflictDlgTest, OpensWithWhatItWasGiven) {
    Run([&](CConflictDlg&) {
        EXPECT_EQ(user_.Text(logid::Path), L"C:\\Logs");
        EXPECT_EQ(user_.Text(logid::Size), L"4000");
        EXPECT_EQ(user_.TabOrder(), (std::vector<int>{logid::Path, logid::Size, ui::IdOk, ui::IdCancel, logid::Pick}));
        user_.Press(Key::Escape);
    });
}

TEST_F(ConflictDlgTest, OkAcceptsAFolderThatExists) {
    files_.AddFolder(L"D:\\\x0436\x4E2D logs");
    const int result = Run([&](CConflictDlg&) {
        user_.Type(logid::Path, L"D:\\\x0436\x4E2D logs");
        user_.Paste(logid::Size, L"5000");
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(path_, L"D:\\\x0436\x4E2D logs");
    EXPECT_EQ(size_, 5000);
}

TEST_F(ConflictDlgTest, OkAcceptsWhatWasGiven) {
    EXPECT_EQ(Run([&](CConflictDlg&) { user_.Click(ui::IdOk); }), ui::IdOk);
    EXPECT_EQ(path_, L"C:\\Logs");
    EXPECT_EQ(size_, 4000);
}

TEST_F(ConflictDlgTest, ASmallerSizeBecomes400WhileItIsTyped) {
    const int result = Run([&](CConflictDlg&) {
        user_.Type(logid::Size, L"3");
        EXPECT_EQ(user_.Text(logid::Size), L"400");
        user_.Type(logid::Size, L"300");
        EXPECT_EQ(user_.Text(logid::Size), L"400");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(size_, 400);
}

TEST_F(ConflictDlgTest, TheSizeSaysAlwaysWhatOkWillTake) {
    const std::vector<std::pair<std::wstring, std::wstring>> pasted{{L"", L"400"},
                                                                    {L"0", L"400"},
                                                                    {L"399", L"400"},
                                                                    {L"400", L"400"},
                                                                    {L"401", L"401"},
                                                                    {L"0500", L"500"},
                                                                    {L"2147483647", L"2147483647"},
                                                                    {L"2147483648", L"2147483647"},
                                                                    {L"99999999999999999999", L"2147483647"}};
    for (const auto& [text, shown] : pasted) {
        Run([&, text = text, shown = shown](CConflictDlg&) {
            user_.Paste(logid::Size, text);
            EXPECT_EQ(user_.Text(logid::Size), shown);
            user_.Click(ui::IdOk);
        });
        EXPECT_EQ(std::to_wstring(size_), shown);
    }
}

TEST_F(ConflictDlgTest, TheSizeIsEmptiedTo400) {
    Run([&](CConflictDlg&) {
        user_.Type(logid::Size, L"");
        EXPECT_EQ(user_.Text(logid::Size), L"400");
        user_.Press(Key::Escape);
    });
}

// Whatever puts it there: the field itself refuses such keys.
TEST_F(ConflictDlgTest, ATextThatIsNoSizeBecomesOne) {
    Run([&](CConflictDlg&) {
        auto& size = user_.Get<ui::Edit>(logid::Size);
        size.UserTyped(L"-5000");
        EXPECT_EQ(size.Text(), L"400");
        size.UserTyped(L"big");
        EXPECT_EQ(size.Text(), L"400");
        size.UserTyped(L"700 KB");
        EXPECT_EQ(size.Text(), L"700");
        user_.Press(Key::Escape);
    });
}

TEST_F(ConflictDlgTest, ASizeGivenTooSmallIsRefusedByOk) {
    givenSize_ = 399;
    Run([&](CConflictDlg& dialog) {
        EXPECT_EQ(user_.Text(logid::Size), L"399");
        user_.ExpectBox(L"Log files size must be bigger than 400 KB.", boxes::Hint, ui::IdOk,
                        L"ZEMA automized client QLD: Service");
        user_.Click(ui::IdOk);
        EXPECT_FALSE(dialog.HasEnded());
        EXPECT_EQ(dialog.Focus(), &dialog.Find(logid::Size));
        user_.Press(Key::Escape);
    });
    EXPECT_EQ(size_, 399);
    givenSize_ = 400;
    EXPECT_EQ(Run([&](CConflictDlg&) { user_.Click(ui::IdOk); }), ui::IdOk);
}

TEST_F(ConflictDlgTest, AFolderThatDoesNotExistIsRefused) {
    Run([&](CConflictDlg& dialog) {
        ExpectRefused(dialog, L"C:\\Missing", 2);
        ExpectRefused(dialog, L"C:\\Missing\\Logs", 3);
        ExpectRefused(dialog, L"", 3);
        user_.Press(Key::Escape);
    });
    EXPECT_EQ(path_, L"C:\\Logs");
}

TEST_F(ConflictDlgTest, AFolderWithoutDriveOrServerIsRefused) {
    files_.AddFolder(L"Logs");
    files_.AddFolder(L"\\Logs");
    files_.AddFolder(L"\\\\server\\Logs");
    Run([&](CConflictDlg& dialog) {
        ExpectRefused(dialog, L"Logs", 3);
        ExpectRefused(dialog, L"\\Logs", 3);
        user_.Type(logid::Path, L"\\\\server\\Logs");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(path_, L"\\\\server\\Logs");
}

TEST_F(ConflictDlgTest, ThePathIsCheckedBeforeTheSizeAndTheSizeBeforeTheDrive) {
    givenSize_ = 10;
    files_.AddFolder(L"Logs");
    Run([&](CConflictDlg& dialog) {
        ExpectRefused(dialog, L"C:\\Missing", 2);
        user_.Type(logid::Path, L"Logs");
        user_.ExpectBox(L"Log files size must be bigger than 400 KB.", boxes::Hint, ui::IdOk);
        user_.Click(ui::IdOk);
        user_.Press(Key::Escape);
    });
}

TEST_F(ConflictDlgTest, TheCodeOfAFileThatExistsIsNoRefusal) {
    files_.FailAll(platform::memory::FileCall::CheckPathExists, platform::code::FileExists);
    EXPECT_EQ(Run([&](CConflictDlg&) {
                  user_.ExpectFolderPicker(L"C:\\windows");
                  user_.Click(logid::Pick);
                  user_.Click(ui::IdOk);
              }),
              ui::IdOk);
    EXPECT_EQ(path_, L"C:\\windows");
    files_.FailAll(platform::memory::FileCall::CheckPathExists, platform::code::AccessDenied);
    Run([&](CConflictDlg&) {
        ExpectReport(L"C:\\Logs", 5);
        user_.Click(ui::IdOk);
        user_.Press(Key::Escape);
    });
}

TEST_F(ConflictDlgTest, ThePickedFolderGoesIntoTheField) {
    const int result = Run([&](CConflictDlg&) {
        user_.Paste(logid::Size, L"777");
        user_.ExpectFolderPicker(std::nullopt);
        user_.Click(logid::Pick);
        EXPECT_EQ(user_.Text(logid::Path), L"C:\\Logs");
        user_.ExpectFolderPicker(L"C:\\windows");
        user_.Click(logid::Pick);
        EXPECT_EQ(user_.LastPickedFrom(), L"C:\\Logs");
        EXPECT_EQ(user_.Text(logid::Path), L"C:\\windows");
        EXPECT_EQ(user_.Text(logid::Size), L"777");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(path_, L"C:\\windows");
    EXPECT_EQ(size_, 777);
}

TEST_F(ConflictDlgTest, APickedFolderThatIsGoneIsReportedAndGoesIntoTheFieldAllTheSame) {
    files_.Remove(L"C:\\windows");
    Run([&](CConflictDlg&) {
        user_.ExpectFolderPicker(L"C:\\windows");
        ExpectReport(L"C:\\windows", 2);
        user_.Click(logid::Pick);
        EXPECT_EQ(user_.Text(logid::Path), L"C:\\windows");
        user_.Press(Key::Escape);
    });
}

TEST_F(ConflictDlgTest, AFolderThatVanishesBetweenPickingAndOkIsRefused) {
    Run([&](CConflictDlg& dialog) {
        user_.ExpectFolderPicker(L"C:\\windows");
        user_.Click(logid::Pick);
        files_.Remove(L"C:\\windows");
        ExpectReport(L"C:\\windows", 2);
        user_.Click(ui::IdOk);
        EXPECT_FALSE(dialog.HasEnded());
        EXPECT_EQ(user_.Text(logid::Path), L"C:\\windows");
        files_.AddFolder(L"C:\\windows");
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(path_, L"C:\\windows");
}

TEST_F(ConflictDlgTest, CanBeUsedWithTheKeyboardAlone) {
    const int result = Run([&](CConflictDlg& dialog) {
        EXPECT_EQ(dialog.Focus(), &dialog.Find(logid::Path));
        for (size_t stop = 1; stop < 5; ++stop) user_.Press(Key::Tab);
        EXPECT_EQ(dialog.Focus(), &dialog.Find(logid::Pick));
        user_.ExpectFolderPicker(L"C:\\windows");
        user_.Press(Key::Space);
        user_.Press(Key::Tab);
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(path_, L"C:\\windows");
}

TEST_F(ConflictDlgTest, EveryOtherWayOutGivesUp) {
    const std::vector<std::function<void()>> waysOut{
        [this] { user_.Click(ui::IdCancel); }, [this] { user_.Press(Key::Escape); }, [this] { user_.PressCloseBox(); }};
    for (const auto& leave : waysOut) {
        EXPECT_EQ(Run([&](CConflictDlg&) {
                      user_.Type(logid::Path, L"C:\\");
                      user_.Paste(logid::Size, L"500");
                      leave();
                  }),
                  ui::IdCancel);
        EXPECT_EQ(path_, L"C:\\Logs");
        EXPECT_EQ(size_, 4000);
    }
}

}  // namespace
}  // namespace tests
