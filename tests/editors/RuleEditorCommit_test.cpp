// The rule that the editor hands back.
#include <gtest/gtest.h>

#include <map>

#include "app/BrisgateDlg.h"
#include "config/Load.h"
#include "editors/AddMask.h"
#include "tests/editors/RuleEditor.h"
#include "tests/support/TestFiles.h"

namespace tests {
namespace {

using config::Rule;
using Fill = std::function<void(Rule&)>;

// What a rule holds besides folders, description and masks, for the operations that hold more. Whatever is
// not named here stays empty.
const std::map<std::wstring, Fill>& OwnFields() {
    static const Fill recipients = [](Rule& r) { r.Certificates = {L"CN=Anna", L"CN=Boris"}; };
    static const Fill signers = [](Rule& r) { r.SignerLists = {{L"chiefs", {L"CN=Dora"}}, {L"none", {}}}; };
    static const Fill zip = [](Rule& r) { r.ZipFile = 1; };
    static const Fill gzip = [](Rule& r) { r.ZipFile = 2; };
    static const auto both = [](const Fill& a, const Fill& b) {
        return [&a, &b](Rule& r) {
            a(r);
            b(r);
        };
    };
    static const std::map<std::wstring, Fill> fields{
        {L"ENCR", both(recipients, gzip)},
        {L"DECR", zip},
        {L"CHCK", signers},
        {L"CHKX", signers},
        {L"MOVE",
         [](Rule& r) {
             r.PathOut2 = L"C:\\Second";
             r.DelExt = L"del";
             r.AddExt = L"add";
             r.Folders = L"%d";
             r.Copyfolders = L"%c";
         }},
        {L"DELE", [](Rule& r) { r.PathOut = L""; }},
        {L"LENC", recipients},
        {L"LDEC", gzip},
        {L"DCHK", signers},
        {L"RESG",
         [](Rule& r) {
             signers(r);
             r.InFormatDet = 1;
             r.OutFormatDet = 1;
             r.ResignProfile = L"Tax";
         }},
        {L"SGEN", both(recipients, zip)},
        {L"DCCX", both(signers, gzip)},
        {L"ARCH", zip},
        {L"UNAR", gzip},
        {L"PACK",
         [](Rule& r) {
             r.ArchCount = 11;
             r.ArchSize = 22;
             r.ArchTimeout = 2147483647;
             r.ArchName = L"archive";
         }},
        {L"EXEC",
         [](Rule& r) {
             r.ExecName = L"run.exe";
             r.ExecTimeout = 44;
         }},
    };
    return fields;
}

class RuleEditorCommit : public RuleEditorTest {
  protected:
    static Rule Expected(const std::wstring& code) {
        Rule rule = PlainRule(code);
        const std::wstring without = L"MOVE DELE B64E B64D ARCH UNAR PACK UNPK EXEC";
        if (without.find(code) != std::wstring::npos) rule.ZCSProfile = L"";
        rule.IsOn = 1;
        if (const auto own = OwnFields().find(code); own != OwnFields().end()) own->second(rule);
        return rule;
    }

    // Puts the rule in by hand, each value where the form has a place for it.
    void PutIn(const Rule& rule) {
        ChooseOperation(rule.Operation);
        PutInIfUsable(ruleid::StoreProfile, 1);
        user_.Type(ruleid::Description, rule.Descryption);
        user_.Type(ruleid::PathIn, rule.PathIn);
        if (user_.CanUse(ruleid::PathOut)) user_.Type(ruleid::PathOut, rule.PathOut);
        user_.Type(ruleid::PathError, rule.PathError);
        PutInAction(rule);
        for (const std::wstring& mask : rule.Masks) PutInMask(mask);
        const bool resigns = rule.Operation == L"RESG";
        const bool always = rule.Operation == L"ARCH" || rule.Operation == L"UNAR";
        PutInIfUsable(ruleid::ListA, rule.InFormatDet);
        PutInIfUsable(ruleid::ListB, resigns ? rule.OutFormatDet : always ? rule.ZipFile - 1 : rule.ZipFile);
        PutInIfUsable(ruleid::ListC, 2);
        PutInIfUsable(ruleid::TextA, rule.DelExt);
        PutInIfUsable(ruleid::TextB, rule.AddExt);
        PutInIfUsable(ruleid::TextC, rule.Folders);
        PutInIfUsable(ruleid::TextD, rule.Operation == L"PACK" ? rule.ArchName : rule.Copyfolders);
        PutInIfUsable(ruleid::NumberA, std::to_wstring(rule.ArchCount + rule.ExecTimeout));
        PutInIfUsable(ruleid::NumberB, std::to_wstring(rule.ArchSize));
        PutInIfUsable(ruleid::NumberC, std::to_wstring(rule.ArchTimeout));
    }

  private:
    void PutInIfUsable(int list, int choice) {
        if (user_.CanUse(list)) user_.Choose(list, choice);
    }
    void PutInIfUsable(int edit, const std::wstring& text) {
        if (user_.CanUse(edit)) user_.Type(edit, text);
    }
    void PutInAction(const Rule& rule) {
        certificates_.recipients = rule.Certificates;
        certificates_.signerLists = rule.SignerLists;
        const std::wstring path = rule.PathOut2 + rule.ExecName;
        if (!path.empty()) {
            user_.Type(ruleid::ActionField, path);
        } else if (user_.CanUse(ruleid::ActionButton)) {
            user_.Click(ruleid::ActionButton);
        }
    }
    void PutInMask(const std::wstring& mask) {
        user_.Expect<editors::AddMask>([this, mask](editors::AddMask&) {
            user_.Type(ruleid::MaskCombo, mask);
            user_.Click(ui::IdOk);
        });
        user_.Click(ruleid::AddMask);
    }
};

TEST_F(RuleEditorCommit, ANewRuleOfEveryOperationIsMadeByHand) {
    for (const std::wstring& code : OperationCodes()) {
        SCOPED_TRACE(std::string(code.begin(), code.end()));
        const Rule expected = Expected(code);
        const auto made = Edit({}, [&](ui::Dialog&) {
            PutIn(expected);
            user_.Click(ui::IdOk);
        });
        EXPECT_EQ(made, expected);
    }
}

TEST_F(RuleEditorCommit, ARuleOfEveryOperationComesBackAsItWentInAndSwitchedOn) {
    for (const std::wstring& code : OperationCodes()) {
        SCOPED_TRACE(std::string(code.begin(), code.end()));
        const Rule expected = Expected(code);
        Rule given = expected;
        given.IsOn = 0;
        EXPECT_EQ(Edit(given, [this](ui::Dialog&) { user_.Press(Key::Enter); }), expected);
    }
}

TEST_F(RuleEditorCommit, FieldsThatAnOperationDoesNotUseComeBackEmpty) {
    for (const std::wstring& code : OperationCodes()) {
        SCOPED_TRACE(std::string(code.begin(), code.end()));
        const Rule own = Expected(code);
        Rule given = FullRule(code);
        given.PathOut = L"C:\\Out";
        given.ZCSProfile = L"Bank";
        Rule expected = own;
        expected.Masks = given.Masks;
        if (!own.Certificates.empty()) expected.Certificates = given.Certificates;
        if (!own.SignerLists.empty()) expected.SignerLists = given.SignerLists;
        if (own.ZipFile != 0 || code == L"LENC") expected.ZipFile = 2;
        if (own.ArchTimeout != 0) expected.ArchTimeout = 33;
        if (!own.ExecName.empty()) expected.ExecName = given.ExecName;
        EXPECT_EQ(Edit(given, [this](ui::Dialog&) { user_.Click(ui::IdOk); }), expected);
    }
}

TEST_F(RuleEditorCommit, ADeletionForgetsTheOutputFolderEvenWhenItIsNotSet) {
    Rule rule = FullRule(L"DELE");
    rule.PathOut = L"0";
    const auto result = Edit(rule, [this](ui::Dialog&) { user_.Click(ui::IdOk); });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->PathOut, L"");
}

TEST_F(RuleEditorCommit, AnotherOperationTakesTheRecipientsAway) {
    for (const wchar_t* code : {L"HASH", L"B64E"}) {
        const auto result = Edit(FullRule(L"ENCR"), [this, code](ui::Dialog&) {
            ChooseOperation(code);
            user_.Click(ui::IdOk);
        });
        ASSERT_TRUE(result);
        EXPECT_TRUE(result->Certificates.empty());
        EXPECT_EQ(result->ZipFile, 0);
        EXPECT_EQ(result->ZCSProfile, std::wstring(code) == L"HASH" ? L"Bank" : L"");
    }
}

TEST_F(RuleEditorCommit, APathThatIsNotSetIsWrittenAsItStands) {
    const auto result = Edit(FullRule(L"MOVE"), [this](ui::Dialog&) {
        user_.Type(ruleid::ActionField, L"0");
        user_.Click(ui::IdOk);
    });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->PathOut2, L"0");
}

// The whole way of a rule: made by hand in the main window, saved, loaded again, and carried to another
// profile.
class RuleJourney : public RuleEditorCommit {
  protected:
    void SetUp() override {
        Seed(R"([HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel\Profiles\1]
ProfileName = "Bank"
BasePath = "C:\Keys"

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Alpha\rules]

[HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice\Beta\rules]
)");
        for (const wchar_t* name : {L"Alpha", L"Beta"}) {
            ASSERT_EQ(store_.Open(platform::RootKey::LocalMachine,
                                  std::wstring(L"SOFTWARE\\TALVERON\\morcelservice\\") + name),
                      0U);
            ASSERT_TRUE(store_.WriteTextList(L"ZCSProfile", profile_.ZCSProfile, nullptr));
        }
        files_.AddFolder(realFiles_->Folder());
    }

    void AddByHand(const Rule& rule) {
        user_.Expect<editors::CAddRule>([this, rule](editors::CAddRule&) {
            PutIn(rule);
            user_.Click(ui::IdOk);
        });
        user_.Click(1023);
    }
    void ExportAndImportIntoTheOtherProfile() {
        const std::wstring path = realFiles_->Folder() + L"\\rules.prx";
        user_.ExpectFilePicker(ui::FilePickerKind::Save, path);
        user_.Click(1034);
        platform::FileHandle
            file{};  // the picker looks for it on the real disk, the program among the test's files
        ASSERT_EQ(realFiles_->Files().Create(path, file), 0U);
        ASSERT_EQ(realFiles_->Files().Close(file), 0U);
        user_.ClickRow(1001, 1);
        user_.ExpectFilePicker(ui::FilePickerKind::Open, path);
        user_.Click(1035);
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
    EXPECT_EQ(app::CBrisgateDlg(editorServices_, &certificates_).DoModal(), ui::IdOk);

    const auto loaded = config::LoadConfiguration(store_, reporter_, nullptr);
    ASSERT_TRUE(loaded);
    ASSERT_EQ(loaded->Profiles.size(), 2U);
    EXPECT_EQ(loaded->Profiles[0].Rules, expected);
    EXPECT_EQ(loaded->Profiles[1].Rules, expected);
}

}  // namespace
}  // namespace tests
