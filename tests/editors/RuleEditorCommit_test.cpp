// The rule that the editor hands back.
#include "tests/editors/RuleByHand.h"

namespace tests {
namespace {

using config::Rule;
using RuleEditorCommit = RuleByHandTest;

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

}  // namespace
}  // namespace tests
