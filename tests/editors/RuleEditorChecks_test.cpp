// How the rule editor refuses: the boxes with their texts and icons, and where the focus goes.
#include <gtest/gtest.h>

#include "tests/editors/RuleEditor.h"

namespace tests {
namespace {

class RuleEditorChecks : public RuleEditorTest {
  protected:
    // The user changes what there is to change and expects the box, accepts the rule, is refused, and leaves.
    void ExpectRefused(const config::Rule& rule, int focus, const std::function<void()>& prepare) {
        EXPECT_FALSE(Edit(rule, [&](ui::Dialog& dialog) {
            prepare();
            const Seen before = Look(dialog);
            user_.Click(ui::IdOk);
            ASSERT_FALSE(dialog.HasEnded());
            EXPECT_EQ(Look(dialog), before);
            EXPECT_EQ(dialog.Focus(), &dialog.Find(focus));
            Leave();
        }));
    }
    void ExpectReport(const std::wstring& path, const std::wstring& code, const std::wstring& behind) {
        const uint32_t number = static_cast<uint32_t>(std::stoul(code, nullptr, 16));
        std::wstring text;
        reporter_.ErrorReport({.mode = errors::ReportMode::Collect},
                              {.code = number, .operation = L"Opening file %s", .argument = path}, &text);
        EXPECT_TRUE(text.starts_with(L"Opening file " + path + L".\r\nError 0x" + code + L" - "));
        user_.ExpectBox(text + behind, ui::box::Ok | ui::box::ErrorIcon, ui::IdOk,
                        L"ZEMA AC QLD Service - configuration");
    }
};

TEST_F(RuleEditorChecks, MissingFolders) {
    for (const wchar_t* notSet : {L"", L"0"}) {
        config::Rule rule = FullRule(L"HASH");
        rule.PathError = notSet;
        ExpectRefused(rule, ruleid::PathError,
                      [this] { ExpectErrBox(L"No Error folder selected.", ui::Icon::FolderError); });
        rule.PathOut = notSet;
        ExpectRefused(rule, ruleid::PathOut,
                      [this] { ExpectErrBox(L"No Output folder selected.", ui::Icon::FolderOut); });
        rule.PathIn = notSet;
        ExpectRefused(rule, ruleid::PathIn, [this] { ExpectErrBox(L"No Input folder selected.", ui::Icon::FolderIn); });
    }
}

TEST_F(RuleEditorChecks, BadFolders) {
    config::Rule rule = FullRule(L"MOVE");
    rule.PathOut2 = L"C:\\nowhere";
    ExpectRefused(rule, ruleid::ActionField,
                  [this] { ExpectReport(L"C:\\nowhere", L"2", L"Bad Second Output folder."); });
    rule.PathError = L"C:\\no\\where";
    ExpectRefused(rule, ruleid::PathError, [this] { ExpectReport(L"C:\\no\\where", L"3", L"Bad Error folder."); });
    rule.PathOut = L"C:\\100%s";
    ExpectRefused(rule, ruleid::PathOut, [this] { ExpectReport(L"C:\\100%s", L"2", L"Bad Output folder."); });
    rule.PathIn = L"data\\in";
    files_.ForgetCalls();
    ExpectRefused(rule, ruleid::PathIn, [this] { ExpectReport(L"data\\in", L"3", L"Bad Input folder."); });
    EXPECT_TRUE(files_.Calls().empty());
}

TEST_F(RuleEditorChecks, ASilentRefusalStaysOpenAndShowsNothing) {
    files_.FailAll(platform::memory::FileCall::CheckPathExists, platform::code::FileExists);
    ExpectRefused(FullRule(L"HASH"), ruleid::PathIn, [] {});
    files_.ForgetCalls();
    files_.FailNth(2, platform::code::FileExists);
    ExpectRefused(FullRule(L"HASH"), ruleid::PathError, [] {});
}

TEST_F(RuleEditorChecks, NoMask) {
    config::Rule rule = FullRule(L"HASH");
    rule.Masks.clear();
    ExpectRefused(rule, ruleid::Masks, [this] { ExpectHint(L"No Mask selected."); });
}

TEST_F(RuleEditorChecks, NoRecipients) {
    for (const wchar_t* code : {L"ENCR", L"LENC", L"SGEN"}) {
        config::Rule rule = FullRule(code);
        rule.Certificates.clear();
        ExpectRefused(rule, ruleid::ActionButton,
                      [this] { ExpectErrBox(L"No certificate is selected for operation.", ui::Icon::Recipients); });
    }
}

TEST_F(RuleEditorChecks, NoExecutable) {
    for (const wchar_t* notSet : {L"", L"0"}) {
        ExpectRefused(FullRule(L"EXEC"), ruleid::ActionField, [this, notSet] {
            user_.Type(ruleid::ActionField, notSet);
            EXPECT_EQ(user_.Text(ruleid::ActionField), notSet);
            ExpectErrBox(L"Executable file is not set.", ui::Icon::Executable);
        });
    }
}

TEST_F(RuleEditorChecks, NoOperation) {
    EXPECT_FALSE(Edit(FullRule(L"HASH"), [this](ui::Dialog& dialog) {
        user_.Get<ui::ComboBox>(ruleid::Operation).Select(std::nullopt);
        ExpectHint(L"No operation selected.");
        user_.Click(ui::IdOk);
        EXPECT_EQ(dialog.Focus(), &dialog.Find(ruleid::Operation));
        ChooseOperation(L"MOVE");
        EXPECT_EQ(user_.Text(ruleid::LabelA), L"Delete extension:");
        Leave();
    }));
}

TEST_F(RuleEditorChecks, ARefusalCanBePutRight) {
    config::Rule rule = FullRule(L"HASH");
    rule.PathOut = L"";
    const auto result = Edit(rule, [this](ui::Dialog&) {
        ExpectErrBox(L"No Output folder selected.", ui::Icon::FolderOut);
        user_.Click(ui::IdOk);
        user_.Type(ruleid::PathOut, L"C:\\Out");
        user_.Press(Key::Enter);
    });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->PathOut, L"C:\\Out");
}

TEST_F(RuleEditorChecks, NothingElseIsAskedOfARule) {
    config::Rule rule = PlainRule(L"RESG");  // neither signers nor a description
    rule.Descryption = L"";
    EXPECT_TRUE(Edit(rule, [this](ui::Dialog&) { user_.Click(ui::IdOk); }));
    rule = PlainRule(L"MOVE");
    rule.PathOut2 = L"0";
    EXPECT_TRUE(Edit(rule, [this](ui::Dialog&) { user_.Click(ui::IdOk); }));
    profile_.ZCSProfile.clear();  // nor a CS profile
    EXPECT_TRUE(Edit(PlainRule(L"HASH"), [this](ui::Dialog&) { user_.Click(ui::IdOk); }));
}

}  // namespace
}  // namespace tests
