// What the rule editor shows when it opens.
#include <gtest/gtest.h>

#include <limits>

#include "config/Operations.h"
#include "tests/editors/ExpectedForm.h"
#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

using Texts = std::vector<std::wstring>;

class RuleEditorOpening : public RuleEditorTest {
  protected:
    // What the form shows of a rule with every field set.
    static ExpectedForm ExpectedOfFullRule(const std::wstring& code) {
        ExpectedForm form(code);
        form.pathOut = form.Is(L"DELE") ? L"" : L"C:\\Out";
        form.recipients = 3;
        form.signerLists = 2;
        form.path = form.Is(L"MOVE") ? L"C:\\Second" : L"C:\\run.exe";
        form.archive = L"GZIP archivation";
        form.inDetached = form.outDetached = true;
        form.newProfile = L"Tax";
        form.rowA = form.Is(L"MOVE") ? L"del" : form.Is(L"PACK") ? L"11" : L"44";
        form.rowB = form.Is(L"MOVE") ? L"add" : L"22";
        form.rowC = form.Is(L"MOVE") ? L"%d" : L"33";
        form.rowD = form.Is(L"MOVE") ? L"%c" : L"archive";
        return form;
    }
};

TEST_F(RuleEditorOpening, ANewRuleIsAnEmptyEncryption) {
    memory_.RememberedCsProfile = 2;
    Edit({}, [this](ui::Dialog& dialog) {
        EXPECT_EQ(dialog.Caption(), L"Add rule");
        EXPECT_EQ(Chosen(ruleid::Operation), L"Encrypt");
        EXPECT_EQ(Chosen(ruleid::CsProfile), L"Office");
        EXPECT_EQ(Chosen(ruleid::ListB), L"No");
        for (const int edit : {ruleid::Description, ruleid::PathIn, ruleid::PathOut, ruleid::PathError})
            EXPECT_EQ(user_.Text(edit), L"");
        EXPECT_EQ(user_.RowCount(ruleid::Masks), 0U);
        EXPECT_EQ(user_.Text(ruleid::OldMask), L"*");
        ExpectedForm form(L"ENCR");
        form.archive = L"No";
        for (const auto& [id, expected] : form.Shown()) EXPECT_EQ(Look(dialog).at(id), expected) << id;
        Leave();
    });
    EXPECT_EQ(memory_.RememberedCsProfile, 2);  // left as the rule before left it
}

TEST_F(RuleEditorOpening, ARuleWithoutAnOperationIsANewOneWhateverElseItHolds) {
    config::Rule rule = FullRule(L"");
    Edit(rule, [this](ui::Dialog& dialog) {
        EXPECT_EQ(dialog.Caption(), L"Add rule");
        EXPECT_EQ(user_.Text(ruleid::PathIn), L"");
        EXPECT_EQ(user_.Text(ruleid::ActionField), L"0");
        EXPECT_EQ(user_.RowCount(ruleid::Masks), 0U);
        Leave();
    });
    EXPECT_EQ(memory_.RememberedCsProfile, 0);
}

TEST_F(RuleEditorOpening, TheControlsThatNeverChange) {
    Edit(FullRule(L"ENCR"), [this](ui::Dialog& dialog) {
        EXPECT_EQ(dialog.Caption(), L"Edit rule");
        EXPECT_EQ(dialog.Style().size, (ui::Size{394, 224}));
        const Seen seen = Look(dialog);
        const auto button = [&seen](int id, const std::wstring& tooltip, ui::Icon icon) {
            EXPECT_EQ(seen.at(id), tooltip + L" (icon " + std::to_wstring(static_cast<int>(icon)) + L")");
        };
        button(ruleid::PickPathIn, L"Input folder", ui::Icon::FolderIn);
        button(ruleid::PickPathOut, L"Output folder", ui::Icon::FolderOut);
        button(ruleid::PickPathError, L"Error folder", ui::Icon::FolderError);
        button(ruleid::AddMask, L"Add", ui::Icon::MaskAdd);
        button(ruleid::EditMask, L"Edit", ui::Icon::MaskEdit);
        button(ruleid::DeleteMask, L"Delete", ui::Icon::MaskDelete);
        EXPECT_EQ(seen.at(ruleid::DescriptionLabel), L"Descrip\ntion");
        EXPECT_EQ(seen.at(ruleid::Description), L"first\r\nsecond");
        EXPECT_EQ(seen.at(ui::IdOk), L"OK");
        EXPECT_EQ(seen.at(ui::IdCancel), L"Exit");
        for (const int never : {ruleid::OldMask, ruleid::OldMaskLabel, ruleid::OldMaskEdit})
            EXPECT_EQ(seen.at(never), L"hidden");
        EXPECT_EQ(user_.Text(ruleid::OldMask), L"*.old");
        EXPECT_TRUE(user_.Get<ui::Edit>(ruleid::Description).Style().multiLine);
        for (const int number : {ruleid::NumberA, ruleid::NumberB, ruleid::NumberC})
            EXPECT_TRUE(user_.Get<ui::Edit>(number).Style().digitsOnly);
        Leave();
    });
}

TEST_F(RuleEditorOpening, OffersEveryOperationByItsName) {
    Edit({}, [this](ui::Dialog&) {
        Texts names;
        for (const config::Operation& operation : config::Operations()) names.emplace_back(operation.displayName);
        EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::Operation).Items(), names);
        Leave();
    });
}

TEST_F(RuleEditorOpening, ShowsOfEveryOperationWhatItUses) {
    for (const std::wstring& code : OperationCodes()) {
        SCOPED_TRACE(std::string(code.begin(), code.end()));
        config::Rule rule = FullRule(code);
        rule.ZCSProfile = L"Office";
        Edit(rule, [this, &code](ui::Dialog& dialog) {
            EXPECT_EQ(Chosen(ruleid::Operation),
                      config::Operations()[config::OperationIndex(code).value()].displayName);
            EXPECT_EQ(user_.Text(ruleid::PathIn), L"C:\\In");
            EXPECT_EQ(user_.Text(ruleid::PathError), L"C:\\Error");
            EXPECT_EQ(ShownMasks(), (Texts{L"*.txt", L"*.pdf"}));
            const Seen seen = Look(dialog);
            for (const auto& [id, expected] : ExpectedOfFullRule(code).Shown())
                EXPECT_EQ(seen.at(id), expected) << "control " << id;
            Leave();
        });
    }
}

TEST_F(RuleEditorOpening, AnUnknownOperationIsShownAsTheFirst) {
    Seen encryption;
    Edit(FullRule(L"ENCR"), [&](ui::Dialog& dialog) {
        encryption = Look(dialog);
        Leave();
    });
    for (const wchar_t* code : {L"QQQQ", L"encr", L"("}) {
        Edit(FullRule(code), [&](ui::Dialog& dialog) {
            EXPECT_EQ(dialog.Caption(), L"Edit rule");
            EXPECT_EQ(Chosen(ruleid::Operation), L"Encrypt");
            EXPECT_EQ(ShownMasks(), (Texts{L"*.txt", L"*.pdf"}));
            EXPECT_EQ(Look(dialog), encryption);
            Leave();
        });
    }
}

TEST_F(RuleEditorOpening, APathThatIsNotSetShowsAsAnEmptyField) {
    for (const wchar_t* code : {L"MOVE", L"EXEC"}) {
        config::Rule rule = FullRule(code);
        rule.PathOut2 = rule.ExecName = L"0";
        Edit(rule, [this](ui::Dialog&) {
            EXPECT_EQ(user_.Text(ruleid::ActionField), L"");
            EXPECT_FALSE(user_.Get<ui::Edit>(ruleid::ActionField).IsReadOnly());
            Leave();
        });
    }
}

TEST_F(RuleEditorOpening, NumbersOutsideTheirRangeShowAsTheFirstEntryOrZero) {
    const auto listB = [this](const std::wstring& code, int32_t zipFile) {
        config::Rule rule = FullRule(code);
        rule.ZipFile = zipFile;
        std::wstring chosen;
        Edit(rule, [&](ui::Dialog&) {
            chosen = Chosen(ruleid::ListB);
            Leave();
        });
        return chosen;
    };
    EXPECT_EQ(listB(L"ENCR", 1), L"ZIP archivation");
    EXPECT_EQ(listB(L"ENCR", 3), L"No");
    EXPECT_EQ(listB(L"ENCR", -1), L"No");
    EXPECT_EQ(listB(L"ARCH", 1), L"ZIP archivation");
    EXPECT_EQ(listB(L"ARCH", 0), L"ZIP archivation");
    EXPECT_EQ(listB(L"UNAR", 3), L"ZIP archivation");
    EXPECT_EQ(listB(L"UNAR", std::numeric_limits<int32_t>::min()), L"ZIP archivation");
    EXPECT_EQ(listB(L"ENCR", std::numeric_limits<int32_t>::max()), L"No");
    config::Rule rule = FullRule(L"PACK");
    rule.ArchCount = -5;
    Edit(rule, [this](ui::Dialog&) {
        EXPECT_EQ(user_.Text(ruleid::NumberA), L"0");
        Leave();
    });
}

TEST_F(RuleEditorOpening, EachSignatureFormatIsShownAndKeptByItself) {
    for (const auto& [in, out] : {std::pair{0, 0}, std::pair{0, 1}, std::pair{1, 0}, std::pair{1, 1}}) {
        config::Rule rule = FullRule(L"RESG");
        rule.InFormatDet = in;
        rule.OutFormatDet = out;
        const auto accepted = Edit(rule, [&, in = in, out = out](ui::Dialog&) {
            EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::ListA).Selected(), in);
            EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::ListB).Selected(), out);
            user_.Click(ui::IdOk);
        });
        ASSERT_TRUE(accepted);
        EXPECT_EQ(accepted->InFormatDet, in);
        EXPECT_EQ(accepted->OutFormatDet, out);
    }
}

TEST_F(RuleEditorOpening, SelectsTheStoreProfilesOfTheRuleAndRemembersTheFirst) {
    const auto open = [this](const std::wstring& store, const std::wstring& resign) {
        config::Rule rule = FullRule(L"RESG");
        rule.ZCSProfile = store;
        rule.ResignProfile = resign;
        std::pair<std::wstring, std::wstring> chosen;
        Edit(rule, [&](ui::Dialog&) {
            EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::CsProfile).Items(), profile_.ZCSProfile);
            EXPECT_EQ(user_.Get<ui::ComboBox>(ruleid::ListC).Items(), profile_.ZCSProfile);
            chosen = {Chosen(ruleid::CsProfile), Chosen(ruleid::ListC)};
            Leave();
        });
        return chosen;
    };
    EXPECT_EQ(open(L"Tax", L"Bank"), (std::pair<std::wstring, std::wstring>(L"Tax", L"Bank")));
    EXPECT_EQ(memory_.RememberedCsProfile, 2);
    EXPECT_EQ(open(L"tax", L"gone"), (std::pair<std::wstring, std::wstring>(L"Office", L"Office")));
    EXPECT_EQ(memory_.RememberedCsProfile, 0);
    profile_.ZCSProfile = {L"Bank", L"Tax", L"Bank"};
    open(L"Bank", L"Bank");
    EXPECT_EQ(memory_.RememberedCsProfile, 2);
    profile_.ZCSProfile.clear();
    EXPECT_EQ(open(L"Bank", L"Bank"), (std::pair<std::wstring, std::wstring>()));
}

TEST_F(RuleEditorOpening, LeavingGivesNoRule) {
    EXPECT_FALSE(Edit(FullRule(L"ENCR"), [this](ui::Dialog&) { user_.Click(ui::IdCancel); }));
    EXPECT_FALSE(Edit(FullRule(L"ENCR"), [this](ui::Dialog&) { user_.Press(Key::Escape); }));
    EXPECT_FALSE(Edit(FullRule(L"ENCR"), [this](ui::Dialog&) { user_.PressCloseBox(); }));
}

}  // namespace
}  // namespace tests
