#include "settings/ConfigPage.h"

#include <gtest/gtest.h>

#include "tests/settings/SettingsTest.h"

namespace tests {
namespace {

using settings::CAddExtDlg;
using settings::CConfigPage;

constexpr wchar_t missingSigned[] = L"Please, choose extension for files with attached signature.";
const std::vector<int> edits{extid::Signed, extid::Detached, extid::Encrypted, extid::Base64,
                             extid::Hash,   extid::Report,   extid::Zip,       extid::Gzip};

class ConfigPageTest : public SettingsTest {
  protected:
    ConfigPageTest() {
        given_.ExtExt = {L"xml", L"DOC", L"edi"};
        given_.LogPath = L"C:\\Logs";
    }

    int Run(const std::function<void(CConfigPage&)>& script) {
        CConfigPage dialog(world_->Screen(), nullptr, given_);
        user_.Expect<CConfigPage>(script);
        const int result = dialog.DoModal();
        result_ = dialog.Result();
        return result;
    }
    void AddExtension(const std::wstring& text) {
        user_.Expect<CAddExtDlg>([this, text](CAddExtDlg& dialog) {
            EXPECT_EQ(dialog.Caption(), L"Add additional extension:");
            user_.Type(extid::Asked, text);
            user_.Press(Key::Enter);
        });
        user_.Click(extid::Add);
    }
    void DeleteExtension(int index, const std::wstring& name, int answer) {
        user_.Choose(extid::Additional, index);
        ExpectQuestion(L"Delete additional extension '" + name + L"'?", answer);
        user_.Click(extid::Delete);
    }
    const Texts& Additional() { return user_.Get<ui::ListBox>(extid::Additional).Items(); }
    // Whether anything was changed since the last Apply, as the way out by OK tells; stays in the dialog.
    bool IsModified() {
        ExpectLeaveQuestion(ui::IdNo);
        user_.Click(ui::IdOk);
        return !user_.Top().HasEnded();
    }
    void LeaveModified() {
        ExpectLeaveQuestion(ui::IdYes);
        user_.Click(ui::IdOk);
    }
    Texts Basic() const {
        return {result_.SigExt,  result_.DsigExt,       result_.EncExt,        result_.B64Ext,
                result_.HashExt, result_.VerifyFileExt, result_.ZIPArchiveExt, result_.GZIPArchiveExt};
    }

    config::GlobalSettings given_;
    config::GlobalSettings result_;
};

TEST_F(ConfigPageTest, ExtensionsTakeNoMoreThanTheRegistryGivesBack) {
    Run([this](CConfigPage&) {
        for (const int edit : edits) {
            user_.Paste(edit, std::wstring(600, L'x'));
            EXPECT_EQ(user_.Text(edit), std::wstring(519, L'x')) << edit;
        }
        LeaveModified();
    });
}

TEST_F(ConfigPageTest, OpensWithWhatItWasGiven) {
    Run([&](CConfigPage&) {
        Texts basic;
        for (const int edit : edits) basic.push_back(user_.Text(edit));
        EXPECT_EQ(basic, (Texts{L"p7s", L"p7d", L"p7e", L"b64", L"hsh", L"vrf", L"zip", L"gz"}));
        EXPECT_EQ(user_.Get<ui::IconButton>(extid::Add).Icon(), ui::Icon::ItemAdd);
        EXPECT_EQ(user_.Get<ui::IconButton>(extid::Delete).Icon(), ui::Icon::ItemDelete);
        EXPECT_EQ(user_.TabOrder(), (std::vector<int>{250, 253, 255, 259, 268, 1079, 1080, 1134, 275, 261, 263,
                                                      ui::IdOk, ui::IdCancel, 1000}));
        user_.Press(Key::Escape);
    });
}

TEST_F(ConfigPageTest, ShowsTheAdditionalExtensionsInAlphabeticalOrder) {
    Run([&](CConfigPage&) {
        EXPECT_EQ(Additional(), (Texts{L"DOC", L"edi", L"xml"}));
        AddExtension(L"zz");
        AddExtension(L"aa");
        EXPECT_EQ(Additional(), (Texts{L"aa", L"DOC", L"edi", L"xml", L"zz"}));
        user_.Click(ui::IdCancel);
    });
}

TEST_F(ConfigPageTest, OkTakesTheFormWhenNothingChanged) {
    EXPECT_EQ(Run([&](CConfigPage&) { user_.Press(Key::Enter); }), ui::IdOk);
    EXPECT_EQ(result_, given_);  // the additional ones in the order in which they came
}

TEST_F(ConfigPageTest, EachFieldGoesItsOwnWay) {
    Run([&](CConfigPage&) {
        for (const int edit : edits) user_.Type(edit, L"x" + std::to_wstring(edit));
        LeaveModified();
    });
    EXPECT_EQ(Basic(), (Texts{L"x250", L"x253", L"x255", L"x259", L"x268", L"x1079", L"x1080", L"x1134"}));
    EXPECT_EQ(result_.ExtExt, given_.ExtExt);
    EXPECT_EQ(result_.LogPath, L"C:\\Logs");
}

TEST_F(ConfigPageTest, ApplyTakesTheSortedListAndNothingIsModifiedAnyMore) {
    const int result = Run([&](CConfigPage&) {
        AddExtension(L"aa");
        user_.Type(extid::Signed, L"sig");
        user_.Click(extid::Apply);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(result_.ExtExt, (Texts{L"aa", L"DOC", L"edi", L"xml"}));
    EXPECT_EQ(result_.SigExt, L"sig");
}

TEST_F(ConfigPageTest, AnUnchangedListIsNotSortedByApply) {
    Run([&](CConfigPage&) {
        user_.Click(extid::Apply);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result_.ExtExt, given_.ExtExt);
}

TEST_F(ConfigPageTest, TypingInAnyFieldModifies) {
    for (const int edit : edits)
        Run([&](CConfigPage&) {
            user_.Type(edit, L"x");
            EXPECT_TRUE(IsModified()) << edit;
            user_.Click(extid::Apply);
            user_.Type(edit, L"y");
            EXPECT_TRUE(IsModified()) << edit << " after Apply";
            user_.Press(Key::Escape);
        });
}

TEST_F(ConfigPageTest, TypingWhatWasThereModifiesToo) {
    Run([&](CConfigPage&) {
        user_.Type(extid::Signed, L"p7s");
        EXPECT_TRUE(IsModified());
        user_.Press(Key::Escape);
    });
}

TEST_F(ConfigPageTest, ApplyTellsTheFirstMissingExtensionAndTakesNothing) {
    const std::vector<std::pair<int, std::wstring>> refusals{
        {extid::Report, L"Please, choose extension for files with signature verification report."},
        {extid::Hash, L"Please, choose extension for hash files."},
        {extid::Base64, L"Please, choose extension for b64 files."},
        {extid::Encrypted, L"Please, choose extension for encrypted files."},
        {extid::Detached, L"Please, choose extension for files with detached signature."},
        {extid::Signed, missingSigned}};
    Run([&](CConfigPage& dialog) {
        AddExtension(L"aa");
        user_.Type(extid::Zip, L"");
        user_.Type(extid::Gzip, L"");
        for (const auto& [edit, text] : refusals) {
            user_.Type(edit, L"");
            ExpectHint(text);
            user_.Click(extid::Apply);
            EXPECT_FALSE(dialog.HasEnded());
            EXPECT_EQ(dialog.Focus(), &dialog.Find(edit));
        }
        EXPECT_EQ(Additional(), (Texts{L"aa", L"DOC", L"edi", L"xml"}));
        LeaveModified();
    });
    EXPECT_EQ(Basic(), Texts(8));
    EXPECT_EQ(result_.ExtExt, given_.ExtExt);
}

TEST_F(ConfigPageTest, ArchivesNeedNoExtension) {
    Run([&](CConfigPage&) {
        user_.Type(extid::Zip, L"");
        user_.Type(extid::Gzip, L"");
        user_.Click(extid::Apply);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result_.ZIPArchiveExt, L"");
    EXPECT_EQ(result_.GZIPArchiveExt, L"");
}

TEST_F(ConfigPageTest, ApplyChecksOnlyWhatWasModified) {
    given_.SigExt = L"";
    Run([&](CConfigPage&) {
        user_.Click(extid::Apply);
        user_.Type(extid::Zip, L"z");
        ExpectHint(missingSigned);
        user_.Click(extid::Apply);
        LeaveModified();
    });
}

TEST_F(ConfigPageTest, NothingElseIsChecked) {
    const std::wstring odd = L" .*\x0436\x4E2D";
    Run([&](CConfigPage&) {
        for (const int edit : edits) user_.Type(edit, odd);
        user_.Click(extid::Apply);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(Basic(), Texts(8, odd));
}

TEST_F(ConfigPageTest, OkWithAnEmptyFieldAsksAndTakesItOver) {
    const int result = Run([&](CConfigPage& dialog) {
        user_.Type(extid::Signed, L"");
        ExpectLeaveQuestion(ui::IdNo);
        user_.Press(Key::Enter);
        EXPECT_FALSE(dialog.HasEnded());
        EXPECT_EQ(user_.Text(extid::Signed), L"");
        LeaveModified();
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(result_.SigExt, L"");
}

TEST_F(ConfigPageTest, OkDropsListChangesSinceTheLastApply) {
    Run([&](CConfigPage&) {
        AddExtension(L"aa");
        LeaveModified();
    });
    EXPECT_EQ(result_.ExtExt, given_.ExtExt);
    Run([&](CConfigPage&) {
        AddExtension(L"aa");
        user_.Click(extid::Apply);
        AddExtension(L"bb");
        DeleteExtension(0, L"aa", ui::IdYes);
        LeaveModified();
    });
    EXPECT_EQ(result_.ExtExt, (Texts{L"aa", L"DOC", L"edi", L"xml"}));
}

TEST_F(ConfigPageTest, AnExtensionThatIsThereIsSilentlyNotAddedAgain) {
    const int result = Run([&](CConfigPage&) {
        for (const wchar_t* known : {L"xml", L"XML", L" Xml ", L"doc"}) AddExtension(known);
        EXPECT_EQ(Additional(), (Texts{L"DOC", L"edi", L"xml"}));
        user_.Click(ui::IdOk);  // no question: nothing was changed
    });
    EXPECT_EQ(result, ui::IdOk);
}

TEST_F(ConfigPageTest, GivingUpAddingChangesNothing) {
    Run([&](CConfigPage&) {
        user_.Expect<CAddExtDlg>([this](CAddExtDlg&) {
            user_.Type(extid::Asked, L"new");
            user_.Press(Key::Escape);
        });
        user_.Click(extid::Add);
        EXPECT_EQ(Additional().size(), 3U);
        user_.Click(ui::IdOk);
    });
}

TEST_F(ConfigPageTest, AddingAndDeletingModify) {
    Run([&](CConfigPage&) {
        AddExtension(L"new");
        EXPECT_TRUE(IsModified());
        user_.Click(extid::Apply);
        DeleteExtension(2, L"new", ui::IdYes);
        EXPECT_EQ(Additional(), (Texts{L"DOC", L"edi", L"xml"}));
        EXPECT_TRUE(IsModified());
        user_.Click(extid::Apply);
        user_.Click(ui::IdOk);
    });
    EXPECT_EQ(result_.ExtExt, (Texts{L"DOC", L"edi", L"xml"}));
}

TEST_F(ConfigPageTest, DeletingAsksFirst) {
    Run([&](CConfigPage&) {
        DeleteExtension(1, L"edi", ui::IdNo);
        EXPECT_EQ(Additional().size(), 3U);
        EXPECT_EQ(user_.Get<ui::ListBox>(extid::Additional).Selected(), 1);
        user_.Click(ui::IdOk);  // no question: nothing was changed
    });
    EXPECT_EQ(result_, given_);
}

TEST_F(ConfigPageTest, KeysAddAndDeleteInTheList) {
    Run([&](CConfigPage&) {
        user_.Choose(extid::Additional, 1);
        ExpectQuestion(L"Delete additional extension 'edi'?", ui::IdYes);
        user_.Press(Key::Delete);
        user_.Click(extid::Additional);
        user_.Expect<CAddExtDlg>([this](CAddExtDlg&) {
            user_.Type(extid::Asked, L"new");
            user_.Press(Key::Enter);
        });
        user_.Press(Key::Insert);
        EXPECT_EQ(Additional(), (Texts{L"DOC", L"new", L"xml"}));
        user_.Click(extid::Zip);
        user_.Press(Key::Insert);
        user_.Press(Key::Escape);
    });
}

TEST_F(ConfigPageTest, DeletingNeedsASelection) {
    const auto expectRefusal = [&] {
        ExpectHint(L"Select list item to delete.");
        user_.Click(extid::Delete);
    };
    Run([&](CConfigPage&) {
        expectRefusal();
        DeleteExtension(0, L"DOC", ui::IdYes);
        expectRefusal();  // what was selected has gone
        EXPECT_EQ(Additional(), (Texts{L"edi", L"xml"}));
        user_.Press(Key::Escape);
    });
}

TEST_F(ConfigPageTest, TheSelectionStaysWithItsExtension) {
    Run([&](CConfigPage&) {
        user_.Choose(extid::Additional, 2);
        AddExtension(L"aa");
        ExpectQuestion(L"Delete additional extension 'xml'?", ui::IdNo);
        user_.Click(extid::Delete);
        user_.Press(Key::Escape);
    });
}

TEST_F(ConfigPageTest, CanBeUsedWithTheKeyboardAlone) {
    const int result = Run([&](CConfigPage& dialog) {
        user_.Type(extid::Signed, L"sig");
        for (int i = 0; i < 8; ++i) user_.Press(Key::Tab);
        ASSERT_EQ(dialog.Focus(), &dialog.Find(extid::Additional));
        user_.Press(Key::Home);
        user_.Press(Key::End);
        user_.Press(Key::Tab);
        user_.Press(Key::Tab);
        ExpectQuestion(L"Delete additional extension 'xml'?", ui::IdYes);
        user_.Press(Key::Space);
        for (int i = 0; i < 3; ++i) user_.Press(Key::Tab);
        user_.Press(Key::Space);
        user_.Press(Key::Tab);
        ASSERT_EQ(dialog.Focus(), &dialog.Find(extid::Signed));
        user_.Press(Key::Enter);
    });
    EXPECT_EQ(result, ui::IdOk);
    EXPECT_EQ(result_.SigExt, L"sig");
    EXPECT_EQ(result_.ExtExt, (Texts{L"DOC", L"edi"}));
}

TEST_F(ConfigPageTest, EveryOtherWayOutGivesUpWithoutAQuestion) {
    const std::vector<std::function<void()>> waysOut{
        [this] { user_.Click(ui::IdCancel); }, [this] { user_.Press(Key::Escape); }, [this] { user_.PressCloseBox(); }};
    for (const auto& leave : waysOut)
        EXPECT_EQ(Run([&](CConfigPage&) {
                      user_.Type(extid::Signed, L"sig");
                      leave();
                  }),
                  ui::IdCancel);
}

}  // namespace
}  // namespace tests
